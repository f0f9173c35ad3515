#include "platform/memory.h"

#include <cstdint>
#include <new>
#include <sys/mman.h>

namespace platform {

void* allocatePages(std::size_t bytes) {
    // mmap knows no alignment: take too much and give the edges back.
    const std::size_t reserved = bytes + largePageSize;
    void* const mapped = ::mmap(nullptr, reserved, PROT_READ | PROT_WRITE,
                                MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
    if (mapped == MAP_FAILED)
        throw std::bad_alloc();
    const auto start = reinterpret_cast<std::uintptr_t>(mapped);
    const std::uintptr_t aligned = (start + largePageSize - 1) / largePageSize * largePageSize;
    constexpr std::size_t page = 4096;
    const std::uintptr_t end = aligned + (bytes + page - 1) / page * page;
    if (aligned > start)
        ::munmap(mapped, aligned - start);
    if (start + reserved > end)
        ::munmap(reinterpret_cast<void*>(end), start + reserved - end);
    void* const memory = reinterpret_cast<void*>(aligned);
    ::madvise(memory, bytes, MADV_HUGEPAGE);
    return memory;
}

void freePages(void* memory, std::size_t bytes) noexcept {
    if (memory != nullptr)
        ::munmap(memory, bytes);
}

} // namespace platform
