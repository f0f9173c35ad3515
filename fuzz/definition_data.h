#pragma once

#include <cstddef>
#include <span>

namespace fuzz {

/// Takes the input but for its first byte as the definition data of the evaluator of script macros.
/// They are read at the position that the first byte gives, and as what a stored super master has.
/// What is accepted is written again: in the room that was announced, with nothing around it
/// touched, and must be read back as it was. Answers whether the data were accepted.
bool tryDefinitionData(std::span<const std::byte> input);

} // namespace fuzz
