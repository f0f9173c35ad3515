// What libFuzzer calls with every input that it makes.

#include "touchstone.h"

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::tryTouchstone(std::as_bytes(std::span(data, size)));
    return 0;
}
