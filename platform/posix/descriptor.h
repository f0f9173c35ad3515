#pragma once

#include "platform/system_error.h"

#include <cerrno>
#include <string>
#include <unistd.h>
#include <utility>

namespace platform::internal {

/// Owns a file descriptor; moved-from holds none. Closing keeps `errno`.
class Descriptor {
public:
    explicit Descriptor(int fd = -1) noexcept : number(fd) {}
    Descriptor(Descriptor&& other) noexcept : number(other.release()) {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        Descriptor(std::move(other)).swap(*this);
        return *this;
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor() {
        const int before = errno;
        if (number != -1)
            ::close(number);
        errno = before;
    }

    int get() const noexcept { return number; }
    int release() noexcept { return std::exchange(number, -1); }
    void swap(Descriptor& other) noexcept { std::swap(number, other.number); }
    explicit operator bool() const noexcept { return number != -1; }

private:
    int number;
};

/// Throws for the system call that failed just now.
[[noreturn]] inline void fail(const char* what, const std::string& path) {
    const SystemError error = lastSystemError();
    throw SystemFailure(what, path, error);
}

/// `open`, tried again when a signal interrupted it.
int openDescriptor(const std::string& path, int flags, unsigned mode = 0666) noexcept;

/// Writes all bytes; false with `errno` set when the system takes no more.
bool writeAll(int fd, const void* data, std::size_t size) noexcept;

/// Makes a name in `directory` that was just created or changed survive a crash. Systems that
/// cannot do it for a directory are content without.
void flushDirectory(const std::string& directory) noexcept;

} // namespace platform::internal
