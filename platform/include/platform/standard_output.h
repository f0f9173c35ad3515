#pragma once

#include "platform/system_error.h"

#include <optional>
#include <streambuf>

namespace platform {

/// Takes the numbers of standard input, output and error that the process was started without, so
/// that no file that it opens gets one of them, and with it what is said there. Using them fails as
/// before. Nothing to do where files have no such numbers.
void reserveStandardStreams() noexcept;

/// Gives what it gets on to the buffer of a standard stream, and keeps the system's reason when
/// that takes no more.
class WatchedOutput : public std::streambuf {
public:
    /// `target` outlives this buffer.
    explicit WatchedOutput(std::streambuf& target) : target_(target) {}

    /// The first failure; nothing while everything was taken.
    const std::optional<SystemError>& failure() const noexcept { return failure_; }

    /// The failure is that whoever read the other end of a pipe has gone.
    bool readerIsGone() const noexcept;

protected:
    int_type overflow(int_type c) override;
    std::streamsize xsputn(const char* text, std::streamsize size) override;
    int sync() override;

private:
    void keepFailure();

    std::streambuf& target_;
    std::optional<SystemError> failure_;
};

} // namespace platform
