#include "base/src/handle_pool.h"

#include <cstring>
#include <new>

namespace OpenAccess_4::impl {

namespace {

constexpr std::align_val_t kAlignment{64};

} // namespace

HandlePool& HandlePool::instance() {
    // Never destroyed: clients may hold pointers to objects until the process ends.
    static HandlePool& pool = *new HandlePool;
    return pool;
}

oaObject* HandlePool::take(std::uint32_t capacity) {
    std::deque<oaObject*>& unused = unused_[capacity];
    if (unused.empty())
        return static_cast<oaObject*>(::operator new(capacity * sizeof(oaObject)));
    oaObject* handles = unused.front();
    unused.pop_front();
    return handles;
}

void HandlePool::giveBack(oaObject* handles, std::uint32_t capacity) {
    unused_[capacity].push_back(handles);
}

std::byte* allocateRecords(std::size_t bytes) {
    void* memory = ::operator new(bytes, kAlignment);
    std::memset(memory, 0, bytes);
    return static_cast<std::byte*>(memory);
}

void freeRecords(std::byte* records, std::size_t bytes) {
    ::operator delete(records, bytes, kAlignment);
}

} // namespace OpenAccess_4::impl
