// Evaluations with a result of 1,000 shapes: by the broker, which writes a file that is read and
// deleted, against the same plug-in in this process. Every shape is asked for its box.

#include "broker_home.h"
#include "design_library.h"
#include "last_error.h"
#include "measure.h"
#include "scratch_directory.h"

#include "platform/environment.h"

#include <ovalis/core.h>

#include <fstream>
#include <optional>

namespace {

using bench::BoxSum;
using bench::require;

constexpr oa::oaInt4 kResult = 1'000;
constexpr int kTimes = 200;

std::optional<bench::DesignLibrary> library;
BoxSum expected;

void makePcell(const std::string& evaluator) {
    oa::oaDesign* master = library->create(evaluator);
    oa::oaParamArray defaults;
    defaults.append(oa::oaParam("number", oa::oaInt4(-1)));
    defaults.append(oa::oaParam("shapes", oa::oaInt4(0)));
    master->defineSuperMaster(oa::oaPcellLink::getPcellDef(evaluator.c_str()), defaults);
    master->save();
}

oa::oaDesign* evaluate(const char* cell, int number) {
    oa::oaParamArray params;
    params.append(oa::oaParam("number", oa::oaInt4(number)));
    params.append(oa::oaParam("shapes", kResult));
    const oa::oaNativeNS ns;
    return oa::oaDesign::open(oa::oaScalarName(ns, "bench"), oa::oaScalarName(ns, cell),
                              oa::oaScalarName(ns, "layout"), params);
}

void evaluateAndVisit(benchmark::State& state, const char* cell) {
    int number = 0;
    oa::oaDesign* submaster = nullptr;
    BoxSum sum;
    const bench::LastError error;
    bench::measureEach(
        state, kTimes, [] {},
        [&] {
            submaster = evaluate(cell, number++);
            if (!error.message.empty())
                throw std::runtime_error(error.message);
            sum = bench::visitBoxes(submaster->getTopBlock());
        },
        [&] {
            require(sum, expected);
            submaster->close();
        });
}

BENCHMARK_CAPTURE(evaluateAndVisit, broker, "shapes")->Apply(bench::once);
BENCHMARK_CAPTURE(evaluateAndVisit, here, "shapes_here")->Apply(bench::once);

} // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    const bench::ScratchDirectory directory;
    bench::configureBroker(directory / ".", "pcellBroker6", "shapes:X");
    platform::setEnvironmentVariable("OA_PLUGIN_PATH", BENCH_PLUG_INS);
    ovalis::initOa();
    expected = bench::expectedSum(std::size_t(kResult));
    library.emplace(directory / "library");
    makePcell("shapes");
    makePcell("shapes_here");
    // The broker reads the masters while this process has them open.
    oa::oaLib::find(oa::oaScalarName(oa::oaNativeNS(), "bench"))->releaseAccess();
    const std::string definitions = directory / "lib.defs";
    std::ofstream(definitions) << "DEFINE bench " << (directory / "library") << '\n';
    oa::oaLibDefList::openLibs(definitions.c_str());
    benchmark::RunSpecifiedBenchmarks();
    library.reset();
}
