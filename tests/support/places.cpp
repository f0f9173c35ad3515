#include "support/places.h"

#include "platform/environment.h"

namespace ovalis::test {

std::filesystem::path builtProgram(const std::string& name) {
    return std::filesystem::path(TEST_PROGRAMS) / (name + TEST_PROGRAM_SUFFIX);
}

std::filesystem::path sourceTree() {
    return TEST_SOURCES;
}

std::optional<std::filesystem::path> sharedData() {
    const std::optional<std::string> directory =
        platform::environmentVariable("OVALIS_SHARED_DATA");
    if (!directory || directory->empty())
        return std::nullopt;
    return std::filesystem::path(std::u8string(directory->begin(), directory->end()));
}

} // namespace ovalis::test
