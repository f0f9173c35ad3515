#pragma once

#include <cstdint>

namespace OpenAccess_4::impl {

/// The parameter of a transient table that every database of its kind is made with, always with the
/// same slots: what is attached to its objects can be stored.
inline constexpr std::uint32_t kConstantTable = 1;

} // namespace OpenAccess_4::impl
