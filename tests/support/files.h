#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace ovalis::test {

/// Every byte of a file. @throws std::runtime_error when it cannot be read.
std::string readText(const std::filesystem::path& path);

/// Makes or overwrites a file with exactly these bytes. @throws std::runtime_error on failure.
void writeText(const std::filesystem::path& path, std::string_view text);

} // namespace ovalis::test
