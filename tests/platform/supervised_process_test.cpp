#include "platform/supervised_process.h"

#include "platform/parent_process.h"
#include "platform/private_directory.h"
#include "platform/system_error.h"
#include "platform_tests.h"

using namespace platform;
using namespace std::chrono_literals;

namespace {

class SupervisedProcessTest : public ovalis::test::PlatformTest {
protected:
    static std::string program() {
        return ovalis::test::utf8(ovalis::test::builtProgram("supervised_child"));
    }

    static std::optional<ProcessEnd> endOf(const std::vector<std::string>& arguments) {
        SupervisedProcess process(program(), arguments, 0);
        return process.waitFor(60s);
    }

    static std::string everythingIn(Channel& channel) {
        std::string all;
        char bytes[16];
        while (const std::size_t size = channel.read(bytes, sizeof bytes))
            all.append(bytes, size);
        return all;
    }
};

TEST_F(SupervisedProcessTest, AnswersThroughItsPipes) {
    SupervisedProcess process(program(), {"echo"}, 0);
    const std::string sent(200'000, 'x');
    std::string received;
    for (std::size_t place = 0; place < sent.size(); place += 1000) {
        ASSERT_TRUE(process.requests.write(sent.data() + place, 1000));
        for (char bytes[100]; received.size() < place + 1000;)
            received.append(bytes, process.answers.read(bytes, sizeof bytes));
    }
    EXPECT_EQ(received, sent);
    process.requests.close();
    char byte = 0;
    EXPECT_EQ(process.answers.read(&byte, 1), 0u);
    EXPECT_EQ(process.waitFor(60s), (ProcessEnd{false, 0}));
}

TEST_F(SupervisedProcessTest, TellsHowItEnded) {
    EXPECT_EQ(endOf({"exit", "0"}), (ProcessEnd{false, 0}));
    EXPECT_EQ(endOf({"exit", "7"}), (ProcessEnd{false, 7}));
    EXPECT_EQ((ProcessEnd{false, 7}).text(), "exit code 7");
}

TEST_F(SupervisedProcessTest, SaysOneThingOnBothStreamsAndReadsNothing) {
    SupervisedProcess process(program(), {"say", "größe \"quoted\""}, 0);
    EXPECT_EQ(everythingIn(process.talk), "output größe \"quoted\"");
    EXPECT_EQ(process.waitFor(60s), (ProcessEnd{false, 0}));
}

TEST_F(SupervisedProcessTest, IsEndedAtAnyMoment) {
    SupervisedProcess process(program(), {"wait"}, 0);
    EXPECT_EQ(process.waitFor(0ms), std::nullopt);
    EXPECT_GT(process.memoryInUse(), 0u);
    process.kill();
    EXPECT_TRUE(process.waitFor(60s));
    process.kill();
    EXPECT_EQ(process.memoryInUse(), 0u);
    EXPECT_FALSE(process.answers.read(std::string(1, ' ').data(), 1));
}

TEST_F(SupervisedProcessTest, IsEndedWithItsObject) {
    const auto began = std::chrono::steady_clock::now();
    { SupervisedProcess process(program(), {"wait"}, 0, EndsWith::itselfOnly); }
    EXPECT_LT(std::chrono::steady_clock::now() - began, 60s);
}

TEST_F(SupervisedProcessTest, IsNoneWithoutItsProgram) {
    const std::string missing = path("missing");
    try {
        SupervisedProcess process(missing, {}, 0);
        FAIL();
    } catch (const SystemFailure& failure) {
        EXPECT_EQ(failure.path(), missing);
        EXPECT_TRUE(std::string(failure.what()).starts_with("cannot start program ("));
    }
}

TEST_F(SupervisedProcessTest, IsOneOfItsUserThatCanBeKilledByNumber) {
    SupervisedProcess process(program(), {"wait"}, 0);
    killProcess(0);
    EXPECT_EQ(process.waitFor(0ms), std::nullopt);
}

TEST(Channel, IsNamedBySixteenDigits) {
    EXPECT_EQ(channelNumber(0x2a4), "00000000000002A4");
    EXPECT_EQ(channelNumber(~std::uint64_t{0}), "FFFFFFFFFFFFFFFF");
}

TEST(Channel, IsNotInheritedUnderANumberThatNamesNone) {
    for (const char* text : {"", "x", "12x", " 3", "-1", "000000000000FFF1", "FFFFFFFFFFFFFFFF",
                             "0000000000000000000000001"})
        EXPECT_FALSE(Channel::inherited(text)) << text;
}

class PrivateDirectoryTest : public ovalis::test::PlatformTest {};

TEST_F(PrivateDirectoryTest, IsMadeOnce) {
    EXPECT_TRUE(createPrivateDirectory(path("größe")));
    EXPECT_FALSE(createPrivateDirectory(path("größe")));
    File(path("größe/file"), OpenMode::write).write("inside", 6);
    EXPECT_EQ(readFile(path("größe/file")), "inside");
    EXPECT_THROW(createPrivateDirectory(path("missing/inside")), SystemFailure);
}

TEST_F(PrivateDirectoryTest, CanBecomeTheWorkingDirectory) {
    const std::string before = currentDirectory();
    createPrivateDirectory(path("größe"));
    setCurrentDirectory(path("größe"));
    const std::string inside = currentDirectory();
    setCurrentDirectory(before);
    EXPECT_TRUE(sameFile(inside, path("größe")));
    EXPECT_THROW(setCurrentDirectory(path("missing")), SystemFailure);
    EXPECT_EQ(currentDirectory(), before);
}

TEST(ProgramPath, IsThatOfTheRunningProgram) {
    const std::string name = fileName(programPath());
    EXPECT_EQ(name.substr(0, name.find('.')), "test_platform");
    EXPECT_TRUE(isFile(programPath()));
}

} // namespace
