#include "support/environment_override.h"

#include "support/windows/text.h"

#include <stdexcept>
#include <windows.h>

namespace ovalis::test {

std::optional<std::string> environmentVariable(const std::string& name) {
    const wchar_t* value = _wgetenv(wide(name).c_str());
    if (value == nullptr) {
        return std::nullopt;
    }
    const std::u8string text = std::filesystem::path(value).u8string();
    return std::string(text.begin(), text.end());
}

void setEnvironmentVariable(const std::string& name, const std::optional<std::string>& value) {
    // The runtime's call also changes the process environment, which children and
    // GetEnvironmentVariable see; an empty value removes the variable.
    if (_wputenv_s(wide(name).c_str(), wide(value.value_or("")).c_str()) != 0) {
        throw std::runtime_error("cannot set the environment variable " + name);
    }
}

} // namespace ovalis::test
