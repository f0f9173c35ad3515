#pragma once

#include <string>
#include <string_view>

namespace platform {

/// The separator this system writes between directories: '/' or '\\'.
char pathSeparator() noexcept;

/// True for a character that separates directories in a path handed to this room: both slashes, on
/// both systems.
constexpr bool isPathSeparator(char c) noexcept {
    return c == '/' || c == '\\';
}

/// The path as the system wants it: on posix every backslash becomes a slash. Every function of
/// this room applies it, so callers may pass paths that were joined for the other system.
std::string nativePath(std::string_view path);

/// `directory` and `name` with one separator between them.
std::string joinPath(std::string_view directory, std::string_view name);

/// The last component of a path; empty when the path ends in a separator.
std::string fileName(std::string_view path);

/// The path without its last component: "." when there is only one.
std::string parentPath(std::string_view path);

/// The absolute form of a path that need not exist; "." and ".." are resolved by their spelling.
std::string absolutePath(std::string_view path);

/// The absolute form of an existing path with all links resolved: equal for equal files.
/// @throws SystemFailure  there is no such file.
std::string canonicalPath(std::string_view path);

/// The working directory of the process.
std::string currentDirectory();

} // namespace platform
