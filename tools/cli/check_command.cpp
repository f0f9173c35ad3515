#include <set>
#include <stdexcept>

#include "cli/commands.h"
#include "cli/library_access.h"
#include "platform/file.h"
#include "platform/path.h"

namespace cli {
namespace {

/// A line for each cell view whose design is gone: its file is missing or empty. Sorted, because
/// the order of the database differs between systems.
std::set<std::string> lostDesigns(const LibraryOptions& options) {
    std::set<std::string> lines;
    const ovalis::LibPtr lib = openForReading(options);
    for (const ovalis::TStringPair& names : ovalis::getCellViewNames(*lib)) {
        const std::string& cell = names.get<0>();
        const std::string& view = names.get<1>();
        oa::oaString path;
        ovalis::getCellView(*lib, cell, view)->getPrimary()->getPath(path);
        const std::string file = ovalis::fromOa(path);
        if (!platform::isFile(file) || platform::fileSize(file) == 0)
            lines.insert(cell + "/" + view + ": " + platform::fileName(file) + " has no content");
    }
    return lines;
}

} // namespace

int checkCommand(const LibraryOptions& options, Console& console) {
    const std::string path = directoryOf(options);
    std::string unusable;
    std::string lacks;
    if (!ovalis::existsVEXCompatibleLib(path, nameOf(options), &lacks))
        throw std::runtime_error("OA Library not found at " + path);
    if (!ovalis::isVEXCompatibleLibPath(path, &unusable))
        lacks += unusable + "\n";
    for (const std::string& line : calling([&] { return lostDesigns(options); }))
        lacks += line + "\n";
    console.out << lacks;
    return lacks.empty() ? success : somethingMissing;
}

} // namespace cli
