#include "support/environment_override.h"

#include <stdexcept>
#include <stdlib.h>

namespace ovalis::test {

std::optional<std::string> environmentVariable(const std::string& name) {
    const char* value = getenv(name.c_str());
    return value != nullptr ? std::optional<std::string>(value) : std::nullopt;
}

void setEnvironmentVariable(const std::string& name, const std::optional<std::string>& value) {
    const int failed = value ? setenv(name.c_str(), value->c_str(), 1) : unsetenv(name.c_str());
    if (failed != 0) {
        throw std::runtime_error("cannot set the environment variable " + name);
    }
}

} // namespace ovalis::test
