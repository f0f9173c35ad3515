#pragma once

#include "clock.h"

#include <benchmark/benchmark.h>

#include <stdexcept>

namespace bench {

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
