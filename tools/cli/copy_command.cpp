#include <stdexcept>

#include "cli/commands.h"
#include "cli/library_access.h"
#include "cli/progress_bar.h"
#include "platform/file.h"
#include "platform/path.h"

namespace cli {
namespace {

/// The bytes of all files below a directory; what cannot be looked at does not count.
std::uint64_t bytesBelow(const std::string& directory) {
    std::uint64_t bytes = 0;
    try {
        for (const platform::DirectoryEntry& entry : platform::listDirectory(directory)) {
            const std::string path = platform::joinPath(directory, entry.name);
            bytes += entry.kind == platform::EntryKind::directory ? bytesBelow(path)
                                                                  : platform::fileSize(path);
        }
    } catch (const platform::SystemFailure&) {
        // Files come and go while somebody works in the library.
    }
    return bytes;
}

bool liesBelow(const std::string& path, const std::string& directory) {
    const std::string inner = platform::absolutePath(path);
    const std::string outer = platform::absolutePath(directory);
    return inner.size() > outer.size() && inner.starts_with(outer) &&
           platform::isPathSeparator(inner[outer.size()]);
}

void requireFreePlace(const std::string& source, const std::string& destination) {
    if (platform::exists(destination))
        throw std::runtime_error(destination + ": exists already");
    if (liesBelow(destination, source))
        throw std::runtime_error(destination + ": lies inside of the library " + source);
    if (!platform::isDirectory(platform::parentPath(destination)))
        throw std::runtime_error(destination + ": the directory above it does not exist");
}

} // namespace

int copyCommand(const CopyOptions& options, Console& console) {
    const std::string source = directoryOf({options.source, ""});
    const std::string destination = directoryOf(options.destination);
    requireUsablePath(destination);
    if (!ovalis::existsLib(source))
        throw std::runtime_error("OA Library not found at " + source);
    requireFreePlace(source, destination);
    try {
        const ProgressBar bar(console, bytesBelow(source),
                              [&destination] { return bytesBelow(destination); });
        const ovalis::LibPtr copy =
            ovalis::copyLib(source, destination, nameOf(options.destination));
    } catch (const std::runtime_error&) {
        platform::removeTree(destination);
        throw;
    }
    console.talk << "copied " << source << " to " << destination << '\n';
    return success;
}

} // namespace cli
