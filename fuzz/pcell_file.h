#pragma once

#include <cstddef>
#include <span>

namespace fuzz {

/// Takes the input as a pcell file, as it is and with the checksums of its first submaster put
/// right, and reads it into a submaster at every byte where one may begin. What is accepted is
/// visited, written, halved and written again, and must be the same each time. Answers whether
/// anything was accepted as it is.
bool tryPcellFile(std::span<const std::byte> input);

} // namespace fuzz
