#pragma once

#include <cstddef>

namespace OpenAccess_4::impl {

/// Memory for records that are written before they are read, otherwise as allocateRecords().
std::byte* allocateUnsetRecords(std::size_t bytes);

} // namespace OpenAccess_4::impl
