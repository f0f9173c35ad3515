#include "platform/environment.h"

#include "platform/terminal.h"
#include "platform/text.h"

#include <cstdlib>
#include <gtest/gtest.h>

using namespace platform;

TEST(Environment, KeepsTextOutsideOfAscii) {
    const std::string value = "gr\xc3\xbc\xc3\x9f"
                              "e \xe2\x82\xac";
    setEnvironmentVariable("PLATFORM_TEST", value);
    EXPECT_EQ(environmentVariable("PLATFORM_TEST"), value);
    setEnvironmentVariable("PLATFORM_TEST", std::string(1000, 'x'));
    EXPECT_EQ(environmentVariable("PLATFORM_TEST"), std::string(1000, 'x'));
    unsetEnvironmentVariable("PLATFORM_TEST");
    EXPECT_EQ(environmentVariable("PLATFORM_TEST"), std::nullopt);
}

TEST(Environment, TellsEmptyFromMissing) {
    setEnvironmentVariable("PLATFORM_TEST", "");
    EXPECT_EQ(environmentVariable("PLATFORM_TEST"), "");
    unsetEnvironmentVariable("PLATFORM_TEST");
    EXPECT_EQ(environmentVariable("PLATFORM_TEST"), std::nullopt);
}

TEST(Environment, IsTheOneTheLanguageSees) {
    setEnvironmentVariable("PLATFORM_TEST", "seen");
    EXPECT_STREQ(std::getenv("PLATFORM_TEST"), "seen");
    unsetEnvironmentVariable("PLATFORM_TEST");
    EXPECT_EQ(std::getenv("PLATFORM_TEST"), nullptr);
}

TEST(Terminal, AlwaysHasAWidth) {
    EXPECT_GT(terminalWidth(StandardStream::output), 0U);
    EXPECT_GT(terminalWidth(StandardStream::error), 0U);
}
