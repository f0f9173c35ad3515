#include "platform/started_process.h"

#include "platform/process.h"
#include "platform/system_error.h"

#include "platform_tests.h"

#include <optional>

using namespace platform;

namespace ovalis::test {

namespace {

std::string program() {
    return utf8(builtProgram("platform_child"));
}

std::uint32_t exitCodeOf(const std::vector<std::string>& words) {
    StartedProcess started;
    EXPECT_TRUE(startProcess({program(), words, {}}, started));
    std::uint32_t exitCode = 12345;
    EXPECT_TRUE(started.wait(exitCode));
    return exitCode;
}

/// A child at the other ends of two pipes, which sends back what it gets.
class Echo {
public:
    Echo() {
        PipeEnd reading[2];
        PipeEnd writing[2];
        EXPECT_TRUE(createPipe(reading[0], writing[0]) && createPipe(reading[1], writing[1]));
        const PipeEnd childInput = inheritableCopy(reading[0]);
        const PipeEnd childOutput = inheritableCopy(writing[1]);
        EXPECT_TRUE(
            startProcess({program(),
                          {"child", "echo-pipe", pipeEndText(childInput), pipeEndText(childOutput)},
                          {&childInput, &childOutput}},
                         process));
        open(output, writing[0], PipeDirection::write);
        open(input, reading[1], PipeDirection::read);
    }

    std::string answerTo(const std::string& text) {
        EXPECT_TRUE(output->write(text.data(), text.size()));
        std::string answer(text.size(), '\0');
        std::size_t size = 0;
        while (size < answer.size()) {
            const std::size_t count = input->read(answer.data() + size, answer.size() - size);
            if (count == 0)
                break;
            size += count;
        }
        return answer.substr(0, size);
    }

    std::optional<PipeStream> input;
    std::optional<PipeStream> output;
    StartedProcess process;

private:
    static void open(std::optional<PipeStream>& stream, PipeEnd& end, PipeDirection direction) {
        StreamDescriptor descriptor = openDescriptor(end, direction);
        stream.emplace(openStream(descriptor, direction));
    }
};

} // namespace

TEST(StartedProcess, PassesItsExitCode) {
    EXPECT_EQ(exitCodeOf({"child", "exit", "0"}), 0U);
    EXPECT_EQ(exitCodeOf({"child", "exit", "7"}), 7U);
}

TEST(StartedProcess, HasALargeExitCodeWhenItCrashes) {
    EXPECT_GT(exitCodeOf({"child", "crash", "-"}), 9U);
}

TEST(StartedProcess, AMissingProgramIsAnError) {
    StartedProcess started;
    setLastSystemError(SystemError(0));
    EXPECT_FALSE(startProcess({program() + "-absent", {"child"}, {}}, started));
    EXPECT_NE(lastSystemErrorText(), "");
}

TEST(StartedProcess, TalksThroughTheEndsItInherits) {
    Echo echo;
    EXPECT_EQ(echo.answerTo("hello"), "hello");
    const std::string large(300'000, 'x');
    std::string answers;
    for (std::size_t sent = 0; sent < large.size(); sent += 1000)
        answers += echo.answerTo(large.substr(sent, 1000));
    EXPECT_EQ(answers, large);
}

// One that had the ends of another would keep it from seeing that they were closed.
TEST(StartedProcess, InheritsNobodyElsesEnds) {
    Echo first;
    Echo second;
    EXPECT_EQ(first.answerTo("a"), "a");
    first.output.reset();
    std::uint32_t exitCode = 12345;
    ASSERT_TRUE(first.process.wait(exitCode));
    EXPECT_EQ(exitCode, 0U);
    EXPECT_EQ(second.answerTo("b"), "b");
}

TEST(StartedProcess, LeavesNoHandleBehind) {
    { Echo echo; }
    const std::size_t before = openHandleCount();
    for (int i = 0; i < 20; ++i) {
        Echo echo;
        StartedProcess started;
        startProcess({program() + "-absent", {"child"}, {}}, started);
    }
    EXPECT_EQ(openHandleCount(), before);
}

} // namespace ovalis::test
