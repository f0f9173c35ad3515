#include <optional>
#include <stdexcept>
#include <string_view>

#include "cli/commands.h"
#include "cli/library_access.h"
#include "cli/library_tree.h"
#include "cli/progress_bar.h"
#include "platform/file.h"
#include "platform/file_lock.h"
#include "platform/path.h"

namespace cli {
namespace {

constexpr const char* marker = ".oalib";

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
    const std::string file = platform::joinPath(library, marker);
    std::string text = platform::readFile(file);
    const std::size_t place = text.find(marked);
    if (place == std::string::npos)
        return;
    text.replace(place, marked.size(), "libReadOnly=\"No\"");
    ovalis::writeoaFile(file, text, false);
}

/// The directory beside the destination where the copy is made out of sight, and from where it
/// takes its place as a whole. Goes again with all that is in it, and with what a process that was
/// killed has left there.
class CopyPlace {
public:
    explicit CopyPlace(const std::string& destination)
        : path_(beside(destination, ".ovalis-copy-")),
          lock_(platform::FileLock::tryAcquire(beside(destination, ".ovalis-copy."),
                                               platform::LockKind::exclusive)) {
        if (!lock_)
            throw std::runtime_error(destination + ": another process is copying to it");
        platform::removeTree(path_);
    }
    CopyPlace(const CopyPlace&) = delete;
    CopyPlace& operator=(const CopyPlace&) = delete;
    ~CopyPlace() {
        try {
            platform::removeTree(path_);
        } catch (const platform::SystemFailure&) {
            // What is left does not look like the copy, and the next one clears it.
        }
    }

    const std::string& path() const { return path_; }

private:
    static std::string beside(const std::string& destination, const char* prefix) {
        const std::string absolute = platform::absolutePath(destination);
        return platform::joinPath(platform::parentPath(destination),
                                  prefix + platform::fileName(absolute));
    }

    std::string path_;
    std::optional<platform::FileLock> lock_;
};

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
    if (!platform::isFile(platform::joinPath(source, marker)))
        throw std::runtime_error(source + ": " + marker + " not found");
    const LibraryTree tree(source);
    const std::uint64_t bytes = tree.bytes();
    const CopyPlace place(destination);
    {
        const ProgressBar bar(console, bytes, [&place] { return bytesBelow(place.path()); });
        copyTree(tree, place.path(), nameOf(options.destination));
    }
    if (platform::exists(destination))
        throw std::runtime_error(destination + ": exists already");
    platform::renameFile(place.path(), destination);
    console.talk << "copied " << source << " to " << destination << '\n';
    return success;
}

} // namespace cli
