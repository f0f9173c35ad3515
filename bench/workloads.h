#pragma once

#include <functional>
#include <string>
#include <vector>

namespace bench {

/// Work that is measured without a benchmark library, which not every system has.
struct Workload {
    std::string name;
    std::function<double()> run; ///< does the work once and answers its seconds
};

/// Runs the workloads in turns, so that a slow moment hits all of them, prints the median of each
/// with the ratio of the first one's to it, and writes what scripts/bench collects.
///
/// Knows `--benchmark_repetitions=N` and `--benchmark_out=FILE`; the first run of each workload
/// does not count.
void runInTurns(const std::vector<Workload>& workloads, int count, char** arguments);

} // namespace bench
