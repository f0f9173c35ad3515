#pragma once

#include "oa/oaObject.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <unordered_map>

namespace OpenAccess_4::impl {

/// The memory of handles. It is never freed, so that a pointer to an object of a closed database
/// keeps answering isValid(); the longest unused memory serves the next table.
class HandlePool {
public:
    static HandlePool& instance();

    /// Memory for `capacity` handles, all of them invalid.
    oaObject* take(std::uint32_t capacity);
    void giveBack(oaObject* handles, std::uint32_t capacity);

private:
    std::unordered_map<std::uint32_t, std::deque<oaObject*>> unused_;
};

/// Zeroed memory for the records of a slab. @throws std::bad_alloc
std::byte* allocateRecords(std::size_t bytes);
void freeRecords(std::byte* records, std::size_t bytes);

} // namespace OpenAccess_4::impl
