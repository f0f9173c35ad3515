#pragma once

#include <filesystem>

namespace ovalis {

/// Makes a directory the working directory of the process, until it is told to restore the one
/// before or is destroyed.
class WorkingDirectory {
public:
    /// @throws std::filesystem::filesystem_error  the working directory cannot be read or set.
    explicit WorkingDirectory(const std::filesystem::path& directory);

    WorkingDirectory(const WorkingDirectory&) = delete;
    WorkingDirectory& operator=(const WorkingDirectory&) = delete;
    ~WorkingDirectory();

    /// Returns the working directory from before.
    const std::filesystem::path& before() const { return before_; }

    /// @throws std::filesystem::filesystem_error  the directory from before cannot be set.
    void restore();

private:
    std::filesystem::path before_;
    bool restored_ = false;
};

} // namespace ovalis
