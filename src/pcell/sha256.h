#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "pcell/sha256_blocks.h"

namespace ovalis {

using Sha256Digest = std::array<unsigned char, 32>;

/// Computes the SHA-256 digest (FIPS 180-4) of bytes that come in any number of pieces.
class Sha256 {
public:
    /// Uses the fastest form that this processor has.
    Sha256() : Sha256(fastestSha256Blocks()) {}
    explicit Sha256(Sha256Blocks blocks) : addBlocks_(blocks) {}

    void add(std::string_view bytes);

    /// Returns the digest of everything added. Nothing may be added afterwards.
    Sha256Digest finish();

private:
    void addPadding();

    Sha256Blocks addBlocks_;
    Sha256State state_ = sha256Start;
    std::uint64_t length_ = 0;                        // in bytes
    std::array<unsigned char, sha256BlockSize> rest_; // of a block that is not full yet
};

} // namespace ovalis
