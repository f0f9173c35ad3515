#pragma once

#include "support/files.h"
#include "support/places.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <span>
#include <string>
#include <vector>

namespace fuzz {

/// Tries every file of the corpus of a target. The seeds, of which there are at least so many, must
/// be accepted: otherwise the fuzzer would start from nothing.
inline void replay(const std::string& target, bool (*tryInput)(std::span<const std::byte>),
                   std::size_t leastSeeds) {
    namespace fs = std::filesystem;
    const fs::directory_iterator corpus(ovalis::test::sourceTree() / "fuzz" / "corpora" / target);
    std::vector<fs::path> files(fs::begin(corpus), fs::end(corpus));
    std::sort(files.begin(), files.end());
    std::size_t seeds = 0;
    for (const fs::path& file : files) {
        SCOPED_TRACE(file.filename().string());
        const std::string bytes = ovalis::test::readText(file);
        const bool accepted = tryInput(std::as_bytes(std::span(bytes)));
        if (file.filename().string().starts_with("seed_")) {
            ++seeds;
            EXPECT_TRUE(accepted);
        }
    }
    EXPECT_GE(seeds, leastSeeds);
}

} // namespace fuzz
