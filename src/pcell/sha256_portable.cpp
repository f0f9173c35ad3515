#include <bit>
#include <utility>

#include "pcell/sha256_blocks.h"

namespace ovalis {

namespace {

using Words = std::array<std::uint32_t, 16>;

std::uint32_t bigEndianWord(const unsigned char* place) {
    return std::uint32_t{place[0]} << 24 | std::uint32_t{place[1]} << 16 |
           std::uint32_t{place[2]} << 8 | std::uint32_t{place[3]};
}

std::uint32_t scheduleOf2(std::uint32_t word) {
    return std::rotr(word, 17) ^ std::rotr(word, 19) ^ word >> 10;
}

std::uint32_t scheduleOf15(std::uint32_t word) {
    return std::rotr(word, 7) ^ std::rotr(word, 18) ^ word >> 3;
}

/// One round. The words a to h stay where they are and change their names from round to round, so
/// that `Round` must be known to the compiler.
template <std::size_t Round>
[[gnu::always_inline]] inline void doRound(Sha256State& state, std::uint32_t added) {
    const auto place = [](std::size_t letter) { return (letter + 64 - Round) % 8; };
    const std::uint32_t a = state[place(0)];
    const std::uint32_t b = state[place(1)];
    const std::uint32_t c = state[place(2)];
    const std::uint32_t e = state[place(4)];
    const std::uint32_t f = state[place(5)];
    const std::uint32_t g = state[place(6)];
    const std::uint32_t choice = g ^ (e & (f ^ g));
    const std::uint32_t majority = (a & b) | (c & (a | b));
    const std::uint32_t sum =
        state[place(7)] + added + choice + (std::rotr(e, 6) ^ std::rotr(e, 11) ^ std::rotr(e, 25));
    state[place(3)] += sum;
    state[place(7)] = sum + majority + (std::rotr(a, 2) ^ std::rotr(a, 13) ^ std::rotr(a, 22));
}

/// The word of a round after the sixteenth takes the place of the one sixteen rounds before.
template <std::size_t Place>
[[gnu::always_inline]] inline std::uint32_t nextWord(Words& words) {
    words[Place] += scheduleOf15(words[(Place + 1) % 16]) + words[(Place + 9) % 16] +
                    scheduleOf2(words[(Place + 14) % 16]);
    return words[Place];
}

template <std::size_t... Round>
[[gnu::always_inline]] inline void doRounds(Sha256State& state, Words& words,
                                            std::index_sequence<Round...>) {
    (doRound<Round>(state, sha256Rounds[Round] + words[Round]), ...);
    for (std::size_t first = 16; first < sha256Rounds.size(); first += 16) {
        (doRound<Round>(state, sha256Rounds[first + Round] + nextWord<Round>(words)), ...);
    }
}

void addBlock(Sha256State& state, const unsigned char* block) {
    Words words;
    for (std::size_t i = 0; i < words.size(); ++i) {
        words[i] = bigEndianWord(block + 4 * i);
    }
    Sha256State worked = state;
    doRounds(worked, words, std::make_index_sequence<16>());
    for (std::size_t i = 0; i < state.size(); ++i) {
        state[i] += worked[i];
    }
}

} // namespace

void addSha256BlocksPortably(Sha256State& state, const unsigned char* blocks, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) {
        addBlock(state, blocks + i * sha256BlockSize);
    }
}

} // namespace ovalis
