#pragma once

#include <cstddef>

#include <oa/oaDesignDB.h>

namespace ovalis {

/// Returns about how many bytes the description of a large design has, hardly ever less than it
/// will have; 0 for a small one.
std::size_t estimatedSize(const oa::oaDesign& design);

} // namespace ovalis
