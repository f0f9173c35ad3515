#include "cli/library_locks.h"

#include <chrono>
#include <map>
#include <optional>
#include <sstream>
#include <string_view>
#include <thread>

#include "platform/exclusive_file.h"
#include "platform/file.h"
#include "platform/lock_use.h"
#include "platform/process_mark.h"

namespace cli {
namespace {

constexpr std::string_view editLockEnd = ".cdslck";
constexpr const char* accessLockFile = ".oalib.lck";

/// Cells lie in the library, views in cells; below that there are no managed files.
constexpr int deepest = 2;

// Where a file system has no hard links, a new lock has its content within this time.
constexpr auto patienceWithEmpty = std::chrono::milliseconds(200);

/// The lines of a lock file: a key, blanks and a value each.
class LockText {
public:
    explicit LockText(const std::string& content) {
        std::istringstream lines(content);
        for (std::string line; std::getline(lines, line);) {
            std::istringstream words(line);
            std::string key;
            std::string value;
            if (words >> key && key.front() != '#' && std::getline(words >> std::ws, value))
                values_[key] = value.substr(0, value.find_last_not_of(" \r") + 1);
        }
    }

    std::string operator[](const char* key) const {
        const auto found = values_.find(key);
        return found == values_.end() ? std::string() : found->second;
    }

private:
    std::map<std::string, std::string> values_;
};

/// A lock that came along with the copy of a library names a file of the original.
bool isForAnotherFile(const LockText& text, const std::string& path) {
    const std::string original = platform::parentPath(text["FilePathUsedToEditLock"]);
    return !text["FilePathUsedToEditLock"].empty() && platform::isDirectory(original) &&
           !platform::sameFile(original, platform::parentPath(path));
}

LockState stateOf(const LockText& text, const std::string& path) {
    switch (platform::fateOf(
        {text["HostName"], text["OSType"], text["ProcessIdentifier"], text["ProcessInstance"]})) {
    case platform::ProcessFate::dead:
        return LockState::dead;
    case platform::ProcessFate::alive:
        return isForAnotherFile(text, path) ? LockState::dead : LockState::held;
    default:
        return LockState::unknown;
    }
}

/// Empty is what a crash of the whole computer leaves.
bool staysEmpty(const std::string& path) {
    if (platform::fileSize(path) != 0)
        return false;
    std::this_thread::sleep_for(patienceWithEmpty);
    return platform::isFile(path) && platform::fileSize(path) == 0;
}

/// Nothing when the lock is given back meanwhile.
std::optional<LibraryLock> readEditLock(const std::string& path, const std::string& file) {
    LibraryLock lock;
    lock.file = file;
    lock.kind = "edit";
    try {
        if (staysEmpty(path)) {
            lock.state = LockState::dead;
            return lock;
        }
        const LockText text(platform::readFile(path));
        lock.user = text["LoginName"];
        lock.host = text["HostName"];
        lock.process = text["ProcessIdentifier"];
        lock.since = text["TimeEditLocked"];
        lock.state = stateOf(text, path);
    } catch (const platform::SystemFailure&) {
        if (!platform::exists(path))
            return std::nullopt;
    }
    return lock;
}

void addEditLocks(const std::string& directory, const std::string& below, int depth,
                  std::vector<LibraryLock>& locks) {
    for (const platform::DirectoryEntry& entry : platform::listDirectory(directory)) {
        const std::string path = platform::joinPath(directory, entry.name);
        if (entry.kind == platform::EntryKind::directory) {
            if (depth < deepest)
                addEditLocks(path, below + entry.name + "/", depth + 1, locks);
        } else if (entry.name.ends_with(editLockEnd)) {
            const std::string file =
                below + entry.name.substr(0, entry.name.size() - editLockEnd.size());
            if (std::optional<LibraryLock> lock = readEditLock(path, file))
                locks.push_back(std::move(*lock));
        }
    }
}

void addAccess(const std::string& directory, std::vector<LibraryLock>& locks) {
    const auto use = platform::lockUseOf(platform::joinPath(directory, accessLockFile));
    if (!use)
        return;
    LibraryLock lock;
    lock.file = ".";
    lock.kind = use->kind == platform::LockKind::exclusive ? "write" : "read";
    lock.state = LockState::held;
    if (use->processes.empty())
        locks.push_back(lock);
    for (const platform::ProcessId process : use->processes) {
        lock.host = platform::hostName();
        lock.process = std::to_string(process);
        locks.push_back(lock);
    }
}

} // namespace

std::vector<LibraryLock> locksOf(const std::string& directory) {
    std::vector<LibraryLock> locks;
    addAccess(directory, locks);
    addEditLocks(directory, "", 0, locks);
    return locks;
}

void clear(const std::string& directory, LibraryLock& lock) {
    if (lock.kind != "edit" || lock.state != LockState::dead)
        return;
    const std::string path = platform::joinPath(directory, lock.file) + std::string(editLockEnd);
    const bool removed = platform::removeFileIf(path, [&](const std::string& content) {
        return content.empty() ? lock.process.empty()
                               : stateOf(LockText(content), path) == LockState::dead;
    });
    if (removed || !platform::exists(path))
        lock.state = LockState::cleared;
}

} // namespace cli
