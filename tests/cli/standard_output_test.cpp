#include <gtest/gtest.h>

#include "shell.h"

namespace cli::test {
namespace {

/// Commands that write, each in its own way.
class StandardOutput : public ::testing::Test {
protected:
    StandardOutput() { EXPECT_EQ(work_.exportIt().status, 0); }

    std::vector<std::vector<std::string>> commands() const {
        const std::string lib = work_.library();
        return {{"describe", lib},
                {"draw", lib, "coil", "layout"},
                {"list", lib, "--json"},
                {"locks", lib, "--json"},
                {"--help"},
                {"--version"}};
    }

    Workplace work_;
};

TEST_F(StandardOutput, WhatAFullDiskDoesNotTakeIsAFailure) {
    for (const auto& command : commands())
        EXPECT_EQ(ovalisInShell("exec \"$0\" \"$@\" >/dev/full", command),
                  (Outcome{2, "",
                           "ovalis: standard output cannot be written: No space left on "
                           "device\n"}))
            << command.front();
}

TEST_F(StandardOutput, ClosedItIsAFailureAndNoFileTakesItsPlace) {
    const Tree before = work_.tree();
    for (const auto& command : commands())
        EXPECT_EQ(
            ovalisInShell("exec \"$0\" \"$@\" >&-", command),
            (Outcome{2, "", "ovalis: standard output cannot be written: Bad file descriptor\n"}))
            << command.front();
    EXPECT_EQ(work_.tree(), before);
}

TEST_F(StandardOutput, ClosedItDoesNotMatterToACommandThatWritesNothing) {
    EXPECT_EQ(ovalisInShell("exec \"$0\" \"$@\" <&- >&- 2>&-", {"check", work_.library()}),
              (Outcome{0, "", ""}));
}

TEST_F(StandardOutput, AReaderThatHasSeenEnoughIsNoCauseToTalk) {
    const Outcome described = ovalisHere({"describe", work_.library()});
    const std::string line = described.out.substr(0, described.out.find('\n') + 1);
    const std::vector<std::string> command = {"describe", work_.library()};
    EXPECT_EQ(ovalisInShell("\"$0\" \"$@\" | head -n 1", command), (Outcome{0, line, ""}));
    EXPECT_EQ(ovalisInShell("trap '' PIPE; \"$0\" \"$@\" | true", command), (Outcome{0, "", ""}));
}

} // namespace
} // namespace cli::test
