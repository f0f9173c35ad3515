#pragma once

#include "cli/library_access.h"

namespace cli {

/// The library that a command writes to, with write access. One that was made for it goes again
/// unless keep() is called.
class TargetLibrary {
public:
    /// Opens the library or makes it.
    /// @throws std::runtime_error  neither is possible, or somebody else has access
    explicit TargetLibrary(const LibraryOptions& options);
    TargetLibrary(const TargetLibrary&) = delete;
    TargetLibrary& operator=(const TargetLibrary&) = delete;
    ~TargetLibrary();

    oa::oaLib& operator*() const { return *lib_; }
    oa::oaLib* operator->() const { return lib_.get(); }
    const std::string& path() const { return path_; }
    bool isNew() const { return isNew_; }

    /// The command succeeded.
    void keep() { kept_ = true; }

private:
    void make(const std::string& name);
    void moveIntoPlace(const std::string& name);
    void removeAgain() const noexcept;

    std::string path_;
    bool isNew_;
    bool hadDirectory_;
    bool kept_ = false;
    ovalis::LibPtr lib_;
};

} // namespace cli
