#pragma once

#include <benchmark/benchmark.h>

#include <chrono>
#include <stdexcept>

namespace bench {

/// Measures `body` alone: `prepare` and `cleanUp` run around it, outside the clock.
template <class Prepare, class Body, class CleanUp>
void measure(benchmark::State& state, Prepare prepare, Body body, CleanUp cleanUp) {
    for (auto _ : state) {
        prepare();
        const auto start = std::chrono::steady_clock::now();
        body();
        const auto stop = std::chrono::steady_clock::now();
        state.SetIterationTime(std::chrono::duration<double>(stop - start).count());
        cleanUp();
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
