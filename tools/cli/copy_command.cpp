#include <stdexcept>
#include <string_view>

#include "cli/commands.h"
#include "cli/library_access.h"
#include "cli/library_tree.h"
#include "cli/progress_bar.h"
#include "platform/file.h"
#include "platform/path.h"

namespace cli {
namespace {

/// The bytes of all files below a directory, links not followed; what cannot be looked at does not
/// count.
std::uint64_t bytesBelow(const std::string& directory) {
    std::uint64_t bytes = 0;
    try {
        for (const platform::DirectoryEntry& entry : platform::listDirectory(directory)) {
            const std::string path = platform::joinPath(directory, entry.name);
            if (platform::isSymbolicLink(path))
                continue;
            bytes += entry.kind == platform::EntryKind::directory ? bytesBelow(path)
                                                                  : platform::fileSize(path);
        }
    } catch (const platform::SystemFailure&) {
        // What is being copied may not be there yet, or not any more.
    }
    return bytes;
}

/// `path` need not exist, its parent must.
bool liesBelow(const std::string& path, const std::string& directory) {
    const std::string absolute = platform::absolutePath(path);
    const std::string inner = platform::joinPath(
        platform::canonicalPath(platform::parentPath(absolute)), platform::fileName(absolute));
    const std::string outer = platform::canonicalPath(directory);
    return inner.size() > outer.size() && inner.starts_with(outer) &&
           platform::isPathSeparator(inner[outer.size()]);
}

void requireFreePlace(const std::string& source, const std::string& destination) {
    if (platform::exists(destination))
        throw std::runtime_error(destination + ": exists already");
    if (!platform::isDirectory(platform::parentPath(destination)))
        throw std::runtime_error(destination + ": the directory above it does not exist");
    if (liesBelow(destination, source))
        throw std::runtime_error(destination + ": lies inside of the library " + source);
}

/// As the library's own copy does it: only the first mark goes.
void removeReadOnlyMark(const std::string& library) {
    constexpr std::string_view marked = "libReadOnly=\"Yes\"";
    const std::string file = platform::joinPath(library, ".oalib");
    std::string text = platform::readFile(file);
    const std::size_t place = text.find(marked);
    if (place == std::string::npos)
        return;
    text.replace(place, marked.size(), "libReadOnly=\"No\"");
    ovalis::writeoaFile(file, text, false);
}

void copyTree(const LibraryTree& tree, const std::string& destination, const std::string& name) {
    tree.copyTo(destination);
    calling([&] { removeReadOnlyMark(destination); });
    // What cannot be opened for writing is no library that anybody could use.
    const ovalis::LibPtr copy = ovalis::openLib(destination, true, name);
}

} // namespace

int copyCommand(const CopyOptions& options, Console& console) {
    const std::string source = directoryOf({options.source, ""});
    const std::string destination = directoryOf(options.destination);
    requireUsablePath(destination);
    if (!ovalis::existsLib(source))
        throw std::runtime_error("OA Library not found at " + source);
    requireFreePlace(source, destination);
    const LibraryTree tree(source);
    const std::uint64_t bytes = tree.bytes();
    try {
        const ProgressBar bar(console, bytes, [&destination] { return bytesBelow(destination); });
        copyTree(tree, destination, nameOf(options.destination));
    } catch (const std::runtime_error&) {
        platform::removeTree(destination);
        throw;
    }
    console.talk << "copied " << source << " to " << destination << '\n';
    return success;
}

} // namespace cli
