#include "cli/cell_replacement.h"

#include <stdexcept>

#include "cli/library_access.h"
#include "platform/file.h"
#include "platform/path.h"

namespace cli {
namespace {

constexpr const char* workshopName = "ovalis_export_workshop";
constexpr const char* marker = ".oalib";

/// The directory of a finished cell, which only the database knows how to spell.
std::string directoryOfCell(oa::oaLib& lib, const std::string& cellName) {
    return calling([&] {
        const oa::oaScalarName name(oa::oaNativeNS(), cellName.c_str());
        oa::oaCell* cell = oa::oaCell::find(&lib, name);
        oa::oaDMFile* file =
            cell == nullptr ? nullptr : oa::oaDMFile::find(cell, oa::oaString("itemdef.skr"));
        if (file == nullptr)
            throw std::runtime_error("the cell " + cellName + " was not built");
        oa::oaString path;
        file->getPath(path);
        return platform::parentPath(ovalis::fromOa(path));
    });
}

} // namespace

CellReplacement::CellReplacement(const std::string& libraryPath)
    : libraryPath_(libraryPath), place_(platform::joinPath(libraryPath, ".ovalis-export")) {
    recover();
    platform::createDirectory(place_);
    platform::createDirectory(platform::joinPath(place_, "old"));
    const std::string workshop = platform::joinPath(place_, "new");
    platform::createDirectory(workshop);
    platform::copyFile(platform::joinPath(libraryPath, marker),
                       platform::joinPath(workshop, marker));
    workshop_ = ovalis::openLib(workshop, true, workshopName);
}

CellReplacement::~CellReplacement() {
    workshop_.reset();
    try {
        platform::removeTree(place_);
    } catch (const platform::SystemFailure&) {
        // What is left is out of sight of the database and is cleared by the next export.
    }
}

void CellReplacement::recover() {
    const std::string old = platform::joinPath(place_, "old");
    if (platform::isDirectory(old))
        for (const platform::DirectoryEntry& cell : platform::listDirectory(old)) {
            const std::string home = platform::joinPath(libraryPath_, cell.name);
            if (!platform::exists(home))
                platform::renameFile(platform::joinPath(old, cell.name), home);
        }
    platform::removeTree(place_);
}

void CellReplacement::put(const std::string& cellName, bool replaces, const Watcher& watcher) {
    const std::string built = directoryOfCell(*workshop_, cellName);
    const std::string directory = platform::fileName(built);
    const std::string home = platform::joinPath(libraryPath_, directory);
    const std::string aside = platform::joinPath(platform::joinPath(place_, "old"), directory);
    workshop_.reset();
    if (!replaces && platform::exists(home))
        throw std::runtime_error(home + ": is no cell, but in the way of one");
    if (replaces)
        platform::renameFile(home, aside);
    try {
        watcher(Step::oldCellAside);
        platform::renameFile(built, home);
    } catch (...) {
        if (replaces)
            platform::renameFile(aside, home);
        throw;
    }
}

} // namespace cli
