#pragma once

#include <cstddef>
#include <span>

namespace fuzz {

/// Reads the input in every name space, as a member and as a name of each form. What is read is
/// written in every name space that can spell it and must be read there as the same name; the
/// native spelling, which takes everything, must come back as it was given. Answers whether
/// another name space than that reads the input.
bool tryNames(std::span<const std::byte> input);

} // namespace fuzz
