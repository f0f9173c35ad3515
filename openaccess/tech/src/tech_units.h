#pragma once

#include <cstddef>

namespace OpenAccess_4 {
class oaViewType;
}

namespace OpenAccess_4::impl {

/// The view type at a place among those that have units.
oaViewType* unitsViewType(std::size_t index);

} // namespace OpenAccess_4::impl
