#include "tools/broker/talk.h"

#include <chrono>
#include <cstdio>
#include <thread>

namespace broker {

void Talk::add(const char* bytes, std::size_t size) {
    const std::lock_guard lock(mutex);
    for (const char c : std::string_view(bytes, size)) {
        if (c == '\n')
            lines.emplace_back();
        else if (c != '\r' && c != '\0' && lines.back().size() < longestLine)
            lines.back() += c;
        if (lines.size() > mostLines + 1)
            lines.pop_front();
    }
}

void Talk::listen(platform::Channel& channel) {
    char bytes[4096];
    while (const std::size_t size = channel.read(bytes, sizeof bytes)) {
        add(bytes, size);
        std::fwrite(bytes, 1, size, stderr);
        std::fflush(stderr);
    }
    const std::lock_guard lock(mutex);
    ended = true;
}

std::string Talk::lastLines() {
    for (int attempt = 0; attempt < 20; ++attempt) {
        {
            const std::lock_guard lock(mutex);
            if (ended)
                break;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    const std::lock_guard lock(mutex);
    std::string result;
    for (const std::string& line : lines) {
        if (!line.empty())
            result += (result.empty() ? "" : "\n") + line;
    }
    return result;
}

void say(const std::string& line) {
    const std::string whole = line + "\n";
    std::fwrite(whole.data(), 1, whole.size(), stderr);
    std::fflush(stderr);
}

} // namespace broker
