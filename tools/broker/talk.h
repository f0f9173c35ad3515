#pragma once

#include "platform/channel.h"

#include <cstddef>
#include <deque>
#include <memory>
#include <mutex>
#include <string>

namespace broker {

/// What a program says: passed on to standard error as it comes, the last lines remembered.
class Talk {
public:
    /// Listens until the program has nothing open to talk with any more.
    void listen(platform::Channel& channel);

    /// Waits a moment for the end of the talk, then answers the last lines.
    std::string lastLines();

    void add(const char* bytes, std::size_t size);

private:
    static constexpr std::size_t mostLines = 8;
    static constexpr std::size_t longestLine = 240;

    std::mutex mutex;
    std::deque<std::string> lines = {""};
    bool ended = false;
};

/// One line of this program to standard error.
void say(const std::string& line);

} // namespace broker
