#include "platform/memory.h"

#include <new>
#include <windows.h>

namespace platform {

void* allocatePages(std::size_t bytes) {
    void* const memory = VirtualAlloc(nullptr, bytes, MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE);
    if (memory == nullptr)
        throw std::bad_alloc();
    return memory;
}

void freePages(void* memory, std::size_t) noexcept {
    if (memory != nullptr)
        VirtualFree(memory, 0, MEM_RELEASE);
}

} // namespace platform
