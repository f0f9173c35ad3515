#pragma once

#include "content.h"
#include "scratch_directory.h"

#include <map>
#include <string>
#include <vector>

namespace bench {

/// KLayout as an anchor: it runs in batch mode with a script of ours and measures itself.
class Klayout {
public:
    explicit Klayout(const ScratchDirectory& directory, std::size_t shapes = kShapes)
        : directory_(directory), shapes_(shapes) {}

    /// False when there is no program `klayout` on the search path, and none that
    /// OVALIS_BENCH_KLAYOUT names; an empty name there means none.
    static bool isInstalled();

    /// Draws the content and writes it; `repetitions` seconds for each of the names "write_gds2",
    /// "write_oasis" and "write_oasis_blocks", and the bytes as "size_gds2" and so on. The files
    /// stay for read() and memory().
    void write();
    /// Seconds of reading as "read_gds2": of `copies` readings, one after the other.
    void read(int copies = 1);
    /// Bytes of added resident memory after reading as "memory_gds2", each from a process of its
    /// own.
    void memory();

    /// The next figure of that name; the last one again when there are no more.
    double next(const std::string& name);

private:
    void run(const std::string& work, int repetitions, int copies = 1);
    std::string file(const std::string& suffix) const;

    const ScratchDirectory& directory_;
    std::size_t shapes_;
    std::map<std::string, std::vector<double>> figures_;
    std::map<std::string, std::size_t> taken_;
};

/// How often every anchor is measured that another process measures.
inline constexpr int kChildRepetitions = 7;

} // namespace bench
