#include "dm/src/edit_lock.h"

#include "oa/oaDMException.h"
#include "platform/atomic_file.h"
#include "platform/exclusive_file.h"
#include "platform/process_mark.h"

#include <chrono>
#include <cstdlib>
#include <ctime>
#include <map>
#include <sstream>
#include <thread>

namespace OpenAccess_4::impl {

namespace {

// A lock file appears with its content in one step where the file system has hard links. Where it
// has none, its content follows within this time.
constexpr auto patienceWithEmpty = std::chrono::milliseconds(200);

using Fields = std::map<std::string, std::string>;

Fields parse(const std::string& content) {
    Fields fields;
    std::istringstream lines(content);
    for (std::string line; std::getline(lines, line);) {
        std::istringstream words(line);
        std::string key;
        std::string value;
        if (words >> key && key.front() != '#' && std::getline(words >> std::ws, value))
            fields[key] = value.substr(0, value.find_last_not_of(" \r") + 1);
    }
    return fields;
}

std::string readable(std::int64_t secondsSince1970) {
    const auto time = static_cast<std::time_t>(secondsSince1970);
    char text[64] = {};
    if (const std::tm* utc = std::gmtime(&time))
        std::strftime(text, sizeof text, "%a %b %d %H:%M:%S %Y", utc);
    return text;
}

void addLine(std::string& text, const std::string& key, const std::string& value) {
    constexpr std::size_t valueColumn = 34;
    text += key + std::string(valueColumn - key.size(), ' ') + value + "\n";
}

std::string lockText(const std::string& file) {
    const platform::ProcessId process = platform::currentProcessId();
    const std::int64_t start = platform::processStartTime(process).value_or(0);
    const std::time_t now = std::time(nullptr);
    std::string text = "#\n# Edit lock of the file named below. Remove this file only when the\n"
                       "# process that it names has ended.\n#\n";
    addLine(text, "LockStakeVersion", "1.1");
    addLine(text, "LoginName", platform::loginName());
    addLine(text, "HostName", platform::hostName());
    addLine(text, "ProcessIdentifier", std::to_string(process));
    addLine(text, "ProcessCreationTime_UTC", std::to_string(start));
    addLine(text, "ProcessCreationTime_Readable", readable(start));
    addLine(text, "ProcessInstance", platform::processInstance(process));
    addLine(text, "AppIdentifier", "OA File System Design Manager");
    addLine(text, "OSType", platform::systemName());
    addLine(text, "ReasonForPlacingEditLock", "OpenAccess edit lock");
    addLine(text, "FilePathUsedToEditLock", platform::absolutePath(file));
    addLine(text, "TimeEditLocked", readable(now));
    return text;
}

std::string valueOf(const Fields& fields, const char* key) {
    const auto found = fields.find(key);
    return found == fields.end() ? std::string() : found->second;
}

platform::ProcessFate fateOfHolder(const Fields& fields) {
    return platform::fateOf({valueOf(fields, "HostName"), valueOf(fields, "OSType"),
                             valueOf(fields, "ProcessIdentifier"),
                             valueOf(fields, "ProcessInstance")});
}

// A copy of a library brings the locks of the original along.
bool isForAnotherFile(const Fields& fields, const std::string& lockPath) {
    const std::string file = valueOf(fields, "FilePathUsedToEditLock");
    if (file.empty())
        return false;
    const std::string original = platform::parentPath(file);
    return platform::isDirectory(original) &&
           !platform::sameFile(original, platform::parentPath(lockPath));
}

bool isStale(const std::string& content, const std::string& lockPath) {
    const Fields fields = parse(content);
    const platform::ProcessFate fate = fateOfHolder(fields);
    return fate == platform::ProcessFate::dead ||
           (fate == platform::ProcessFate::alive && isForAnotherFile(fields, lockPath));
}

// An empty lock file is what a crash of the whole computer leaves.
bool isLeftEmpty(const std::string& path) {
    if (!platform::isFile(path) || platform::fileSize(path) != 0)
        return false;
    std::this_thread::sleep_for(patienceWithEmpty);
    return true;
}

std::string contentOf(const std::string& path) {
    try {
        return platform::readFile(path);
    } catch (const platform::SystemFailure&) {
        return {};
    }
}

bool removeLeftLock(const std::string& lockPath) {
    const bool empty = isLeftEmpty(lockPath);
    if (!empty && !isStale(contentOf(lockPath), lockPath))
        return false;
    platform::removeStaleTemporaries(lockPath);
    return platform::removeFileIf(lockPath, [&](const std::string& content) {
        return content.empty() ? empty : isStale(content, lockPath);
    });
}

std::string describeHolder(const std::string& lockPath) {
    const Fields fields = parse(contentOf(lockPath));
    const std::string process = valueOf(fields, "ProcessIdentifier");
    if (process.empty())
        return "it is locked by '" + lockPath + "'";
    return "it is being edited by process " + process + " of user " + valueOf(fields, "LoginName") +
           " on host " + valueOf(fields, "HostName") + " ('" + lockPath + "')";
}

void removeOwn(const std::string& path, const std::string& own) {
    platform::removeFileIf(path, [&](const std::string& content) { return content == own; });
}

// The locks that this process holds, released when it ends. Never destroyed, because databases may
// outlive any static object.
class HeldLocks {
public:
    static HeldLocks& instance() {
        static HeldLocks& held = *new HeldLocks;
        return held;
    }

