#pragma once

#include <filesystem>
#include <string>

namespace ovalis {

constexpr char oaLibMarker[] = ".oalib";
constexpr char libraryDefinitions[] = "lib.defs";

/// Returns `text`, in UTF-8, as a path.
std::filesystem::path pathOf(const std::string& text);

/// Returns `path` in UTF-8.
std::string textOf(const std::filesystem::path& path);

/// Returns the path of the file `name` in the directory `directory`.
std::filesystem::path fileIn(const std::string& directory, const char* name);

/// Returns true when the file can be opened for reading.
bool isReadableFile(const std::filesystem::path& path);

/// Writes a text file with the line ends of the system, in place of what it held; a file that
/// cannot be opened is left alone.
void writeTextFile(const std::filesystem::path& path, const std::string& text);

} // namespace ovalis
