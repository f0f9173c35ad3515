#pragma once

#include <string>

#include <sys/stat.h>

namespace ovalis::test {

/// Makes a pipe with a name; false when the system refuses.
inline bool makePipeFile(const std::string& path) {
    return mkfifo(path.c_str(), 0600) == 0;
}

} // namespace ovalis::test
