#pragma once

#include <cstddef>
#include <span>

namespace fuzz {

/// Tries an input as it is, with its checksums put right, and with its sections put right. Answers
/// whether it was accepted as it is.
bool tryDatabaseFile(std::span<const std::byte> input);

} // namespace fuzz
