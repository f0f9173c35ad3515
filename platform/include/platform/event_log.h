#pragma once

#include <string>

namespace platform {

/// The place where the system keeps what goes wrong: the event log, or the system log.
class EventLog {
public:
    /// Opens the log for lines of `source`; never closed. A failure is kept to itself.
    explicit EventLog(const std::string& source) noexcept;

    /// Notes an error, UTF-8. A failure is kept to itself.
    void reportError(const std::string& line) noexcept;

private:
    [[maybe_unused]] void* handle = nullptr;
};

} // namespace platform
