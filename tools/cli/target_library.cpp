#include "cli/target_library.h"

#include <algorithm>
#include <stdexcept>

#include "platform/file.h"
#include "platform/path.h"
#include "platform/process.h"

namespace cli {
namespace {

/// A directory beside the library that no other process uses.
std::string besideIt(const std::string& path, const char* purpose) {
    return path + ".ovalis-" + purpose + "-" + std::to_string(platform::currentProcessId());
}

/// The new library defines itself in its list, where names stand as they are.
void requireDefinable(const std::string& path, const std::string& name) {
    const bool isComment = name.starts_with('#') || name.starts_with("--");
    const bool isOneWord = std::ranges::none_of(
        name, [](unsigned char c) { return c <= ' ' || c == 0x7F || c == '"'; });
    if (isComment || !isOneWord)
        throw std::runtime_error(path + ": a library definition file cannot hold the name '" +
                                 name + "'");
}

void removeQuietly(const std::string& directory) noexcept {
    try {
        platform::removeTree(directory);
    } catch (const platform::SystemFailure&) {
        // What is left has a name that says whose it was.
    }
}

} // namespace

TargetLibrary::TargetLibrary(const LibraryOptions& options)
    : path_(directoryOf(options)),
      isNew_(!ovalis::existsLib(path_)),
      hadDirectory_(platform::exists(path_)) {
    if (isNew_)
        make(nameOf(options));
    lib_ = ovalis::openLib(path_, true, nameOf(options));
    if (!platform::exists(platform::joinPath(path_, ".oalib")))
        throw std::runtime_error(path_ + ": .oalib not found");
}

TargetLibrary::~TargetLibrary() {
    lib_.reset();
    if (isNew_ && !kept_ && !hadDirectory_)
        removeAgain();
}

void TargetLibrary::make(const std::string& name) {
    if (!platform::isDirectory(platform::parentPath(path_)))
        throw std::runtime_error(path_ + ": the directory above it does not exist");
    requireDefinable(path_, name);
    if (hadDirectory_)
        ovalis::createVEXCompatibleLib(path_, name).reset();
    else
        moveIntoPlace(name);
}

/// Others see the library when it is whole. When somebody else was faster, theirs is taken.
void TargetLibrary::moveIntoPlace(const std::string& name) {
    const std::string made = besideIt(path_, "new");
    removeQuietly(made);
    try {
        ovalis::createVEXCompatibleLib(made, name).reset();
        platform::renameFile(made, path_);
    } catch (const std::runtime_error&) {
        removeQuietly(made);
        if (!ovalis::existsLib(path_))
            throw;
        isNew_ = false;
    }
}

/// Moved away first: who opens it at this moment has either all of it or nothing.
void TargetLibrary::removeAgain() const noexcept {
    const std::string unwanted = besideIt(path_, "gone");
    try {
        platform::renameFile(path_, unwanted);
    } catch (const platform::SystemFailure&) {
        return; // somebody else uses it already
    }
    removeQuietly(unwanted);
}

} // namespace cli
