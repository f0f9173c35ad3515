#pragma once

#include <cstddef>
#include <span>

namespace fuzz {

/// Tries an input as two library definition files: what stands in front of the first record
/// separator (0x1e) is "lib.defs", the rest "more.defs" beside it. Slashes count as underscores, so
/// that nothing beyond the two is touched. Answers whether the first has no syntax error.
///
/// Both are opened, visited, and saved, which must give the same bytes. Then every second member
/// is destroyed and some are moved where the order means nothing to other statements, and others
/// get another path and other attributes; what is saved must be read as what was in memory. Ends
/// the process when something is not as it must be.
bool tryLibraryDefinitions(std::span<const std::byte> input);

} // namespace fuzz
