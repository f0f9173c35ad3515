#include <gtest/gtest.h>

#include "pcell_place.h"
#include "shell.h"

namespace cli::test {
namespace {

using ovalis::test::readText;
using ovalis::test::writeText;

/// What a disk that takes only half a kilobyte of a file says.
Outcome withLittleRoom(const std::vector<std::string>& arguments) {
    return ovalisInShell("ulimit -f 1; exec \"$0\" \"$@\"", arguments);
}

std::string tooLarge(const std::string& file) {
    return "ovalis: cannot write file (" + file + "): File too large\n";
}

TEST(ResultOnDisk, AnExistingFileSurvivesADiskThatIsFull) {
    const Workplace work;
    ASSERT_EQ(work.exportIt().status, 0);
    const std::string file = work.path("result");
    for (const std::vector<std::string>& command :
         {std::vector<std::string>{"describe", work.library(), "-o", file},
          {"draw", work.library(), "coil", "layout", "-o", file}}) {
        const Tree before = treeOf(work.path(""));
        EXPECT_EQ(withLittleRoom(command), (Outcome{2, "", tooLarge(file)}));
        EXPECT_EQ(treeOf(work.path("")), before);
        writeText(file, "old");
        EXPECT_EQ(withLittleRoom(command), (Outcome{2, "", tooLarge(file)}));
        EXPECT_EQ(readText(file), "old");
        std::filesystem::remove(file);
        EXPECT_EQ(treeOf(work.path("")), before);
    }
}

TEST(ResultOnDisk, APictureOfAPcellIsNotHalfThereEither) {
    PcellPlace work;
    work.put();
    const std::string file = work.path("picture.svg");
    writeText(file, "old");
    EXPECT_EQ(withLittleRoom({"evaluate", work.library(), "coil", "layout", "--draw", file}).status,
              2);
    EXPECT_EQ(readText(file), "old");
}

TEST(ResultOnDisk, WhatIsNoOrdinaryFileIsWrittenAsItIs) {
    const Workplace work;
    ASSERT_EQ(work.exportIt().status, 0);
    const std::string text = ovalisHere({"describe", work.library()}).out;
    const std::vector<std::string> command = {"describe", work.library(), "-o"};
    const auto into = [&](const std::string& line, const std::string& file) {
        std::vector<std::string> arguments = command;
        arguments.push_back(file);
        return ovalisInShell(line, arguments);
    };
    EXPECT_EQ(into("{ \"$0\" \"$@\"; echo end; } | cat", "/dev/stdout"),
              (Outcome{0, text + "end\n", "wrote /dev/stdout\n"}));
    EXPECT_EQ(into("exec \"$0\" \"$@\"", "/dev/stdout"), (Outcome{0, text, "wrote /dev/stdout\n"}));
    EXPECT_EQ(into("exec \"$0\" \"$@\"", "/dev/full"),
              (Outcome{2, "", "ovalis: cannot write file (/dev/full): No space left on device\n"}));
    EXPECT_TRUE(std::filesystem::is_character_file("/dev/full"));
}

} // namespace
} // namespace cli::test
