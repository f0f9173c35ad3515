// Tries the corpora of the client of brokers again, as an ordinary test of every build.

#include "broker_client.h"

#include "support/files.h"
#include "support/places.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace {

namespace fs = std::filesystem;

/// Tries every file of a corpus; the seeds must be accepted.
void replay(const std::string& target, bool (*tryInput)(std::span<const std::byte>)) {
    std::size_t seeds = 0;
    for (const fs::directory_entry& entry :
         fs::directory_iterator(ovalis::test::sourceTree() / "fuzz" / "corpora" / target)) {
        const std::string name = entry.path().filename().string();
        const std::string bytes = ovalis::test::readText(entry.path());
        const bool accepted = tryInput(std::as_bytes(std::span(bytes)));
        if (name.starts_with("seed_")) {
            ++seeds;
            EXPECT_TRUE(accepted) << name;
        }
    }
    EXPECT_GE(seeds, 3u);
}

TEST(BrokerConfigCorpus, IsReadOrRefusedWithoutHarm) {
    replay("broker_config", fuzz::tryBrokerConfig);
}

TEST(BrokerAnswersCorpus, AreTakenForWhatTheyAre) {
    replay("broker_answers", fuzz::tryBrokerAnswers);
}

} // namespace
