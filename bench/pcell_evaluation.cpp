// Goal: evaluating a pcell from files of evaluated submasters and asking every shape for its box,
// against the same numbers read from a flat file and against KLayout reading GDS2.

#include "design_library.h"
#include "flat_layout.h"
#include "klayout.h"
#include "measure.h"

#include <ovalis/core.h>
#include <ovalis/pcell.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <memory>
#include <optional>

namespace {

using bench::BoxSum;
using bench::require;

constexpr std::size_t kFew = 1'000;
constexpr std::size_t kMany = 100'000;

/// How many submasters one repetition evaluates, one after the other.
int repeated(std::int64_t shapes) {
    return shapes == std::int64_t(kFew) ? 200 : 4;
}

/// The pcell with a file for each submaster that is evaluated, in the cache of the library: beside
/// the top list.
class Pcell {
public:
    explicit Pcell(const bench::ScratchDirectory& directory) : directory_(directory / ".") {
        makeList();
        library_.emplace(directory / "library");
        oa::oaParamArray defaults;
        defaults.append(oa::oaParam("number", oa::oaInt4(0)));
        defaults.append(oa::oaParam("shapes", oa::oaInt4(0)));
        oa::oaDesign* superMaster = library_->create("pcell");
        superMaster->defineSuperMaster(oa::oaPcellLink::getPcellDef("PSNPcell"), defaults);
        for (const std::size_t shapes : {kFew, kMany})
            writeFiles(shapes);
    }

    oa::oaDesign* evaluate(int number, std::int64_t shapes) {
        oa::oaParamArray params;
        params.append(oa::oaParam("number", oa::oaInt4(number)));
        params.append(oa::oaParam("shapes", oa::oaInt4(shapes)));
        const oa::oaNativeNS ns;
        return oa::oaDesign::open(oa::oaScalarName(ns, "bench"), oa::oaScalarName(ns, "pcell"),
                                  oa::oaScalarName(ns, "layout"), params);
    }

private:
    /// A list without libraries, which need none to be opened by their paths.
    void makeList() const {
        const std::string list = directory_ + "/lib.defs";
        std::ofstream(list) << "# none\n";
        oa::oaLibDefList::openLibs(list.c_str());
        std::filesystem::create_directory(directory_ + "/.vexPcells");
    }

    void writeFiles(std::size_t shapes) {
        oa::oaDesign* source = library_->create("drawn");
        bench::drawContent(source, shapes);
        for (int i = 0; i < repeated(std::int64_t(shapes)); ++i)
            writeFile(source, i, std::int64_t(shapes));
        source->purge();
    }

    /// Puts the file where the evaluator looks for it: one that finds none leaves a submaster
    /// without content, which its super master still has.
    void writeFile(oa::oaDesign* source, int number, std::int64_t shapes) {
        require(evaluate(number, shapes) == nullptr, true);
        oa::oaIter<oa::oaDesign> submasters(superMaster()->getSubMasters());
        oa::oaDesign* submaster = submasters.getNext();
        const std::string path =
            directory_ + "/.vexPcells/" + ovalis::calculateSubmasterIdHash(submaster);
        submaster->purge();
        oa::PcellFile file(path.c_str());
        file.open("w");
        file.append(source);
        file.close();
    }

    static oa::oaDesign* superMaster() {
        const oa::oaNativeNS ns;
        return oa::oaDesign::find(oa::oaScalarName(ns, "bench"), oa::oaScalarName(ns, "pcell"),
                                  oa::oaScalarName(ns, "layout"));
    }

    std::string directory_;
    std::optional<bench::DesignLibrary> library_;
};

std::optional<bench::ScratchDirectory> directory;
std::optional<Pcell> pcell;
std::map<std::int64_t, std::unique_ptr<bench::Klayout>> klayouts;
std::map<std::int64_t, BoxSum> expected;
std::vector<std::byte> buffer;

std::string flatFile(std::int64_t shapes) {
    return *directory / ("flat_" + std::to_string(shapes));
}

void evaluateAndVisit(benchmark::State& state) {
    const std::int64_t shapes = state.range(0);
    int number = 0;
    oa::oaDesign* submaster = nullptr;
    BoxSum sum;
    bench::measureEach(
        state, repeated(shapes), [] {},
        [&] {
            submaster = pcell->evaluate(number++ % repeated(shapes), shapes);
            sum = bench::visitBoxes(submaster->getTopBlock());
        },
        [&] {
            require(sum, expected[shapes]);
            submaster->close();
        });
}

void flatReadAndBuild(benchmark::State& state) {
    const std::int64_t shapes = state.range(0);
    const std::string file = flatFile(shapes);
    std::optional<bench::FlatObjects> objects;
    BoxSum sum;
    bench::measureEach(
        state, repeated(shapes), [&] { objects.emplace(); },
        [&] {
            objects->read(file, buffer);
            sum = objects->visit();
        },
        [&] {
            require(sum, expected[shapes]);
            objects.reset();
        });
}

void klayoutReadGds2(benchmark::State& state) {
    for (auto _ : state)
        state.SetIterationTime(klayouts[state.range(0)]->next("read_gds2"));
}

BENCHMARK(evaluateAndVisit)->Arg(kFew)->Arg(kMany)->Apply(bench::once);
BENCHMARK(flatReadAndBuild)->Arg(kFew)->Arg(kMany)->Apply(bench::once);

void measureKlayout(std::size_t shapes) {
    auto& klayout = klayouts[std::int64_t(shapes)];
    klayout = std::make_unique<bench::Klayout>(*directory, shapes);
    klayout->write();
    klayout->read(repeated(std::int64_t(shapes)));
    benchmark::RegisterBenchmark("klayoutReadGds2", klayoutReadGds2)
        ->Arg(std::int64_t(shapes))
        ->Apply(bench::once);
}

} // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    directory.emplace();
    for (const std::size_t shapes : {kFew, kMany}) {
        expected[std::int64_t(shapes)] = bench::expectedSum(shapes);
        bench::writeFlat(bench::flatLayout(shapes), flatFile(std::int64_t(shapes)));
        if (bench::Klayout::isInstalled())
            measureKlayout(shapes);
    }
    ovalis::initOa();
    pcell.emplace(*directory);
    benchmark::RunSpecifiedBenchmarks();
    pcell.reset();
    directory.reset();
}
