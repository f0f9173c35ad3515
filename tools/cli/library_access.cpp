#include "cli/library_access.h"

#include <stdexcept>

#include "platform/path.h"

namespace cli {
namespace {

std::string withoutEndSeparators(std::string path) {
    while (path.size() > 1 && platform::isPathSeparator(path.back()))
        path.pop_back();
    return path;
}

} // namespace

std::string directoryOf(const LibraryOptions& library) {
    return withoutEndSeparators(library.path);
}

std::string nameOf(const LibraryOptions& library) {
    if (!library.name.empty())
        return library.name;
    return platform::fileName(withoutEndSeparators(platform::absolutePath(library.path)));
}

ovalis::LibPtr openForReading(const LibraryOptions& library) {
    return ovalis::openLib(directoryOf(library), false, nameOf(library));
}

void requireUsablePath(const std::string& path) {
    std::string message;
    if (!ovalis::isVEXCompatibleLibPath(path, &message))
        throw std::runtime_error(path + ": " + message);
}

} // namespace cli
