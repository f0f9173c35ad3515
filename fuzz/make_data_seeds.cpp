// Writes the seeds of the data of libraries: small sound ones. To be run again when the format
// changes.

#include "visit.h"

#include "platform/file.h"
#include "support/temporary_directory.h"

#include <iostream>

namespace {

oa::oaScalarName nameOf(const char* text) {
    return oa::oaScalarName(oa::oaNativeNS(), text);
}

/// Saves the data that `change` makes from empty ones, and copies the file.
template <class Change>
void writeSeed(const std::string& library, const std::string& seed, Change change) {
    oa::oaDMData* data = oa::oaLibDMData::open(nameOf("lib"), 'w');
    change(data);
    data->save();
    data->purge();
    platform::copyFile(library + "/data.dm", seed);
}

void writeSeeds(const std::string& directory) {
    const ovalis::test::TemporaryDirectory scratch;
    const std::string library = scratch.str() + "/lib";
    oa::oaDesignInit();
    fuzz::makeDefinitions();
    oa::oaLib* lib = oa::oaLib::create(nameOf("lib"), library.c_str());
    writeSeed(library, directory + "/seed_empty", [](oa::oaDMData*) {});
    writeSeed(library, directory + "/seed_attached",
              [](oa::oaDMData* data) { oa::oaStringProp::create(data, "techLibName", "basic"); });
    writeSeed(library, directory + "/seed_full", [](oa::oaDMData* data) {
        fuzz::addProps(data);
        oa::oaIntAppDef<oa::oaDMData>::get("number")->set(data, 12);
        oa::oaGroup* group = oa::oaGroup::create(data, "group");
        oa::oaGroupMember::create(group, data);
        fuzz::addProps(group);
    });
    lib->close();
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "usage: fuzz_make_data_seeds DIRECTORY\n";
        return 2;
    }
    writeSeeds(argv[1]);
}
