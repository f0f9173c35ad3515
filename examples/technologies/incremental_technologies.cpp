// incremental_technologies DIR: makes three libraries in a directory. The technology of "chip"
// refers to those of "base" and "metal", which two teams have numbered on their own: each is sound,
// and they disagree. A design of "chip" sees both.

#include <fstream>
#include <iostream>
#include <stdexcept>
#include <string>

#include <oa/oaDesignDB.h>

#include <ovalis/core.h>
#include <ovalis/library.h>

namespace {

struct Made {
    ovalis::LibPtr lib;
    oa::oaTech* tech;
};

Made makeTechnology(const std::string& directory, const std::string& name) {
    Made made{ovalis::createLib(directory + "/" + name, name), nullptr};
    made.tech = oa::oaTech::open(made.lib.get(), 'a');
    return made;
}

void makeChip(oa::oaLib& lib) {
    const ovalis::ScopedLibAccess access(lib, oa::oacWriteLibAccess, 0);
    ovalis::createCellView(lib, "top", "layout", oa::oacMaskLayout);
    oa::oaDesign* design = ovalis::openDesign(lib, "top", "layout", true);
    oa::oaBlock* block = oa::oaBlock::create(design);
    oa::oaRect::create(block, 1, oa::oavPurposeNumberDrawing, oa::oaBox(0, 0, 2000, 1000));
    design->save();
    design->close();
}

/// References are kept as names of libraries, which the list of "chip" tells the places of.
void writeList(const std::string& directory) {
    std::ofstream list(directory + "/chip/lib.defs");
    list << "DEFINE chip .\nDEFINE base ../base\nDEFINE metal ../metal\n";
    if (!list.flush())
        throw std::runtime_error(directory + "/chip/lib.defs cannot be written");
}

void makeLibraries(const std::string& directory) {
    const Made base = makeTechnology(directory, "base");
    oa::oaPhysicalLayer::create(base.tech, "poly", 1);
    oa::oaPhysicalLayer::create(base.tech, "m1", 2);
    base.tech->setProcessFamily("rf40");
    base.tech->save();

    const Made metal = makeTechnology(directory, "metal");
    oa::oaPhysicalLayer::create(metal.tech, "via1", 1);
    oa::oaPhysicalLayer::create(metal.tech, "m1", 3);
    metal.tech->setProcessFamily("rf28");
    metal.tech->save();

    const Made chip = makeTechnology(directory, "chip");
    oa::oaTechArray refs;
    refs.append(base.tech);
    refs.append(metal.tech);
    chip.tech->setRefs(refs);
    chip.tech->save();
    makeChip(*chip.lib);
    writeList(directory);
}

} // namespace

int main(int count, char** values) {
    if (count != 2) {
        std::cerr << "usage: incremental_technologies DIR\n";
        return 2;
    }
    try {
        makeLibraries(values[1]);
        return 0;
    } catch (const oa::oaException& error) {
        std::cerr << "incremental_technologies: " << error.getMsg() << '\n';
    } catch (const std::exception& error) {
        std::cerr << "incremental_technologies: " << error.what() << '\n';
    }
    return 1;
}
