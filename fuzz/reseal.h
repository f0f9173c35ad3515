#pragma once

#include <cstddef>
#include <span>
#include <vector>

namespace fuzz {

using Bytes = std::vector<std::byte>;

/// The input with the file size and all checksums put right, so that the reader looks at what
/// they guard. Empty when there is no room for a header.
Bytes withChecksums(std::span<const std::byte> input);

/// The same, and the sections follow one another as in a sound file, each with the kind, number,
/// parameter, record size and as much of its count as there are bytes for.
Bytes laidOut(std::span<const std::byte> input);

} // namespace fuzz
