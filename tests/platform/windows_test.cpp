// What only Windows has: attributes of files and drives in paths.

#include "platform/atomic_file.h"
#include "platform/event_log.h"
#include "platform/system_error.h"

#include "platform_tests.h"
#include "system_log.h"

#include <windows.h>

using namespace platform;
using testing::ElementsAre;

namespace {
using WindowsTest = ovalis::test::PlatformTest;
} // namespace

TEST_F(WindowsTest, ReadOnlyFileRefusesReplacementAndCanBeRemoved) {
    put("file", "old");
    SetFileAttributesA(path("file").c_str(), FILE_ATTRIBUTE_READONLY);
    EXPECT_FALSE(isWritable(path("file")));
    EXPECT_THROW(AtomicFile(path("file")), SystemFailure);
    EXPECT_EQ(get("file"), "old");
    EXPECT_THAT(names(), ElementsAre("file"));
    removeTree(path("file"));
    EXPECT_FALSE(exists(path("file")));
}

TEST_F(WindowsTest, CopyOfAReadOnlyFileCanBeWritten) {
    put("from", "x");
    SetFileAttributesA(path("from").c_str(), FILE_ATTRIBUTE_READONLY);
    copyFile(path("from"), path("to"));
    EXPECT_TRUE(isWritable(path("to")));
}

TEST_F(WindowsTest, AbsolutePathsHaveADriveAndBackslashes) {
    const std::string absolute = absolutePath("a/b");
    EXPECT_EQ(absolute.substr(1, 2), ":\\");
    EXPECT_EQ(absolute.substr(absolute.size() - 4), "\\a\\b");
    EXPECT_EQ(parentPath("C:\\x"), "C:\\");
}

TEST_F(WindowsTest, TheTextOfTheLastErrorIsTheSystemsWithItsLineEnd) {
    SetLastError(ERROR_FILE_NOT_FOUND);
    char expected[512];
    const DWORD length = FormatMessageA(FORMAT_MESSAGE_FROM_SYSTEM, nullptr, ERROR_FILE_NOT_FOUND,
                                        0, expected, sizeof expected, nullptr);
    EXPECT_EQ(platform::lastSystemErrorText(), std::string(expected, length));
    EXPECT_EQ(std::string(expected, length).substr(length - 2), "\r\n");
}

TEST_F(WindowsTest, WhatTheEventLogRefusesIsNoFailure) {
    ovalis::test::systemLog() = {};
    EventLog log("refused");
    log.reportError("nothing wrong");
    EXPECT_THAT(ovalis::test::systemLog().sources, ElementsAre("refused"));
    EXPECT_THAT(ovalis::test::systemLog().errors, testing::IsEmpty());
}

TEST_F(WindowsTest, ErrorsGoToTheEventLogOfTheirSource) {
    ovalis::test::systemLog() = {};
    const std::string source = "gr\xc3\xb6\xc3\x9f"
                               "e";
    EventLog log(source);
    log.reportError("100 %s of it");
    log.reportError(source);
    EXPECT_THAT(ovalis::test::systemLog().sources, ElementsAre(source));
    EXPECT_THAT(ovalis::test::systemLog().errors, ElementsAre("100 %s of it", source));
}
