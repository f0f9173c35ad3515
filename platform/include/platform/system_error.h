#pragma once

#include <stdexcept>
#include <string>

namespace platform {

/// One error of the operating system: its number and its text.
class SystemError {
public:
    explicit SystemError(long errorCode = 0) noexcept : value(errorCode) {}

    /// The system's own number (`errno` or `GetLastError`); 0 means success.
    long code() const noexcept { return value; }

    /// The system's sentence for the number, UTF-8, without a line end.
    std::string text() const;

    friend bool operator==(const SystemError&, const SystemError&) = default;

private:
    long value;
};

/// The error of the calling thread's last system call. Take it before any clean-up: closing a
/// handle overwrites it.
SystemError lastSystemError() noexcept;

/// Makes `error` the last one of the calling thread.
void setLastSystemError(SystemError error) noexcept;

/// The system's own message for the calling thread's last error, exactly as it gives it: on Windows
/// in its code page and with a line end. Empty when the last error is 0.
std::string lastSystemErrorText();

/// A system call on a file or another named thing that failed; reads "what (path): reason".
class SystemFailure : public std::runtime_error {
public:
    SystemFailure(const std::string& what, std::string failedPath, SystemError reason);

    const SystemError& error() const noexcept { return systemError; }
    const std::string& path() const noexcept { return failedPathName; }

private:
    std::string failedPathName;
    SystemError systemError;
};

} // namespace platform
