#include "cli/progress_bar.h"

#include <algorithm>
#include <chrono>
#include <string>

namespace cli {
namespace {

constexpr std::size_t cells = 40;
constexpr std::chrono::milliseconds interval{100};

} // namespace

std::string progressLine(std::uint64_t done, std::uint64_t total) {
    const double part =
        total == 0 ? 1.0 : std::min(1.0, static_cast<double>(done) / static_cast<double>(total));
    const auto filled = static_cast<std::size_t>(part * static_cast<double>(cells));
    const std::string percent = std::to_string(static_cast<int>(part * 100));
    return "[" + std::string(filled, '#') + std::string(cells - filled, '.') + "] " +
           std::string(3 - percent.size(), ' ') + percent + " %";
}

ProgressBar::ProgressBar(Console& console, std::uint64_t total, std::function<std::uint64_t()> done)
    : console_(console), total_(total), done_(std::move(done)) {
    if (console_.interactive)
        thread_ = std::thread([this] { watch(); });
}

ProgressBar::~ProgressBar() {
    if (!thread_.joinable())
        return;
    {
        const std::lock_guard lock(mutex_);
        stop_ = true;
    }
    stopping_.notify_one();
    thread_.join();
    console_.talk << '\r' << std::string(progressLine(0, 1).size(), ' ') << '\r' << std::flush;
}

void ProgressBar::watch() {
    std::unique_lock lock(mutex_);
    do
        console_.talk << '\r' << progressLine(done_(), total_) << std::flush;
    while (!stopping_.wait_for(lock, interval, [this] { return stop_; }));
}

} // namespace cli
