#include <cmath>
#include <limits>
#include <stdexcept>

#include "cli/commands.h"
#include "cli/library_access.h"
#include "evaluation/parameters.h"
#include "evaluation/pcell.h"
#include "platform/file.h"

namespace cli {
namespace {

/// A library that holds the master: the one that the instance goes into, or another one.
class MasterLibrary {
public:
    MasterLibrary(oa::oaLib& target, const LibraryOptions& options, bool isTarget)
        : library_(&target) {
        if (isTarget)
            return;
        own_ = openForReading(options);
        library_ = own_.get();
    }

    oa::oaLib& operator*() const { return *library_; }

private:
    ovalis::LibPtr own_;
    oa::oaLib* library_;
};

/// The parameters that the instance gives to its master, which must be a pcell then.
oa::oaParamArray paramsFor(oa::oaLib& library, const PlaceOptions& options) {
    const std::string& cell = options.master[1];
    const std::string& view = options.master[2];
    const OpenDesign master(evaluation::openExisting(library, cell, view));
    oa::oaParamArray defaults;
    if (master->isSuperMaster())
        master->getParams(defaults);
    else if (!options.params.empty())
        throw std::runtime_error(cell + "/" + view +
                                 " is no pcell, so that it takes no parameters");
    return evaluation::givenParams(defaults, options.params);
}

oa::oaCoord coordinateOf(const char* name, double value, oa::oaUInt4 unitsPerUserUnit) {
    const double units = std::round(value * unitsPerUserUnit);
    if (!(std::abs(units) <= std::numeric_limits<oa::oaCoord>::max()))
        throw std::runtime_error(std::string(name) + " is out of the range of coordinates");
    return static_cast<oa::oaCoord>(units);
}

} // namespace

int placeCommand(const PlaceOptions& options, Console& console) {
    return calling([&] {
        ovalis::initOa();
        const CellViewOptions& place = options.design;
        const LibraryOptions masterOptions{options.master[0], ""};
        const std::string masterName = nameOf(masterOptions);
        const ovalis::LibPtr lib =
            ovalis::openLib(directoryOf(place.library), true, nameOf(place.library));
        const bool sameLibrary = platform::sameFile(masterOptions.path, place.library.path);
        if (sameLibrary && options.master[1] == place.cell && options.master[2] == place.view)
            throw std::runtime_error(place.cell + "/" + place.view + " cannot be placed in itself");
        const MasterLibrary masterLibrary(*lib, masterOptions, sameLibrary);
        const oa::oaParamArray params = paramsFor(*masterLibrary, options);

        const OpenDesign design(
            ovalis::openDesignWithView(*lib, place.cell, place.view, oa::oacMaskLayout, true));
        oa::oaBlock* block = design->getTopBlock();
        if (block == nullptr)
            block = oa::oaBlock::create(&*design);
        const oa::oaUInt4 perUnit = block->getDBUPerUU();
        const oa::oaTransform where(coordinateOf("X", options.x, perUnit),
                                    coordinateOf("Y", options.y, perUnit));
        const oa::oaNativeNS names;
        oa::oaScalarInst::create(block, oa::oaScalarName(names, masterName.c_str()),
                                 oa::oaScalarName(names, options.master[1].c_str()),
                                 oa::oaScalarName(names, options.master[2].c_str()),
                                 oa::oaScalarName(names, options.name.c_str()), where, &params);
        design->save();
        console.talk << "placed " << options.name << " of " << masterName << "/"
                     << options.master[1] << "/" << options.master[2] << " in " << place.cell << "/"
                     << place.view << ": " << evaluation::textOf(params) << '\n';
        return success;
    });
}

} // namespace cli
