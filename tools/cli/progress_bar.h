#pragma once

#include <condition_variable>
#include <cstdint>
#include <functional>
#include <mutex>
#include <thread>

#include "cli/console.h"

namespace cli {

/// Shows how far some work has come, on an interactive console only.
///
/// A thread of its own asks `done` a few times a second, so that work that reports nothing can be
/// watched from outside; `done` must not touch the database. The line is gone when the bar is.
class ProgressBar {
public:
    ProgressBar(Console& console, std::uint64_t total, std::function<std::uint64_t()> done);
    ProgressBar(const ProgressBar&) = delete;
    ProgressBar& operator=(const ProgressBar&) = delete;
    ~ProgressBar();

private:
    void watch();

    Console& console_;
    std::uint64_t total_;
    std::function<std::uint64_t()> done_;
    std::mutex mutex_;
    std::condition_variable stopping_;
    bool stop_ = false;
    std::thread thread_;
};

/// The line of a bar: "[#####.....]  50 %".
std::string progressLine(std::uint64_t done, std::uint64_t total);

} // namespace cli
