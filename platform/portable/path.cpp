#include "platform/path.h"

namespace platform {

namespace {

std::size_t lastSeparator(std::string_view path) {
    return path.find_last_of("/\\");
}

} // namespace

std::string joinPath(std::string_view directory, std::string_view name) {
    std::string joined = nativePath(directory);
    if (!joined.empty() && !isPathSeparator(joined.back()))
        joined += pathSeparator();
    return joined += nativePath(name);
}

std::string fileName(std::string_view path) {
    const std::size_t separator = lastSeparator(path);
    return std::string(separator == std::string_view::npos ? path : path.substr(separator + 1));
}

std::string parentPath(std::string_view path) {
    const std::size_t separator = lastSeparator(path);
    if (separator == std::string_view::npos)
        return ".";
    const bool isRoot = separator == 0 || path[separator - 1] == ':';
    return nativePath(path.substr(0, isRoot ? separator + 1 : separator));
}

} // namespace platform
