#include "platform/environment.h"

#include <cstdlib>

namespace platform {

std::optional<std::string> environmentVariable(const std::string& name) {
    const char* const value = std::getenv(name.c_str());
    return value ? std::optional<std::string>(value) : std::nullopt;
}

void setEnvironmentVariable(const std::string& name, const std::string& value) {
    ::setenv(name.c_str(), value.c_str(), 1);
}

void unsetEnvironmentVariable(const std::string& name) {
    ::unsetenv(name.c_str());
}

char pathListSeparator() noexcept {
    return ':';
}

const char* libraryPathVariable() noexcept {
    return "LD_LIBRARY_PATH";
}

} // namespace platform
