#include <ovalis/library.h>

#include "core/boundary.h"
#include "core/statics.h"
#include "library/files.h"

namespace ovalis {

namespace {

/// Keeps a technology open for reading.
class OpenTech {
public:
    explicit OpenTech(oa::oaLib& lib) : tech_(oa::oaTech::open(&lib, 'r')) {}
    ~OpenTech() { tech_->close(); }
    OpenTech(const OpenTech&) = delete;
    OpenTech& operator=(const OpenTech&) = delete;

    oa::oaTech* get() const { return tech_; }

private:
    oa::oaTech* tech_;
};

bool hasTessaLayers(oa::oaTech* tech) {
    return oa::oaLayer::find(tech, pinWord) != nullptr &&
           oa::oaLayer::find(tech, pinLayer) != nullptr &&
           oa::oaLayer::find(tech, artworkWord) != nullptr &&
           oa::oaLayer::find(tech, artworkLayer) != nullptr;
}

void reportTech(oa::oaLib& lib, std::string& diagnostics) {
    if (!oa::oaTech::exists(&lib, true)) {
        diagnostics += "tech.db not found\n";
        return;
    }
    const OpenTech tech(lib);
    oa::oaViewType* layout = oa::oaViewType::get(oa::oacMaskLayout);
    if (!tech.get()->isDBUPerUUSet(layout)) {
        diagnostics += "TechDB units per user-unit not set\n";
    }
    if (!tech.get()->isUserUnitsSet(layout)) {
        diagnostics += "TechDB user-units not set\n";
    }
    if (!hasTessaLayers(tech.get())) {
        diagnostics += "TechDB layers for tessa not found\n";
    }
}

} // namespace

bool isVEXCompatibleLibPath(const std::string& libPath, std::string* message) {
    return atBoundary([&] {
        initOa();
        if (libPath.find_first_of(" \t") == std::string::npos) {
            return true;
        }
        if (message != nullptr) {
            *message = "Specified OpenAccess library path is not compatible with VEX: "
                       "do not use whitespaces.";
        }
        return false;
    });
}

bool existsVEXCompatibleLib(const std::string& libPath, const std::string& libName,
                            std::string* diagnostics) {
    return atBoundary([&] {
        initOa();
        if (!oa::oaLib::exists(toOa(libPath))) {
            return false;
        }
        if (diagnostics == nullptr) {
            return true;
        }
        if (!isReadableFile(fileIn(libPath, oaLibMarker))) {
            *diagnostics += ".oalib not found\n";
        }
        const LibPtr lib = openLib(libPath, false, libName);
        reportTech(*lib, *diagnostics);
        if (!isReadableFile(fileIn(libPath, libraryDefinitions))) {
            *diagnostics += "lib.defs not found\n";
        }
        return true;
    });
}

} // namespace ovalis
