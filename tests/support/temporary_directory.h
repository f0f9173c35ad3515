#pragma once

#include <filesystem>
#include <string>

namespace ovalis::test {

/// A fresh, empty directory that is removed at scope end with everything in it.
class TemporaryDirectory {
public:
    TemporaryDirectory();
    ~TemporaryDirectory();
    TemporaryDirectory(const TemporaryDirectory&) = delete;
    TemporaryDirectory& operator=(const TemporaryDirectory&) = delete;

    std::filesystem::path path() const { return path_; }

    /// The path as UTF-8 with forward slashes.
    std::string str() const;

private:
    std::filesystem::path path_;
};

/// `path` as UTF-8 with forward slashes.
std::string utf8(const std::filesystem::path& path);

} // namespace ovalis::test
