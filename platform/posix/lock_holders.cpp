#include "portable/lock_holders.h"

#include <dirent.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>

#include <algorithm>
#include <fstream>
#include <memory>
#include <sstream>

namespace platform::internal {

namespace {

bool isSame(const struct stat& first, const struct stat& second) {
    return first.st_dev == second.st_dev && first.st_ino == second.st_ino;
}

bool hasOpen(ProcessId process, const struct stat& file) {
    const std::string directory = "/proc/" + std::to_string(process) + "/fd";
    const std::unique_ptr<DIR, int (*)(DIR*)> open(::opendir(directory.c_str()), ::closedir);
    while (const dirent* entry = open ? ::readdir(open.get()) : nullptr) {
        struct stat other;
        if (::stat((directory + "/" + entry->d_name).c_str(), &other) == 0 && isSame(other, file))
            return true;
    }
    return false;
}

/// A line of the system's table of locks: "1: FLOCK ADVISORY WRITE 4711 08:01:1234 0 EOF".
struct TableLine {
    std::string type;
    std::string access;
    ProcessId process = 0;
    unsigned major = 0;
    unsigned minor = 0;
    unsigned long long file = 0;
};

bool readLine(const std::string& text, TableLine& line) {
    std::istringstream words(text);
    std::string number;
    std::string advice;
    char colon = 0;
    // Who only waits for a lock has an arrow in the place of its type.
    return words >> number >> line.type >> advice >> line.access >> line.process >> std::hex >>
               line.major >> colon >> line.minor >> colon >> std::dec >> line.file &&
           line.type == "FLOCK";
}

// Some file systems are known to the table by another device than to everybody else.
bool isFor(const TableLine& line, const struct stat& file) {
    return line.file == file.st_ino && ((line.major == ::gnu_dev_major(file.st_dev) &&
                                         line.minor == ::gnu_dev_minor(file.st_dev)) ||
                                        hasOpen(line.process, file));
}

} // namespace

std::optional<LockUse> toldLockUse(const std::string& path) {
    struct stat file;
    if (::stat(path.c_str(), &file) != 0)
        return std::nullopt;
    std::ifstream table("/proc/locks");
    std::optional<LockUse> use;
    for (std::string text; std::getline(table, text);) {
        TableLine line;
        if (!readLine(text, line) || !isFor(line, file))
            continue;
        if (!use)
            use = LockUse{line.access == "WRITE" ? LockKind::exclusive : LockKind::shared, {}};
        if (std::find(use->processes.begin(), use->processes.end(), line.process) ==
            use->processes.end())
            use->processes.push_back(line.process);
    }
    return use;
}

} // namespace platform::internal
