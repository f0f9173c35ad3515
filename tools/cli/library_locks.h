#pragma once

#include <string>
#include <vector>

namespace cli {

/// What is known of who holds a lock.
enum class LockState {
    held,    // by a process that lives
    dead,    // by nobody any more, provably
    unknown, // by somebody who cannot be judged from here
    cleared,
};

/// A lock on a library or on one of its files. Texts that nobody noted are empty.
struct LibraryLock {
    std::string file; // below the library
    std::string kind; // "edit", "read" or "write"
    std::string user;
    std::string host;
    std::string process;
    std::string since;
    LockState state = LockState::unknown;
};

/// The locks on the library in a directory, sorted by file: those for editing a file, and one of
/// everybody who has access to the library, which ends with the process.
std::vector<LibraryLock> locksOf(const std::string& directory);

/// Removes a lock if it is dead still, and notes that.
/// @throws platform::SystemFailure
void clear(const std::string& directory, LibraryLock& lock);

} // namespace cli
