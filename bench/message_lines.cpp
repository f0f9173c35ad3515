// Goal: lines added to one paragraph of a message collector, all of them new or all of them known,
// against std::unordered_set<std::string>.

#include "measure.h"

#include "platform/environment.h"

#include <ovalis/diagnostics.h>

#include <optional>
#include <string>
#include <unordered_set>
#include <vector>

namespace {

using bench::measure;
using bench::require;

/// Different messages, as long as the database's are.
std::vector<std::string> makeLines(std::size_t count) {
    std::vector<std::string> lines;
    lines.reserve(count);
    for (std::size_t i = 0; i < count; ++i)
        lines.push_back("Error[2]: instance I" + std::to_string(i * 2654435761u) +
                        " names a layer that is missing");
    return lines;
}

void add(ovalis::msgCollector& collector, const std::vector<std::string>& lines) {
    const std::string key = "library/cell/layout";
    for (const std::string& line : lines)
        collector.addMessage(ovalis::msgCollector::Pcell, key, line);
}

std::size_t linesIn(const ovalis::msgCollector& collector) {
    return collector.getLines("Pcell", "library/cell/layout").size();
}

void addNew(benchmark::State& state) {
    const std::vector<std::string> lines = makeLines(std::size_t(state.range(0)));
    std::optional<ovalis::msgCollector> collector;
    measure(
        state, [&] { collector.emplace(); }, [&] { add(*collector, lines); },
        [&] { require(linesIn(*collector), lines.size()); });
}

void addKnown(benchmark::State& state) {
    const std::vector<std::string> lines = makeLines(std::size_t(state.range(0)));
    ovalis::msgCollector collector;
    add(collector, lines);
    measure(
        state, [] {}, [&] { add(collector, lines); },
        [&] { require(linesIn(collector), lines.size()); });
}

/// A few messages over and over, as a design with many equal faults has them.
void addRepeated(benchmark::State& state) {
    const std::vector<std::string> lines = makeLines(1000);
    ovalis::msgCollector collector;
    measure(
        state, [&] { collector.clear(); },
        [&] {
            for (std::int64_t i = 0; i < state.range(0); i += 1000)
                add(collector, lines);
        },
        [&] { require(linesIn(collector), lines.size()); });
}

void insertNew(benchmark::State& state) {
    const std::vector<std::string> lines = makeLines(std::size_t(state.range(0)));
    std::optional<std::unordered_set<std::string>> set;
    measure(
        state, [&] { set.emplace(); },
        [&] {
            for (const std::string& line : lines)
                set->insert(line);
        },
        [&] { require(set->size(), lines.size()); });
}

} // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    platform::setEnvironmentVariable("TESSA_OAINFO", "0"); // messages are added, none observed
    for (const std::int64_t count : {100'000, 1'000'000}) {
        bench::once(benchmark::RegisterBenchmark("addNew", addNew)->Arg(count));
        bench::once(benchmark::RegisterBenchmark("insertNew", insertNew)->Arg(count));
    }
    bench::once(benchmark::RegisterBenchmark("addKnown", addKnown)->Arg(1'000'000));
    bench::once(benchmark::RegisterBenchmark("addRepeated", addRepeated)->Arg(1'000'000));
    benchmark::RunSpecifiedBenchmarks();
}
