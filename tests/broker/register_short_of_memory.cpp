// Registers again and again, each time with one allocation failing: the first, the second and so
// on, until one registration makes all that it needs. Prints how many there were, and whether
// anything was thrown.

#include <cstdlib>
#include <iostream>
#include <new>

#include <oa/oaDesignDB.h>

#include "broker/registration.h"

namespace {

long allocations = 0;
long failing = 0; // none

/// False when no allocation failed.
bool registerWithFailure(long number) {
    failing = allocations + number;
    ovalis::registerPcellEvaluators();
    const bool failed = allocations >= failing;
    failing = 0;
    return failed;
}

} // namespace

void* operator new(std::size_t size) {
    if (++allocations == failing) {
        throw std::bad_alloc();
    }
    void* memory = std::malloc(size != 0 ? size : 1);
    if (memory == nullptr) {
        throw std::bad_alloc();
    }
    return memory;
}

void operator delete(void* memory) noexcept {
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}

int main() {
    OpenAccess_4::oaDesignInit();
    long number = 1;
    try {
        while (registerWithFailure(number)) {
            ++number;
        }
    } catch (const std::bad_alloc&) {
        failing = 0;
        std::cout << "thrown at the allocation " << number << '\n';
        return 1;
    }
    std::cout << (number > 5 ? "nothing was thrown" : "hardly anything was allocated") << '\n';
    return 0;
}
