// Writes the seeds of the pcell files: small sound ones. To be run again when the format changes.

#include "visit.h"

#include "support/temporary_directory.h"

#include <iostream>

namespace {

oa::oaScalarName nameOf(const char* text) {
    return oa::oaScalarName(oa::oaNativeNS(), text);
}

oa::oaDesign* newDesign(const char* cell) {
    return oa::oaDesign::open(nameOf("lib"), nameOf(cell), nameOf("layout"),
                              oa::oaViewType::get(oa::oacMaskLayout), 'w');
}

void write(const std::string& path, const std::vector<oa::oaDesign*>& designs) {
    oa::PcellFile file(path.c_str());
    file.open("w");
    for (oa::oaDesign* design : designs)
        file.append(design);
    file.close();
}

void writeSeeds(const std::string& directory) {
    const ovalis::test::TemporaryDirectory scratch;
    oa::oaDesignInit();
    fuzz::makeDefinitions();
    oa::oaLib* lib = oa::oaLib::create(nameOf("lib"), (scratch.str() + "/lib").c_str());
    oa::oaDesign* empty = newDesign("empty");
    oa::oaDesign* full = newDesign("full");
    fuzz::fill(full);
    oa::oaDesign* half = newDesign("half");
    fuzz::fill(half);
    fuzz::destroyHalf(half->getTopBlock());
    write(directory + "/seed_empty", {empty});
    write(directory + "/seed_full", {full});
    write(directory + "/seed_half", {half});
    write(directory + "/seed_several", {full, empty, half});
    lib->close();
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "usage: fuzz_make_pcell_seeds DIRECTORY\n";
        return 2;
    }
    writeSeeds(argv[1]);
}
