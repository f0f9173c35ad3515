// Tries every file of the corpora again, as an ordinary test of every build. The seeds, which our
// own writer made, must be accepted: otherwise the fuzzers would start from nothing.

#include "database_file.h"
#include "library_definitions.h"
#include "pcell_file.h"

#include "support/places.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

namespace {

namespace fs = std::filesystem;

std::vector<char> readAll(const fs::path& path) {
    std::ifstream input(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(input), {}};
}

std::vector<fs::path> corpus(const std::string& target) {
    const fs::path directory = ovalis::test::sourceTree() / "fuzz" / "corpora" / target;
    std::vector<fs::path> files;
    for (const fs::directory_entry& entry : fs::directory_iterator(directory))
        files.push_back(entry.path());
    std::sort(files.begin(), files.end());
    return files;
}

bool isSeed(const fs::path& file) {
    return file.filename().string().starts_with("seed_");
}

TEST(DatabaseFileCorpus, IsReadOrRefusedWithoutHarm) {
    std::size_t seeds = 0;
    for (const fs::path& file : corpus("database_file")) {
        SCOPED_TRACE(file.filename().string());
        const std::vector<char> bytes = readAll(file);
        const bool accepted = fuzz::tryDatabaseFile(std::as_bytes(std::span(bytes)));
        if (isSeed(file)) {
            ++seeds;
            EXPECT_TRUE(accepted);
        }
    }
    EXPECT_GE(seeds, 5u);
}

TEST(PcellFileCorpus, IsReadOrRefusedWithoutHarm) {
    std::size_t seeds = 0;
    for (const fs::path& file : corpus("pcell_file")) {
        SCOPED_TRACE(file.filename().string());
        const std::vector<char> bytes = readAll(file);
        const bool accepted = fuzz::tryPcellFile(std::as_bytes(std::span(bytes)));
        if (isSeed(file)) {
            ++seeds;
            EXPECT_TRUE(accepted);
        }
    }
    EXPECT_GE(seeds, 4u);
}

TEST(LibraryDefinitionsCorpus, IsReadAndSavedAsItIsWritten) {
    std::size_t seeds = 0;
    for (const fs::path& file : corpus("library_definitions")) {
        SCOPED_TRACE(file.filename().string());
        const std::vector<char> bytes = readAll(file);
        const bool accepted = fuzz::tryLibraryDefinitions(std::as_bytes(std::span(bytes)));
        if (isSeed(file)) {
            ++seeds;
            EXPECT_TRUE(accepted);
        }
    }
    EXPECT_GE(seeds, 5u);
}

} // namespace
