// Goal: bytes of a large design in its file and in memory, against GDS2, OASIS and KLayout.

#include "design_library.h"
#include "flat_layout.h"
#include "klayout.h"
#include "measure.h"

#include "platform/child_process.h"
#include "platform/file.h"

#include <fstream>
#include <iostream>

namespace {

constexpr double kBytesInPage = 4096;

/// Memory of this process that is not swapped out.
double residentBytes() {
    std::ifstream statistics("/proc/self/statm");
    double size = 0;
    double resident = 0;
    statistics >> size >> resident;
    return resident * kBytesInPage;
}

/// Opens the design that another process made, visits every shape and prints the memory that this
/// added.
int printAddedMemory(const std::string& libraryPath) {
    const bench::BoxSum expected = bench::expectedSum();
    bench::DesignLibrary library(libraryPath);
    const double before = residentBytes();
    const oa::oaDesign* design = library.open("large", 'r');
    bench::require(bench::visitBoxes(design->getTopBlock()), expected);
    std::cout << std::fixed << residentBytes() - before << '\n';
    return 0;
}

/// The same in a process of its own, so that no memory of earlier work is used again.
double addedMemory(const std::string& libraryPath, const std::string& answer) {
    if (platform::ChildProcess("/proc/self/exe", {"--print-added-memory", libraryPath},
                               {answer, {}})
            .wait() != 0)
        throw std::runtime_error("the process that measures the memory failed");
    return std::stod(platform::readFile(answer));
}

/// Makes `next`, which gives bytes, a benchmark that reports bytes for one shape.
template <class Next>
void report(const std::string& name, Next next) {
    const auto run = [next](benchmark::State& state) {
        for (auto _ : state)
            state.counters["bytesPerShape"] = next() / double(bench::kShapes);
    };
    benchmark::RegisterBenchmark(name.c_str(), run)->Iterations(1);
}

/// Returns the size of the file.
double saveDesign(const std::string& libraryPath) {
    bench::DesignLibrary library(libraryPath);
    oa::oaDesign* design = library.create("large");
    bench::drawContent(design);
    design->save();
    design->close();
    return double(platform::fileSize(library.fileOf("large")));
}

} // namespace

int main(int argc, char** argv) {
    if (argc == 3 && argv[1] == std::string("--print-added-memory"))
        return printAddedMemory(argv[2]);
    benchmark::Initialize(&argc, argv);
    const bench::ScratchDirectory directory;
    bench::Klayout klayout(directory);
    if (bench::Klayout::isInstalled()) {
        klayout.write();
        klayout.memory();
        for (const char* name : {"size_gds2", "size_oasis", "size_oasis_blocks", "memory_gds2"})
            report(std::string("klayout_") + name, [&klayout, name] { return klayout.next(name); });
    }
    const std::string library = directory / "library";
    const double size = saveDesign(library);
    report("file", [size] { return size; });
    report("memory", [=, &directory] { return addedMemory(library, directory / "memory"); });
    benchmark::RunSpecifiedBenchmarks();
}
