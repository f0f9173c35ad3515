// What libFuzzer calls with every input that it makes.

#include "definition_data.h"

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::tryDefinitionData(std::as_bytes(std::span(data, size)));
    return 0;
}
