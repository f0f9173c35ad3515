#include "support/files.h"

#include "support/temporary_directory.h"

#include <fstream>
#include <iterator>
#include <stdexcept>

namespace ovalis::test {

std::string readText(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    std::string text{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    if (!file)
        throw std::runtime_error("cannot read " + utf8(path));
    return text;
}

void writeText(const std::filesystem::path& path, std::string_view text) {
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    file.write(text.data(), static_cast<std::streamsize>(text.size()));
    file.close();
    if (!file)
        throw std::runtime_error("cannot write " + utf8(path));
}

} // namespace ovalis::test
