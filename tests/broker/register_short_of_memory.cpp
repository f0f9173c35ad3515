// Registers again and again, each time with one allocation failing: the first, the second and so
// on, until one registration makes all that it needs. Prints whether anything was thrown.

#include <iostream>
#include <new>

#include <oa/oaDesignDB.h>

#include "broker/registration.h"
#include "support/failing_allocation.h"

namespace {

using ovalis::test::allocations;
using ovalis::test::failingAllocation;

/// False when no allocation failed.
bool registerWithFailure(long number) {
    failingAllocation = allocations + number;
    ovalis::registerPcellEvaluators();
    const bool failed = allocations >= failingAllocation;
    failingAllocation = 0;
    return failed;
}

} // namespace

int main() {
    OpenAccess_4::oaDesignInit();
    long number = 1;
    try {
        while (registerWithFailure(number)) {
            ++number;
        }
    } catch (const std::bad_alloc&) {
        failingAllocation = 0;
        std::cout << "thrown at the allocation " << number << '\n';
        return 1;
    }
    std::cout << (number > 5 ? "nothing was thrown" : "hardly anything was allocated") << '\n';
    return 0;
}