    void add(const std::string& path, const std::string& content) { contents_[path] = content; }
    void remove(const std::string& path) { contents_.erase(path); }

private:
    HeldLocks() {
        std::atexit([] { instance().releaseAll(); });
    }

    void releaseAll() noexcept {
        // A forked child ends with a copy of its parent's locks.
        if (platform::currentProcessId() != owner_)
            return;
        try {
            for (const auto& [path, content] : contents_)
                removeOwn(path, content);
        } catch (const std::exception&) {
            // What stays is taken over by the next process.
        }
    }

    const platform::ProcessId owner_ = platform::currentProcessId();
    std::map<std::string, std::string> contents_;
};

} // namespace

EditLock::EditLock(std::string path, std::string text)
    : lockPath_(std::move(path)), content_(std::move(text)) {
    HeldLocks::instance().add(lockPath_, content_);
}

std::optional<EditLock> EditLock::tryAcquire(const std::string& file) {
    const std::string lockPath = platform::nativePath(file) + kSuffix;
    const std::string content = lockText(file);
    if (platform::createExclusively(lockPath, content))
        return EditLock(lockPath, content);
    if (removeLeftLock(lockPath) && platform::createExclusively(lockPath, content))
        return EditLock(lockPath, content);
    return std::nullopt;
}

EditLock EditLock::acquire(const std::string& file) {
    try {
        if (std::optional<EditLock> lock = tryAcquire(file))
            return std::move(*lock);
    } catch (const platform::SystemFailure& failure) {
        throw oaDMError(oacCannotLockDatabase, file.c_str(), failure.error().text().c_str());
    }
    throw oaDMError(oacCannotLockDatabase, file.c_str(),
                    describeHolder(platform::nativePath(file) + kSuffix).c_str());
}

oaDMLockStatusEnum EditLock::status(const std::string& file) {
    const std::string lockPath = platform::nativePath(file) + kSuffix;
    if (!platform::exists(lockPath))
        return oacNotLocked;
    const std::string content = contentOf(lockPath);
    if (isStale(content, lockPath))
        return oacNotLocked;
    const Fields fields = parse(content);
    const bool own =
        fateOfHolder(fields) == platform::ProcessFate::alive &&
        valueOf(fields, "ProcessIdentifier") == std::to_string(platform::currentProcessId());
    return own ? oacLockedByCurrentProcess : oacLockedByForeignProcess;
}

void EditLock::release() noexcept {
    if (lockPath_.empty())
        return;
    try {
        removeOwn(lockPath_, content_);
        HeldLocks::instance().remove(lockPath_);
    } catch (const std::exception&) {
        // The lock file stays; it is taken over once this process has ended.
    }
    lockPath_.clear();
}

void EditLock::swap(EditLock& other) noexcept {
    lockPath_.swap(other.lockPath_);
    content_.swap(other.content_);
}

} // namespace OpenAccess_4::impl
