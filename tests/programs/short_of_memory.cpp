// Starts the library up with one allocation failing, the n-th, and prints what a second attempt
// finds; without a number it prints how many allocations a start-up makes.

#include <cstdlib>
#include <iostream>
#include <new>
#include <string>

#include <ovalis/core.h>

namespace {

long allocations = 0;
long failing = 0; // none

void attempt() {
    try {
        ovalis::initOa();
        std::cout << "initialised";
    } catch (const std::bad_alloc&) {
        std::cout << "out of memory";
    } catch (const oa::oaException& error) {
        std::cout << "failed with " << error.getMsgId();
    }
    std::cout << (ovalis::vexPinAngle != nullptr ? ", angle" : ", no angle");
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

int main(int count, char** values) {
    const long before = allocations;
    if (count == 1) {
        ovalis::initOa();
        std::cout << allocations - before << '\n';
        return 0;
    }
    failing = before + std::stol(values[1]);
    attempt();
    failing = 0;
    const bool grown = oa::oaDerivedLayerDef::find("growEnvelope") != nullptr;
    std::cout << (grown ? "; growEnvelope; " : "; ");
    attempt();
    std::cout << '\n';
    return 0;
}
