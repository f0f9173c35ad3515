// Starts the library up with one allocation failing, the n-th, and prints what a second attempt
// finds; without a number it prints how many allocations a start-up makes.

#include <iostream>
#include <new>
#include <string>

#include <ovalis/core.h>

#include "support/failing_allocation.h"

namespace {

using ovalis::test::allocations;
using ovalis::test::failingAllocation;

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

int main(int count, char** values) {
    const long before = allocations;
    if (count == 1) {
        ovalis::initOa();
        std::cout << allocations - before << '\n';
        return 0;
    }
    failingAllocation = before + std::stol(values[1]);
    attempt();
    failingAllocation = 0;
    const bool grown = oa::oaDerivedLayerDef::find("growEnvelope") != nullptr;
    std::cout << (grown ? "; growEnvelope; " : "; ");
    attempt();
    std::cout << '\n';
    return 0;
}
