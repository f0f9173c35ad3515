#include "support/environment_override.h"

#include "platform/environment.h"
#include "support/files.h"
#include "support/places.h"
#include "support/run_program.h"
#include "support/temporary_directory.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace ovalis::test {
namespace {

namespace fs = std::filesystem;

// Programs end their lines as their system does.
std::string withoutCarriageReturns(std::string text) {
    std::erase(text, '\r');
    return text;
}

TEST(TemporaryDirectory, IsFreshAndGoesWithItsContents) {
    fs::path path;
    {
        TemporaryDirectory directory;
        path = directory.path();
        EXPECT_TRUE(fs::is_empty(path));
        fs::create_directories(path / "a" / "b");
        writeText(path / "a" / "b" / "c.txt", "x");
    }
    EXPECT_FALSE(fs::exists(path));
}

TEST(TemporaryDirectory, GoesWithReadOnlyDirectories) {
    fs::path path;
    {
        TemporaryDirectory directory;
        path = directory.path();
        fs::create_directory(path / "a");
        writeText(path / "a" / "b.txt", "x");
        fs::permissions(path / "a", fs::perms::owner_read | fs::perms::owner_exec);
    }
    EXPECT_FALSE(fs::exists(path));
}

TEST(TemporaryDirectory, TwoDiffer) {
    TemporaryDirectory first;
    TemporaryDirectory second;
    EXPECT_NE(first.str(), second.str());
    EXPECT_EQ(first.str().find('\\'), std::string::npos);
}

TEST(Files, BytesAreKeptAsTheyAre) {
    TemporaryDirectory directory;
    const std::string bytes("a\r\nb\n\0\x1a\xff", 8);
    writeText(directory.path() / "f", bytes);
    EXPECT_EQ(readText(directory.path() / "f"), bytes);
}

TEST(Files, AMissingFileIsReported) {
    TemporaryDirectory directory;
    EXPECT_THROW(readText(directory.path() / "absent"), std::runtime_error);
    EXPECT_THROW(writeText(directory.path() / "absent" / "f", "x"), std::runtime_error);
}

TEST(EnvironmentOverride, RestoresValueAndAbsence) {
    EnvironmentOverride outer("OVALIS_TEST_VALUE", std::nullopt);
    {
        EnvironmentOverride first("OVALIS_TEST_VALUE", "one");
        {
            EnvironmentOverride second("OVALIS_TEST_VALUE", "zwei \xc3\xa4");
            EXPECT_EQ(platform::environmentVariable("OVALIS_TEST_VALUE"), "zwei \xc3\xa4");
        }
        EXPECT_EQ(platform::environmentVariable("OVALIS_TEST_VALUE"), "one");
    }
    EXPECT_EQ(platform::environmentVariable("OVALIS_TEST_VALUE"), std::nullopt);
}

TEST(RunProgram, PassesArgumentsAndCollectsBothStreams) {
    EnvironmentOverride value("OVALIS_TEST_VALUE", "seen");
    const ProgramResult result = runProgram(
        builtProgram("echo_arguments"), {"plain", "two words", "", "a\"b", "c\\", "d\\\"e f\\"});
    EXPECT_EQ(withoutCarriageReturns(result.output),
              "[plain]\n[two words]\n[]\n[a\"b]\n[c\\]\n[d\\\"e f\\]\n");
    EXPECT_EQ(withoutCarriageReturns(result.errors), "seen\n");
    EXPECT_EQ(result.exitCode, 6);
}

TEST(RunProgram, AMissingProgramIsReported) {
    EXPECT_THROW(runProgram(builtProgram("no_such_program"), {}), std::runtime_error);
}

TEST(Places, TheSourceTreeIsThere) {
    EXPECT_TRUE(fs::exists(sourceTree() / "CMakeLists.txt"));
}

TEST(Places, SharedDataFollowsItsVariable) {
    EnvironmentOverride unset("OVALIS_SHARED_DATA", std::nullopt);
    EXPECT_EQ(sharedData(), std::nullopt);
    EnvironmentOverride set("OVALIS_SHARED_DATA", "some/where");
    EXPECT_EQ(sharedData(), fs::path("some/where"));
}

} // namespace
} // namespace ovalis::test
