#include <ovalis/library.h>

#include "core/boundary.h"
#include "core/names.h"
#include "library/files.h"

namespace ovalis {

LibPtr createLib(const std::string& libPath, const std::string& libName) {
    return atBoundary([&] {
        initOa();
        const oa::oaDMAttrArray noAttributes;
        LibPtr lib(oa::oaLib::create(scalarName(libName), toOa(libPath), oa::oacSharedLibMode,
                                     "oaDMFileSys", &noAttributes));
        oa::oaTech::create(lib.get())->save();
        return lib;
    });
}

LibPtr createVEXCompatibleLib(const std::string& libPath, const std::string& libName) {
    LibPtr lib = createLib(libPath, libName);
    writeTextFile(fileIn(libPath, libraryDefinitions),
                  "INCLUDE $MOLTRAX_DIR/oalibs/vex.defs\nDEFINE " + libName + " .\n");
    return lib;
}

LibPtr openLib(const std::string& libPath, bool write, const std::string& libName) {
    return atBoundary([&] {
        initOa();
        if (!oa::oaLib::exists(toOa(libPath))) {
            throw std::runtime_error("OA Library not found at " + libPath);
        }
        LibPtr lib(oa::oaLib::open(scalarName(libName), toOa(libPath), "", oa::oacSharedLibMode));
        if (!lib->getAccess(write ? oa::oacWriteLibAccess : oa::oacReadLibAccess, 0)) {
            throw std::runtime_error("Could not obtain access to library at " + libPath);
        }
        return lib;
    });
}

bool existsLib(const std::string& libPath) {
    return atBoundary([&] {
        initOa();
        return oa::oaLib::exists(toOa(libPath)) != 0;
    });
}

bool existsLibWithOaLib(const std::string& libPath) {
    return existsLib(libPath) && isReadableFile(fileIn(libPath, oaLibMarker));
}

} // namespace ovalis
