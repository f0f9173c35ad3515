// Goal: opening a large design and asking every shape for its box, against the same numbers read
// from a flat file and against KLayout reading GDS2.

#include "design_library.h"
#include "flat_layout.h"
#include "klayout.h"
#include "measure.h"

#include <memory>
#include <optional>

namespace {

using bench::BoxSum;
using bench::measure;
using bench::require;

std::optional<bench::DesignLibrary> library;
std::optional<bench::ScratchDirectory> directory;
std::unique_ptr<bench::Klayout> klayout;
std::vector<std::byte> buffer;
BoxSum expected;

void openAndVisit(benchmark::State& state) {
    oa::oaDesign* design = nullptr;
    BoxSum sum;
    measure(
        state, [] {},
        [&] {
            design = library->open("large", 'r');
            sum = bench::visitBoxes(design->getTopBlock());
        },
        [&] {
            require(sum, expected);
            design->close();
        });
}

void visitAgain(benchmark::State& state) {
    oa::oaDesign* design = library->open("large", 'r');
    BoxSum sum = bench::visitBoxes(design->getTopBlock());
    measure(
        state, [] {}, [&] { sum = bench::visitBoxes(design->getTopBlock()); },
        [&] { require(sum, expected); });
    design->close();
}

void flatReadAndBuild(benchmark::State& state) {
    std::optional<bench::FlatObjects> objects;
    BoxSum sum;
    measure(
        state, [&] { objects.emplace(); },
        [&] {
            objects->read(*directory / "flat", buffer);
            sum = objects->visit();
        },
        [&] {
            require(sum, expected);
            objects.reset();
        });
}

void flatReadInPlace(benchmark::State& state) {
    BoxSum sum;
    measure(
        state, [] {}, [&] { sum = bench::visitFlatInPlace(*directory / "flat", buffer); },
        [&] { require(sum, expected); });
}

void klayoutReadGds2(benchmark::State& state) {
    for (auto _ : state)
        state.SetIterationTime(klayout->next("read_gds2"));
}

BENCHMARK(openAndVisit)->Apply(bench::once);
BENCHMARK(visitAgain)->Apply(bench::once);
BENCHMARK(flatReadAndBuild)->Apply(bench::once);
BENCHMARK(flatReadInPlace)->Apply(bench::once);

void registerKlayout() {
    klayout = std::make_unique<bench::Klayout>(*directory);
    klayout->write();
    klayout->read();
    benchmark::RegisterBenchmark("klayoutReadGds2", klayoutReadGds2)->Apply(bench::once);
}

void drawDesign() {
    library.emplace(*directory / "library");
    oa::oaDesign* design = library->create("large");
    bench::drawContent(design);
    design->save();
    design->close();
}

} // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    directory.emplace();
    expected = bench::expectedSum();
    bench::writeFlat(bench::flatLayout(), *directory / "flat");
    bench::visitFlatInPlace(*directory / "flat", buffer);
    if (bench::Klayout::isInstalled())
        registerKlayout();
    drawDesign();
    benchmark::RunSpecifiedBenchmarks();
    library.reset();
    directory.reset();
}
