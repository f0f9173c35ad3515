#pragma once

#include <cstdint>

namespace OpenAccess_4::impl {

/// No slot, no string, no table: what an optional reference holds when it names nothing.
inline constexpr std::uint32_t kNone = 0xFFFFFFFFu;

/// A text of the database's string pool. The empty text is always number 0.
using StringId = std::uint32_t;

/// An object of one database: the number of its table and its slot there.
/// Table 0 stands for the database itself, with slot 0.
struct ObjectRef {
    std::uint32_t table = kNone;
    std::uint32_t slot = kNone;

    friend bool operator==(const ObjectRef&, const ObjectRef&) = default;
    explicit operator bool() const { return table != kNone; }
    std::uint64_t key() const { return (std::uint64_t(table) << 32) | slot; }
    static ObjectRef fromKey(std::uint64_t key) {
        return {std::uint32_t(key >> 32), std::uint32_t(key)};
    }
};

inline constexpr ObjectRef kDatabaseItself{0, 0};

/// A run of points in the database's point pool.
struct PointsRef {
    std::uint32_t first = 0;
    std::uint32_t count = 0;

    friend bool operator==(const PointsRef&, const PointsRef&) = default;
};

} // namespace OpenAccess_4::impl
