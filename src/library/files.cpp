#include "library/files.h"

#include <fstream>
#include <system_error>

namespace ovalis {

std::filesystem::path pathOf(const std::string& text) {
    return std::filesystem::path(std::u8string(text.begin(), text.end()));
}

std::string textOf(const std::filesystem::path& path) {
    const std::u8string text = path.u8string();
    return std::string(text.begin(), text.end());
}

std::filesystem::path fileIn(const std::string& directory, const char* name) {
    return pathOf(directory + "/" + name);
}

bool isReadableFile(const std::filesystem::path& path) {
    // One of the systems opens directories, too.
    std::error_code unknown;
    return !std::filesystem::is_directory(path, unknown) && std::ifstream(path).is_open();
}

void writeTextFile(const std::filesystem::path& path, const std::string& text) {
    std::ofstream(path) << text;
}

} // namespace ovalis
