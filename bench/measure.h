#pragma once

#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdlib>
#include <ctime>
#include <stdexcept>
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

/// Measures `body` alone: `prepare` and `cleanUp` run around it, outside the clock.
template <class Prepare, class Body, class CleanUp>
void measure(benchmark::State& state, Prepare prepare, Body body, CleanUp cleanUp) {
    for (auto _ : state) {
        prepare();
        const double start = now();
        body();
        state.SetIterationTime(now() - start);
        cleanUp();
    }
}

/// The same for short work that is done `times` times, each time with what goes around it.
template <class Prepare, class Body, class CleanUp>
void measureEach(benchmark::State& state, int times, Prepare prepare, Body body, CleanUp cleanUp) {
    for (auto _ : state) {
        double seconds = 0;
        for (int i = 0; i < times; ++i) {
            prepare();
            const double start = now();
            body();
            seconds += now() - start;
            cleanUp();
        }
        state.SetIterationTime(seconds);
    }
}

template <class Body>
void measure(benchmark::State& state, Body body) {
    measure(
        state, [] {}, body, [] {});
}

/// A figure is worth nothing when the work behind it was not done.
template <class Value>
void require(const Value& found, const Value& expected) {
    if (!(found == expected))
        throw std::runtime_error("a benchmark visited something else than was drawn");
}

/// One run of the body is one repetition: the medians are taken over repetitions, which the run
/// mixes among all benchmarks of a program.
inline void once(benchmark::internal::Benchmark* benchmark) {
    benchmark->Iterations(1)->UseManualTime()->Unit(benchmark::kMillisecond);
}

} // namespace bench
