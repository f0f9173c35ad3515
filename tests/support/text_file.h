#pragma once

#include <string>

#include <platform/path.h>

namespace ovalis::test {

/// The bytes of a text file whose lines end as the system ends them.
inline std::string asTextFile(const std::string& text) {
    const bool carriageReturns = platform::pathSeparator() == '\\';
    std::string bytes;
    for (const char c : text) {
        if (c == '\n' && carriageReturns) {
            bytes += '\r';
        }
        bytes += c;
    }
    return bytes;
}

} // namespace ovalis::test
