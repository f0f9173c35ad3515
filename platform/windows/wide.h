#pragma once

#include "platform/system_error.h"

#include <string>
#include <string_view>
#include <windows.h>

namespace platform::internal {

/// UTF-16 for the system; bytes that are no UTF-8 become U+FFFD.
std::wstring wide(std::string_view utf8);

std::string narrow(std::wstring_view utf16);

/// A path as the wide calls take it: absolute and with the prefix that lifts the length limit when
/// it is long.
std::wstring widePath(std::string_view path);

/// Owns a kernel handle. Closing keeps the last error.
class Handle {
public:
    explicit Handle(HANDLE owned = INVALID_HANDLE_VALUE) noexcept : handle(owned) {}
    Handle(Handle&& other) noexcept : handle(other.release()) {}
    Handle& operator=(Handle&& other) noexcept {
        Handle(static_cast<Handle&&>(other)).swap(*this);
        return *this;
    }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;
    ~Handle() {
        const DWORD before = GetLastError();
        if (handle != INVALID_HANDLE_VALUE)
            CloseHandle(handle);
        SetLastError(before);
    }

    HANDLE get() const noexcept { return handle; }
    HANDLE release() noexcept {
        const HANDLE held = handle;
        handle = INVALID_HANDLE_VALUE;
        return held;
    }
    void swap(Handle& other) noexcept {
        const HANDLE mine = handle;
        handle = other.handle;
        other.handle = mine;
    }
    explicit operator bool() const noexcept { return handle != INVALID_HANDLE_VALUE; }

private:
    HANDLE handle;
};

inline constexpr DWORD shareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

/// Throws for the system call that failed just now.
[[noreturn]] inline void fail(const char* what, const std::string& path) {
    const SystemError error = lastSystemError();
    throw SystemFailure(what, path, error);
}

/// Writes all bytes; false with the last error set when the system takes no more.
bool writeAll(HANDLE file, const void* data, std::size_t size) noexcept;

/// True for the errors that a scanner or indexer causes for a moment by holding a file open.
bool isPassingError(DWORD error) noexcept;

} // namespace platform::internal
