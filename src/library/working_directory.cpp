#include "library/working_directory.h"

#include <system_error>

namespace ovalis {

namespace {

namespace fs = std::filesystem;

fs::path workingDirectory() {
    std::error_code error;
    fs::path directory = fs::current_path(error);
    if (error) {
        throw fs::filesystem_error("current_path(): can't get current working directory", error);
    }
    return directory;
}

void setWorkingDirectory(const fs::path& directory) {
    std::error_code error;
    fs::current_path(directory, error);
    if (error) {
        throw fs::filesystem_error("current_path(p): invalid argument", directory, error);
    }
}

} // namespace

WorkingDirectory::WorkingDirectory(const fs::path& directory) : before_(workingDirectory()) {
    setWorkingDirectory(directory);
}

WorkingDirectory::~WorkingDirectory() {
    if (!restored_) {
        // Something else is on its way to the caller.
        std::error_code ignored;
        fs::current_path(before_, ignored);
    }
}

void WorkingDirectory::restore() {
    restored_ = true;
    setWorkingDirectory(before_);
}

} // namespace ovalis
