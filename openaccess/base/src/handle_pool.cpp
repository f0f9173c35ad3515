#include "base/src/handle_pool.h"
#include "base/src/unset_records.h"

#include "platform/memory.h"

#include <cstring>
#include <new>

namespace OpenAccess_4::impl {

namespace {

constexpr std::align_val_t kAlignment{64};

// Smaller pieces do not start at a cache line: memory so aligned takes longer to find than to fill.
constexpr std::size_t kAligned = 16 * 1024;

// From half a large page on, memory comes straight from the system, in large pages where it can.
constexpr std::size_t kFewPages = platform::largePageSize / 2;

} // namespace

HandlePool& HandlePool::instance() {
    // Never destroyed: clients may hold pointers to objects until the process ends.
    static HandlePool& pool = *new HandlePool;
    return pool;
}

oaObject* HandlePool::take(std::uint32_t capacity) {
    std::deque<oaObject*>& unused = unused_[capacity];
    if (unused.empty()) {
        const std::size_t bytes = capacity * sizeof(oaObject);
        return static_cast<oaObject*>(bytes < kFewPages ? ::operator new(bytes)
                                                        : platform::allocatePages(bytes));
    }
    oaObject* handles = unused.front();
    unused.pop_front();
    return handles;
}

void HandlePool::giveBack(oaObject* handles, std::uint32_t capacity) {
    unused_[capacity].push_back(handles);
}

std::byte* allocateUnsetRecords(std::size_t bytes) {
    if (bytes >= kFewPages)
        return static_cast<std::byte*>(platform::allocatePages(bytes));
    return static_cast<std::byte*>(bytes < kAligned ? ::operator new(bytes)
                                                    : ::operator new(bytes, kAlignment));
}

std::byte* allocateRecords(std::size_t bytes) {
    std::byte* memory = allocateUnsetRecords(bytes);
    if (bytes < kFewPages) // pages of the system are zero
        std::memset(memory, 0, bytes);
    return memory;
}

void freeRecords(std::byte* records, std::size_t bytes) {
    if (bytes >= kFewPages)
        platform::freePages(records, bytes);
    else if (bytes < kAligned)
        ::operator delete(records);
    else
        ::operator delete(records, kAlignment);
}

} // namespace OpenAccess_4::impl
