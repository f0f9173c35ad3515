// Tries every file of the corpus of requests again, as an ordinary test of every build.

#include "broker_request.h"

#include "support/files.h"
#include "support/places.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace {

namespace fs = std::filesystem;

TEST(BrokerRequestCorpus, IsReadOrRefusedWithoutHarm) {
    std::size_t seeds = 0;
    const fs::path corpus = ovalis::test::sourceTree() / "fuzz" / "corpora" / "broker_request";
    for (const fs::directory_entry& file : fs::directory_iterator(corpus)) {
        SCOPED_TRACE(file.path().filename().string());
        const std::string bytes = ovalis::test::readText(file.path());
        const bool accepted = fuzz::tryBrokerRequests(std::as_bytes(std::span(bytes)));
        if (file.path().filename().string().starts_with("seed_")) {
            ++seeds;
            EXPECT_TRUE(accepted);
        }
    }
    EXPECT_GE(seeds, 5u);
}

} // namespace
