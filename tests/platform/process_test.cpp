#include "platform/process.h"

#include "platform_tests.h"

#include <chrono>
#include <cstdlib>

using namespace platform;

namespace {

ProcessId endedProcess() {
    const auto result = ovalis::test::runProgram(ovalis::test::builtProgram("platform_child"),
                                                 {"tell-process", ""});
    return static_cast<ProcessId>(std::strtoul(result.output.c_str(), nullptr, 10));
}

} // namespace

TEST(Process, KnowsItselfAlive) {
    EXPECT_NE(currentProcessId(), 0U);
    EXPECT_TRUE(isProcessAlive(currentProcessId()));
    EXPECT_FALSE(isProcessAlive(0));
}

TEST(Process, KnowsAnEndedOneDead) {
    const ProcessId ended = endedProcess();
    ASSERT_NE(ended, 0U);
    EXPECT_NE(ended, currentProcessId());
    EXPECT_FALSE(isProcessAlive(ended));
    EXPECT_EQ(processInstance(ended), "");
}

TEST(Process, HasOneInstanceAndAStartInThePast) {
    const std::string instance = processInstance(currentProcessId());
    EXPECT_FALSE(instance.empty());
    EXPECT_EQ(processInstance(currentProcessId()), instance);
    const auto now = std::chrono::system_clock::to_time_t(std::chrono::system_clock::now());
    const std::optional<std::int64_t> start = processStartTime(currentProcessId());
    ASSERT_TRUE(start);
    EXPECT_LE(*start, now + 5);
    EXPECT_GT(*start, now - 24 * 3600);
}

TEST(Process, NamesItsHostAndUser) {
    EXPECT_FALSE(hostName().empty());
    EXPECT_FALSE(loginName().empty());
}
