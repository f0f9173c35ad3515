#include "platform/environment.h"

#include "windows/wide.h"

#include <cstdlib>

namespace platform {

using internal::wide;

std::optional<std::string> environmentVariable(const std::string& name) {
    const std::wstring key = wide(name);
    std::wstring value(256, L'\0');
    for (;;) {
        SetLastError(ERROR_SUCCESS);
        const DWORD length =
            GetEnvironmentVariableW(key.c_str(), value.data(), static_cast<DWORD>(value.size()));
        if (length == 0 && GetLastError() == ERROR_ENVVAR_NOT_FOUND)
            return std::nullopt;
        const bool fits = length < value.size();
        value.resize(length);
        if (fits)
            return internal::narrow(value);
    }
}

// The C runtime keeps a copy of the environment that getenv reads, so both are set. It takes an
// empty value for a removal; the system does not and comes last.
void setEnvironmentVariable(const std::string& name, const std::string& value) {
    _wputenv_s(wide(name).c_str(), wide(value).c_str());
    SetEnvironmentVariableW(wide(name).c_str(), wide(value).c_str());
}

void unsetEnvironmentVariable(const std::string& name) {
    _wputenv_s(wide(name).c_str(), L"");
    SetEnvironmentVariableW(wide(name).c_str(), nullptr);
}

char pathListSeparator() noexcept {
    return ';';
}

const char* libraryPathVariable() noexcept {
    return "PATH";
}

} // namespace platform
