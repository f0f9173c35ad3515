// Writes the seeds of a corpus: small sound files. To be run again when the file format changes.

#include "trial.h"
#include "visit.h"

#include "platform/file.h"
#include "support/temporary_directory.h"

#include <iostream>

namespace {

void write(const std::string& path, const std::string& bytes) {
    platform::File file(path, platform::OpenMode::write);
    file.write(bytes.data(), bytes.size());
    file.close();
}

void writeSeeds(const std::string& directory) {
    const ovalis::test::TemporaryDirectory scratch;
    fuzz::Trial trial(scratch.str() + "/lib");
    const auto design = [&](const std::string& name, auto change) {
        write(directory + "/seed_design_" + name, trial.designFile(change));
    };
    design("empty", [](oa::oaDesign*) {});
    design("full", [](oa::oaDesign* filled) { fuzz::fill(filled); });
    design("half", [](oa::oaDesign* filled) {
        fuzz::fill(filled);
        fuzz::destroyHalf(filled->getTopBlock());
    });
    design("master", [](oa::oaDesign* made) { fuzz::makeMaster(made); });
    write(directory + "/seed_technology_empty", trial.techFile([](oa::oaTech*) {}));
    write(directory + "/seed_technology_full",
          trial.techFile([](oa::oaTech* tech) { fuzz::fill(tech); }));
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "usage: fuzz_make_seeds DIRECTORY\n";
        return 2;
    }
    writeSeeds(argv[1]);
}
