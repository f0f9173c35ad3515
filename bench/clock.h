#pragma once

#include <chrono>
#include <cstdlib>
#include <ctime>
#include <string_view>

namespace bench {

/// True when OVALIS_BENCH_CLOCK is "cpu": work that waits for nothing is then measured by the
/// processor time that it takes, which other programs on the machine hardly change.
inline bool measuresProcessorTime() {
    const char* clock = std::getenv("OVALIS_BENCH_CLOCK");
    return clock && clock == std::string_view("cpu");
}

/// Seconds from some point of the past on.
inline double now() {
    static const bool processorTime = measuresProcessorTime();
    if (processorTime)
        return double(std::clock()) / CLOCKS_PER_SEC;
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch())
        .count();
}

} // namespace bench
