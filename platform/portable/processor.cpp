#include "platform/processor.h"

#include <cpuid.h>

namespace platform {

namespace {

/// What the processor answers to one question about itself; zeros when it does not know it.
struct Features {
    explicit Features(unsigned leaf) { __get_cpuid_count(leaf, 0, &a, &b, &c, &d); }

    unsigned a = 0;
    unsigned b = 0;
    unsigned c = 0;
    unsigned d = 0;
};

constexpr unsigned bit(unsigned number) {
    return 1U << number;
}

} // namespace

bool hasSha256Instructions() noexcept {
    const bool hasSsse3 = (Features(1).c & bit(9)) != 0;
    const bool hasSha = (Features(7).b & bit(29)) != 0;
    return hasSsse3 && hasSha;
}

} // namespace platform
