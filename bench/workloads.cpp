#include "workloads.h"

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <fstream>
#include <string_view>

namespace bench {
namespace {

using Milliseconds = std::vector<double>;

/// The value of an option "--NAME=VALUE"; empty without it.
std::string option(int count, char** arguments, std::string_view name) {
    for (int i = 1; i < count; ++i)
        if (const std::string_view argument = arguments[i]; argument.starts_with(name))
            return std::string(argument.substr(name.size()));
    return "";
}

double medianOf(Milliseconds figures) {
    std::ranges::sort(figures);
    return figures[figures.size() / 2];
}

void writeFigures(const std::string& file, const std::vector<Workload>& workloads,
                  const std::vector<Milliseconds>& figures) {
    std::ofstream out(file);
    const char* separator = "{\"benchmarks\": [\n";
    for (std::size_t i = 0; i < workloads.size(); ++i)
        for (const double figure : figures[i]) {
            out << separator << R"({"run_type": "iteration", "run_name": ")" << workloads[i].name
                << R"(", "time_unit": "ms", "real_time": )" << figure << '}';
            separator = ",\n";
        }
    out << "]}\n";
}

} // namespace

void runInTurns(const std::vector<Workload>& workloads, int count, char** arguments) {
    const std::string wanted = option(count, arguments, "--benchmark_repetitions=");
    int repetitions = 15;
    std::from_chars(wanted.data(), wanted.data() + wanted.size(), repetitions);
    std::vector<Milliseconds> figures(workloads.size());
    for (int turn = -1; turn < repetitions; ++turn)
        for (std::size_t i = 0; i < workloads.size(); ++i) {
            const double seconds = workloads[i].run();
            if (turn >= 0)
                figures[i].push_back(seconds * 1e3);
        }
    for (std::size_t i = 0; i < workloads.size(); ++i) {
        const double median = medianOf(figures[i]);
        std::printf("%-20s %8.2f ms %8.3f\n", workloads[i].name.c_str(), median,
                    medianOf(figures[0]) / median);
    }
    if (const std::string file = option(count, arguments, "--benchmark_out="); !file.empty())
        writeFigures(file, workloads, figures);
}

} // namespace bench
