#include <immintrin.h>

#include <utility>

#include "pcell/sha256_blocks.h"

// Only these functions may hold instructions that not every processor has.
#define OVALIS_SHA_INSTRUCTIONS gnu::target("sha,ssse3")

namespace ovalis {

namespace {

/// The order in which the instructions want the eight words, lowest lane first.
struct Lanes {
    __m128i feba;
    __m128i hgdc;
};

constexpr int pairsSwapped = 0xB1;
constexpr int upperPairDown = 0x0E;

[[OVALIS_SHA_INSTRUCTIONS]] inline Lanes lanesOf(const Sha256State& state) {
    const auto* words = reinterpret_cast<const __m128i*>(state.data());
    const __m128i badc = _mm_shuffle_epi32(_mm_loadu_si128(words), pairsSwapped);
    const __m128i fehg = _mm_shuffle_epi32(_mm_loadu_si128(words + 1), pairsSwapped);
    return {_mm_unpacklo_epi64(fehg, badc), _mm_unpackhi_epi64(fehg, badc)};
}

[[OVALIS_SHA_INSTRUCTIONS]] inline void store(Sha256State& state, const Lanes& lanes) {
    auto* words = reinterpret_cast<__m128i*>(state.data());
    const __m128i fehg = _mm_unpacklo_epi64(lanes.feba, lanes.hgdc);
    const __m128i badc = _mm_unpackhi_epi64(lanes.feba, lanes.hgdc);
    _mm_storeu_si128(words, _mm_shuffle_epi32(badc, pairsSwapped));
    _mm_storeu_si128(words + 1, _mm_shuffle_epi32(fehg, pairsSwapped));
}

/// Four words of the block, which stand there with their highest byte first.
[[OVALIS_SHA_INSTRUCTIONS]] inline __m128i wordsAt(const unsigned char* place) {
    const __m128i reversed = _mm_set_epi64x(0x0C0D0E0F08090A0B, 0x0405060700010203);
    return _mm_shuffle_epi8(_mm_loadu_si128(reinterpret_cast<const __m128i*>(place)), reversed);
}

/// Four rounds. `words` holds the last sixteen words of the schedule; from the fifth group on, the
/// words of the group take the place of those of four groups before.
template <std::size_t Group>
[[OVALIS_SHA_INSTRUCTIONS, gnu::always_inline]] inline void
doFourRounds(Lanes& lanes, __m128i (&words)[4], const unsigned char* block) {
    __m128i& current = words[Group % 4];
    if constexpr (Group < 4) {
        current = wordsAt(block + 16 * Group);
    } else {
        const __m128i last = words[(Group + 3) % 4];
        const __m128i sevenBack = _mm_alignr_epi8(last, words[(Group + 2) % 4], 4);
        const __m128i begun = _mm_sha256msg1_epu32(current, words[(Group + 1) % 4]);
        current = _mm_sha256msg2_epu32(_mm_add_epi32(begun, sevenBack), last);
    }
    const auto* constants = reinterpret_cast<const __m128i*>(sha256Rounds.data()) + Group;
    const __m128i added = _mm_add_epi32(current, _mm_load_si128(constants));
    // Two rounds at a time, after which the halves of the state have changed places.
    lanes.hgdc = _mm_sha256rnds2_epu32(lanes.hgdc, lanes.feba, added);
    lanes.feba =
        _mm_sha256rnds2_epu32(lanes.feba, lanes.hgdc, _mm_shuffle_epi32(added, upperPairDown));
}

template <std::size_t... Group>
[[OVALIS_SHA_INSTRUCTIONS, gnu::always_inline]] inline void
addBlock(Lanes& lanes, const unsigned char* block, std::index_sequence<Group...>) {
    const Lanes before = lanes;
    __m128i words[4];
    (doFourRounds<Group>(lanes, words, block), ...);
    lanes.feba = _mm_add_epi32(lanes.feba, before.feba);
    lanes.hgdc = _mm_add_epi32(lanes.hgdc, before.hgdc);
}

} // namespace

[[OVALIS_SHA_INSTRUCTIONS]] void
addSha256BlocksByInstructions(Sha256State& state, const unsigned char* blocks, std::size_t count) {
    Lanes lanes = lanesOf(state);
    for (std::size_t i = 0; i < count; ++i) {
        addBlock(lanes, blocks + i * sha256BlockSize, std::make_index_sequence<16>());
    }
    store(state, lanes);
}

} // namespace ovalis
