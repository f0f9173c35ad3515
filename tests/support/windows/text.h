#pragma once

#include <filesystem>
#include <string>

namespace ovalis::test {

inline std::wstring wide(const std::string& text) {
    return std::filesystem::path(std::u8string(text.begin(), text.end())).wstring();
}

} // namespace ovalis::test
