#include "pcell/sha256.h"

#include <algorithm>
#include <bit>
#include <cstring>

#include "platform/processor.h"

namespace ovalis {

namespace {

/// Puts a word with its highest byte first.
template <class Word>
void putBigEndian(unsigned char* place, Word word) {
    if constexpr (std::endian::native == std::endian::little) {
        word = sizeof(Word) == 8 ? static_cast<Word>(__builtin_bswap64(word))
                                 : static_cast<Word>(__builtin_bswap32(word));
    }
    std::memcpy(place, &word, sizeof(word));
}

} // namespace

Sha256Blocks fastestSha256Blocks() {
    static const Sha256Blocks fastest =
        platform::hasSha256Instructions() ? addSha256BlocksByInstructions : addSha256BlocksPortably;
    return fastest;
}

void Sha256::add(std::string_view bytes) {
    const std::size_t begun = length_ % sha256BlockSize;
    length_ += bytes.size();
    if (begun != 0) {
        const std::size_t taken = std::min(bytes.size(), sha256BlockSize - begun);
        std::memcpy(rest_.data() + begun, bytes.data(), taken);
        bytes.remove_prefix(taken);
        if (begun + taken < sha256BlockSize) {
            return;
        }
        addBlocks_(state_, rest_.data(), 1);
    }
    const std::size_t whole = bytes.size() / sha256BlockSize;
    if (whole != 0) {
        addBlocks_(state_, reinterpret_cast<const unsigned char*>(bytes.data()), whole);
        bytes.remove_prefix(whole * sha256BlockSize);
    }
    if (!bytes.empty()) {
        std::memcpy(rest_.data(), bytes.data(), bytes.size());
    }
}

Sha256Digest Sha256::finish() {
    addPadding();
    Sha256Digest digest;
    for (std::size_t i = 0; i < state_.size(); ++i) {
        putBigEndian(&digest[4 * i], state_[i]);
    }
    return digest;
}

// A one bit, zeros, and the length in bits at the end of the last block.
void Sha256::addPadding() {
    std::array<unsigned char, 2 * sha256BlockSize> end{};
    const std::size_t begun = length_ % sha256BlockSize;
    std::memcpy(end.data(), rest_.data(), begun);
    end[begun] = 0x80;
    const std::size_t blocks = begun + 1 + sizeof(length_) <= sha256BlockSize ? 1 : 2;
    putBigEndian(&end[blocks * sha256BlockSize - sizeof(length_)], length_ * 8);
    addBlocks_(state_, end.data(), blocks);
}

} // namespace ovalis
