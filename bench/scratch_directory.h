#pragma once

#include <string>

namespace bench {

/// A fresh directory below OVALIS_BENCH_DIRECTORY, or below the system's directory for temporary
/// files; removed at the end of the program with everything in it.
class ScratchDirectory {
public:
    ScratchDirectory();
    ~ScratchDirectory();
    ScratchDirectory(const ScratchDirectory&) = delete;
    ScratchDirectory& operator=(const ScratchDirectory&) = delete;

    std::string operator/(const std::string& name) const { return path_ + '/' + name; }

private:
    std::string path_;
};

} // namespace bench
