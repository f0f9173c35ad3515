// Goal: evaluating a pcell from files of evaluated submasters and asking every shape for its box,
// against the same numbers read from a flat file and against KLayout reading GDS2.

#include "design_library.h"
#include "flat_layout.h"
#include "klayout.h"
#include "measure.h"

#include <ovalis/pcell.h>

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

/// Fills submasters from the files of a directory that their identities name.
class CachePcell : public oaCommon::PlugInBase<oa::IPcell> {
public:
    explicit CachePcell(std::string directory) : directory_(std::move(directory)) {}

    oa::oaPcellDef* getPcellDef() override {
        return new oa::oaPcellDef(this); // deleted by onUnbind()
    }
    void getName(oa::oaString& name) override { name = "cache"; }
    void onBind(oa::oaDesign*, oa::oaPcellDef*) override {}
    void onUnbind(oa::oaDesign*, oa::oaPcellDef* def) override { delete def; }
    void onEval(oa::oaDesign* design, oa::oaPcellDef*) override {
        oa::PcellFile file(fileOf(design).c_str());
        if (source) {
            file.open("w");
            file.append(source);
            oa::oaBlock::create(design);
        } else {
            file.open("r");
            file.read(design);
        }
        file.close();
    }
    void onRead(oa::oaDesign*, oa::oaMapFileWindow&, oa::oaUInt4&, oa::oaPcellDef*) override {}
    void onWrite(oa::oaDesign*, oa::oaMapFileWindow&, oa::oaUInt4&, oa::oaPcellDef*) override {}
    oa::oaUInt4 calcDiskSize(oa::oaPcellDef*) const override { return 0; }

    oa::oaDesign* source = nullptr; // what files are made from, while they are

private:
    std::string fileOf(oa::oaDesign* design) const {
        return directory_ + '/' + ovalis::calculateSubmasterIdHash(design);
    }

    std::string directory_;
};

/// The pcell with a file for each submaster that is evaluated.
class Pcell {
public:
    explicit Pcell(const bench::ScratchDirectory& directory)
        : library_(directory / "library"), evaluator_(new CachePcell(directory / ".")) {
        oa::oaPcellLink::create(evaluator_);
        oa::oaParamArray defaults;
        defaults.append(oa::oaParam("number", oa::oaInt4(0)));
        defaults.append(oa::oaParam("shapes", oa::oaInt4(0)));
        oa::oaDesign* superMaster = library_.create("pcell");
        superMaster->defineSuperMaster(evaluator_->getPcellDef(), defaults);
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
    void writeFiles(std::size_t shapes) {
        evaluator_->source = library_.create("drawn");
        bench::drawContent(evaluator_->source, shapes);
        for (int i = 0; i < repeated(std::int64_t(shapes)); ++i)
            evaluate(i, std::int64_t(shapes))->close();
        evaluator_->source->purge();
        evaluator_->source = nullptr;
    }

    bench::DesignLibrary library_;
    CachePcell* evaluator_;
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
    pcell.emplace(*directory);
    benchmark::RunSpecifiedBenchmarks();
    pcell.reset();
    directory.reset();
}
