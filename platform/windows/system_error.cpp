#include "platform/system_error.h"

#include "windows/wide.h"

#include <memory>

namespace platform {

SystemError lastSystemError() noexcept {
    return SystemError(static_cast<long>(GetLastError()));
}

void setLastSystemError(SystemError error) noexcept {
    SetLastError(static_cast<DWORD>(error.code()));
}

std::string lastSystemErrorText() {
    const DWORD error = GetLastError();
    if (error == ERROR_SUCCESS)
        return {};
    char* buffer = nullptr;
    const DWORD length = FormatMessageA(
        FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
        nullptr, error, MAKELANGID(LANG_NEUTRAL, SUBLANG_DEFAULT), reinterpret_cast<char*>(&buffer),
        0, nullptr);
    const std::unique_ptr<char, decltype(&LocalFree)> owner(buffer, &LocalFree);
    return std::string(buffer, length);
}

std::string SystemError::text() const {
    wchar_t buffer[512];
    DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
                                  nullptr, static_cast<DWORD>(value), 0, buffer,
                                  static_cast<DWORD>(std::size(buffer)), nullptr);
    while (length > 0 && (buffer[length - 1] <= L' ' || buffer[length - 1] == L'.'))
        --length;
    if (length == 0)
        return "system error " + std::to_string(value);
    return internal::narrow(std::wstring_view(buffer, length));
}

} // namespace platform
