#pragma once

#include "dm/src/library_marker.h"

#include <optional>
#include <string>

namespace OpenAccess_4::impl {

/// Translates between the names of cells and views, in native spelling, and those of their
/// directories.
class DirectoryNames {
public:
    explicit DirectoryNames(FileSystem system) : system_(system) {}

    std::string toDirectory(const std::string& name) const;

    /// Nothing for a directory whose name no cell or view can have. Where the case of letters means
    /// nothing, several directories may lead to one name; toDirectory() names the one that counts.
    std::optional<std::string> fromDirectory(const std::string& directory) const;

    bool caseMatters() const { return system_ == FileSystem::Unix; }

private:
    FileSystem system_;
};

} // namespace OpenAccess_4::impl
