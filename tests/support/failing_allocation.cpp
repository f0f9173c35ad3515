#include "support/failing_allocation.h"

#include <cstdlib>
#include <new>

namespace ovalis::test {

long allocations = 0;
long failingAllocation = 0;

} // namespace ovalis::test

void* operator new(std::size_t size) {
    using namespace ovalis::test;
    if (++allocations == failingAllocation)
        throw std::bad_alloc();
    void* memory = std::malloc(size != 0 ? size : 1);
    if (memory == nullptr)
        throw std::bad_alloc();
    return memory;
}

void operator delete(void* memory) noexcept {
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}
