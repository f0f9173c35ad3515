#include "library/files.h"

#include <fstream>

namespace ovalis {

std::filesystem::path fileIn(const std::string& directory, const char* name) {
    const std::string path = directory + "/" + name;
    return std::filesystem::path(std::u8string(path.begin(), path.end()));
}

bool isReadableFile(const std::filesystem::path& path) {
    // One of the systems opens directories, too.
    return !std::filesystem::is_directory(path) && std::ifstream(path).is_open();
}

void writeTextFile(const std::filesystem::path& path, const std::string& text) {
    std::ofstream(path) << text;
}

} // namespace ovalis
