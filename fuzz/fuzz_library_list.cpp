// What libFuzzer calls with every input that it makes.

#include "library_list.h"

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::tryLibraryList(std::as_bytes(std::span(data, size)));
    return 0;
}
