#pragma once

#include <cstdint>

namespace OpenAccess_4::impl {

// Numbers of the tables that every database has. A package numbers its own ones from
// kFirstPackageTable; tables that a database has several of come from kFirstVariableTable on.
inline constexpr std::uint32_t kPropTable = 1;
inline constexpr std::uint32_t kAppDefTable = 2;
inline constexpr std::uint32_t kAppValueTable = 3;
inline constexpr std::uint32_t kTransientAppValueTable = 4;
inline constexpr std::uint32_t kGroupDefTable = 5;
inline constexpr std::uint32_t kGroupTable = 6;
inline constexpr std::uint32_t kGroupMemberTable = 7;
inline constexpr std::uint32_t kFirstPackageTable = 8;
inline constexpr std::uint32_t kFirstVariableTable = 64;
inline constexpr std::uint32_t kMostTables = 1u << 20;

/// The kind of a table that database files leave out.
inline constexpr std::uint32_t kTransientKind = 0;

} // namespace OpenAccess_4::impl
