#include "platform/child_process.h"

#include "platform_tests.h"

#include <chrono>
#include <thread>

using namespace platform;

namespace ovalis::test {

class ChildProcessTest : public PlatformTest {
protected:
    std::string program() const { return utf8(builtProgram("platform_child")); }

    // Returns once the child has noted its number, while it goes on running.
    ProcessId runningProcess(const std::string& name) {
        while (!exists(path(name)) || get(name).find('\n') == std::string::npos)
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        return static_cast<ProcessId>(std::stoul(get(name)));
    }
};

TEST_F(ChildProcessTest, PassesItsExitStatusOnEveryCall) {
    ChildProcess child(program(), {"lock-and-die", path("lock")});
    EXPECT_EQ(child.wait(), died);
    EXPECT_EQ(child.wait(), died);
}

TEST_F(ChildProcessTest, TakesArgumentsAsTheyAre) {
    const std::string awkward = "a b\" c\\\" d\\ \xc3\xa4";
    ChildProcess child(program(), {"print", awkward}, {path("out"), path("err")});
    EXPECT_EQ(child.wait(), 0);
    EXPECT_EQ(get("out").substr(0, awkward.size()), awkward);
    EXPECT_EQ(get("err"), "");
}

TEST_F(ChildProcessTest, EndsAtOnceWhenKilled) {
    ChildProcess child(program(), {"run-on", ""}, {path("out"), ""});
    const ProcessId process = runningProcess("out");
    EXPECT_TRUE(isProcessAlive(process));
    child.kill();
    EXPECT_NE(child.wait(), 0);
    EXPECT_FALSE(isProcessAlive(process));
}

TEST_F(ChildProcessTest, DoesNotOutliveItsOwner) {
    ProcessId process = 0;
    {
        ChildProcess child(program(), {"run-on", ""}, {path("out"), ""});
        process = runningProcess("out");
    }
    EXPECT_FALSE(isProcessAlive(process));
}

TEST_F(ChildProcessTest, AMissingProgramIsReported) {
    EXPECT_THROW(ChildProcess(path("absent"), {}), SystemFailure);
}

} // namespace ovalis::test
