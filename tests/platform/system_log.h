#pragma once

#include <string>
#include <vector>

namespace ovalis::test {

/// What reached the entrances of the system's log, which are ours in a program that has this: the
/// log itself cannot be read back everywhere. The source "refused" is refused where there are any.
struct SystemLog {
    std::vector<std::string> sources; ///< that were registered, in order
    std::vector<std::string> errors;  ///< the lines, in order
};

SystemLog& systemLog();

/// What a process that has registered `source` has registered by then, on this system.
std::vector<std::string> onceRegistered(const std::string& source);

} // namespace ovalis::test
