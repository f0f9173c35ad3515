#include "cli/progress_bar.h"

#include <sstream>

#include <gtest/gtest.h>

namespace cli {
namespace {

TEST(ProgressLine, GrowsWithTheWork) {
    EXPECT_EQ(progressLine(0, 8), "[........................................]   0 %");
    EXPECT_EQ(progressLine(2, 8), "[##########..............................]  25 %");
    EXPECT_EQ(progressLine(8, 8), "[########################################] 100 %");
}

TEST(ProgressLine, StaysWithinItsEnds) {
    EXPECT_EQ(progressLine(9, 8), progressLine(8, 8));
    EXPECT_EQ(progressLine(0, 0), progressLine(1, 1));
}

TEST(ProgressBar, SaysNothingWhenNobodyWatches) {
    std::ostringstream out;
    std::ostringstream talk;
    Console console{out, talk, false};
    {
        const ProgressBar bar(console, 1, [] { return 1; });
    }
    EXPECT_EQ(talk.str(), "");
}

TEST(ProgressBar, LeavesAnEmptyLineBehind) {
    std::ostringstream out;
    std::ostringstream talk;
    Console console{out, talk, true};
    {
        const ProgressBar bar(console, 1, [] { return 1; });
    }
    const std::string blank = "\r" + std::string(progressLine(0, 1).size(), ' ') + "\r";
    EXPECT_TRUE(talk.str().ends_with(blank));
    EXPECT_EQ(out.str(), "");
}

} // namespace
} // namespace cli
