#pragma once

#include <cstddef>
#include <span>

namespace fuzz {

/// Takes the input but for its first byte as a Touchstone file. The first byte gives the number of
/// ports that the name of the file says; for 0 it says none. Answers whether the file was accepted.
bool tryTouchstone(std::span<const std::byte> input);

} // namespace fuzz
