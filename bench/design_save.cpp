// Goal: saving a large design, into a new file and in the place of an old one, against the same
// numbers written as they lie and against KLayout.

#include "design_library.h"
#include "flat_layout.h"
#include "klayout.h"
#include "measure.h"

#include "platform/file.h"

#include <memory>
#include <optional>

namespace {

using bench::measure;
using bench::require;

/// The design with the whole content, drawn once for all benchmarks of the program.
class DrawnDesign {
public:
    explicit DrawnDesign(const std::string& path)
        : library_(path), design_(library_.create("large")) {
        bench::drawContent(design_);
        design_->save();
    }
    ~DrawnDesign() { design_->purge(); }
    DrawnDesign(const DrawnDesign&) = delete;
    DrawnDesign& operator=(const DrawnDesign&) = delete;

    std::string file() const { return library_.fileOf("large"); }
    void change() {
        const bool pad = design_->getCellType() == oa::oacPadCellType;
        design_->setCellType(pad ? oa::oacNoCellType : oa::oacPadCellType);
    }
    void save() { design_->save(); }

private:
    bench::DesignLibrary library_;
    oa::oaDesign* design_;
};

std::optional<DrawnDesign> drawn;
std::optional<bench::ScratchDirectory> directory;
std::optional<bench::FlatLayout> flat;
std::unique_ptr<bench::Klayout> klayout;

void removeIfThere(const std::string& file) {
    if (platform::exists(file))
        platform::removeFile(file);
}

void saveNewFile(benchmark::State& state) {
    measure(
        state,
        [] {
            drawn->change();
            removeIfThere(drawn->file());
        },
        [] { drawn->save(); }, [] { require(platform::exists(drawn->file()), true); });
}

void saveOverOldFile(benchmark::State& state) {
    measure(
        state, [] { drawn->change(); }, [] { drawn->save(); },
        [] { require(platform::exists(drawn->file()), true); });
}

void flatNewFile(benchmark::State& state) {
    const std::string file = *directory / "new.flat";
    measure(
        state, [&] { removeIfThere(file); }, [&] { bench::writeFlat(*flat, file); }, [] {});
}

void flatTemporaryAndRename(benchmark::State& state) {
    const std::string file = *directory / "replaced.flat";
    bench::writeFlat(*flat, file);
    measure(state, [&] { bench::replaceFlat(*flat, file); });
}

void klayoutFigure(benchmark::State& state, const char* name) {
    for (auto _ : state)
        state.SetIterationTime(klayout->next(name));
}

BENCHMARK(saveNewFile)->Apply(bench::once);
BENCHMARK(saveOverOldFile)->Apply(bench::once);
BENCHMARK(flatNewFile)->Apply(bench::once);
BENCHMARK(flatTemporaryAndRename)->Apply(bench::once);

void registerKlayout() {
    klayout = std::make_unique<bench::Klayout>(*directory);
    klayout->write();
    for (const char* name : {"write_gds2", "write_oasis", "write_oasis_blocks"})
        benchmark::RegisterBenchmark((std::string("klayout_") + name).c_str(), klayoutFigure, name)
            ->Apply(bench::once);
}

} // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    directory.emplace();
    flat.emplace(bench::flatLayout());
    if (bench::Klayout::isInstalled())
        registerKlayout();
    drawn.emplace(*directory / "library");
    benchmark::RunSpecifiedBenchmarks();
    drawn.reset();
    directory.reset();
}
