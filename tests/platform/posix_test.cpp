// What only posix systems have: permissions of files, links and limits of a process.

#include "platform/atomic_file.h"
#include "platform/event_log.h"
#include "platform/exclusive_file.h"
#include "platform/file_lock.h"
#include "platform/pipe.h"
#include "platform/processor.h"
#include "platform/started_process.h"

#include "ordinary_user.h"
#include "platform_tests.h"
#include "system_log.h"

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>

using namespace platform;
using ovalis::test::OrdinaryUser;
using testing::ElementsAre;
using testing::HasSubstr;

namespace {

/// Nothing may be written beyond `bytes` of a file, as on a full disk.
class FileSizeLimit {
public:
    explicit FileSizeLimit(rlim_t bytes) : handler(std::signal(SIGXFSZ, SIG_IGN)) {
        getrlimit(RLIMIT_FSIZE, &before);
        const rlimit limit = {bytes, before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;
    ~FileSizeLimit() {
        setrlimit(RLIMIT_FSIZE, &before);
        std::signal(SIGXFSZ, handler);
    }

private:
    void (*handler)(int);
    rlimit before;
};

class PosixTest : public ovalis::test::PlatformTest {
protected:
    void setMode(const std::string& name, mode_t mode) {
        ASSERT_EQ(chmod(path(name).c_str(), mode), 0);
    }
    mode_t modeOf(const std::string& name) {
        struct stat status = {};
        stat(path(name).c_str(), &status);
        return status.st_mode & 07777;
    }
    std::string failureOf(const std::string& name) {
        try {
            AtomicFile file(path(name));
            file.write("new", 3);
            file.commit();
        } catch (const SystemFailure& failure) {
            EXPECT_EQ(failure.path(), path(name));
            return failure.error().text();
        }
        return "none";
    }
};

} // namespace

TEST_F(PosixTest, ReplacementThatFindsTheDiskFullLeavesTheOldFile) {
    put("file", "old");
    {
        const FileSizeLimit limit(1000);
        AtomicFile file(path("file"));
        const std::string bytes(5000, 'x');
        try {
            file.write(bytes.data(), bytes.size());
            FAIL() << "written";
        } catch (const SystemFailure& failure) {
            EXPECT_THAT(failure.what(), HasSubstr("cannot write file (" + path("file") + ")"));
        }
    }
    EXPECT_EQ(get("file"), "old");
    EXPECT_THAT(names(), ElementsAre("file"));
}

TEST_F(PosixTest, ExclusiveFileThatFindsTheDiskFullIsNotThere) {
    const FileSizeLimit limit(10);
    EXPECT_THROW(createExclusively(path("file"), std::string(100, 'x')), SystemFailure);
    EXPECT_TRUE(names().empty());
}

TEST_F(PosixTest, FullDeviceIsAFailure) {
    File full("/dev/full", OpenMode::write);
    EXPECT_THROW(full.write("x", 1), SystemFailure);
}

TEST_F(PosixTest, ReadOnlyDirectoryRefusesReplacement) {
    createDirectory(path("in"));
    put("in/file", "old");
    setMode("in/file", 0666);
    setMode("", 0777);
    setMode("in", 0555);
    {
        const OrdinaryUser user;
        EXPECT_EQ(failureOf("in/file"), "Permission denied");
        EXPECT_FALSE(isWritable(path("in")));
    }
    setMode("in", 0777);
    EXPECT_EQ(get("in/file"), "old");
}

TEST_F(PosixTest, ReadOnlyTargetRefusesReplacement) {
    put("file", "old");
    setMode("file", 0444);
    setMode("", 0777);
    {
        const OrdinaryUser user;
        EXPECT_EQ(failureOf("file"), "Permission denied");
    }
    EXPECT_EQ(get("file"), "old");
}

TEST_F(PosixTest, ReplacementKeepsPermissions) {
    put("file", "old");
    setMode("file", 0640);
    EXPECT_EQ(failureOf("file"), "none");
    EXPECT_EQ(get("file"), "new");
    EXPECT_EQ(modeOf("file"), 0640U);
}

TEST_F(PosixTest, ReplacementFollowsALink) {
    put("file", "old");
    std::filesystem::create_symlink("file", path("link"));
    AtomicFile file(path("link"));
    file.write("new", 3);
    file.commit();
    EXPECT_TRUE(isSymbolicLink(path("link")));
    EXPECT_EQ(get("file"), "new");
}

TEST_F(PosixTest, RemovingATreeDoesNotFollowLinks) {
    createDirectory(path("kept"));
    put("kept/file", "x");
    createDirectory(path("gone"));
    std::filesystem::create_directory_symlink(path("kept"), path("gone/link"));
    removeTree(path("gone"));
    EXPECT_FALSE(exists(path("gone")));
    EXPECT_EQ(get("kept/file"), "x");
}

TEST_F(PosixTest, RemovingATreeReachesNamesWithBackslashes) {
    createDirectory(path("top"));
    std::filesystem::create_directory(path("top") + "/a\\b");
    ovalis::test::writeText(path("top") + "/a\\b/c\\d", "x");
    EXPECT_EQ(listDirectory(path("top")).size(), 1U);
    removeTree(path("top"));
    EXPECT_FALSE(exists(path("top")));
}

TEST_F(PosixTest, CopyCanBeWrittenAndKeepsItsExecutableBit) {
    put("from", "x");
    setMode("from", 0555);
    copyFile(path("from"), path("to"));
    EXPECT_EQ(modeOf("to"), 0755U);
    setMode("from", 0444);
    copyFile(path("from"), path("plain"));
    EXPECT_EQ(modeOf("plain") & 0200U, 0200U);
}

TEST_F(PosixTest, SharedLockInAReadOnlyDirectoryNeedsAnExistingFile) {
    put("lock", "");
    setMode("lock", 0444);
    setMode("", 0555);
    {
        const OrdinaryUser user;
        EXPECT_TRUE(FileLock::tryAcquire(path("lock"), LockKind::shared));
        EXPECT_THROW(FileLock::tryAcquire(path("lock"), LockKind::exclusive), SystemFailure);
        EXPECT_THROW(FileLock::tryAcquire(path("other"), LockKind::shared), SystemFailure);
    }
    setMode("", 0777);
}

TEST(PosixProcessor, HasTheInstructionsThatTheSystemLists) {
    std::ifstream file("/proc/cpuinfo");
    std::string word;
    bool hasSha = false;
    bool hasSsse3 = false;
    while (file >> word) {
        hasSha = hasSha || word == "sha_ni";
        hasSsse3 = hasSsse3 || word == "ssse3";
    }
    if (word.empty())
        GTEST_SKIP() << "this system has no list of its processors' features";
    EXPECT_EQ(hasSha256Instructions(), hasSha && hasSsse3);
}

TEST_F(PosixTest, ErrorsGoToTheSystemLogAsTheyAre) {
    ovalis::test::systemLog() = {};
    EventLog log("source");
    log.reportError("100 %s of it");
    EXPECT_THAT(ovalis::test::systemLog().errors, ElementsAre("100 %s of it"));
    EXPECT_THAT(ovalis::test::systemLog().sources, testing::IsEmpty());
}

TEST_F(PosixTest, ASignalThatWaitsBeforeAFailedWriteStays) {
    sigset_t pipeSignal;
    sigemptyset(&pipeSignal);
    sigaddset(&pipeSignal, SIGPIPE);
    sigset_t before;
    pthread_sigmask(SIG_BLOCK, &pipeSignal, &before);
    pthread_kill(pthread_self(), SIGPIPE);

    PipeEnd reading;
    PipeEnd writing;
    ASSERT_TRUE(createPipe(reading, writing));
    reading.close();
    StreamDescriptor descriptor = openDescriptor(writing, PipeDirection::write);
    PipeStream stream(openStream(descriptor, PipeDirection::write));
    EXPECT_FALSE(stream.write("x", 1));

    constexpr timespec atOnce = {0, 0};
    EXPECT_EQ(sigtimedwait(&pipeSignal, nullptr, &atOnce), SIGPIPE);
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
}

// Those that ended are collected when the next one is started.
TEST_F(PosixTest, ProgramsThatNobodyWaitsForDoNotPileUp) {
    const std::string program = ovalis::test::utf8(ovalis::test::builtProgram("platform_child"));
    pid_t last = 0;
    for (int i = 0; i < 5; ++i) {
        StartedProcess started;
        ASSERT_TRUE(startProcess({program, {"child", "exit", "0"}, {}}, started));
        siginfo_t ended = {};
        ASSERT_EQ(waitid(P_ALL, 0, &ended, WEXITED | WNOWAIT), 0);
        EXPECT_NE(ended.si_pid, last);
        last = ended.si_pid;
    }
    StartedProcess started;
    ASSERT_TRUE(startProcess({program, {"child", "exit", "0"}, {}}, started));
    std::uint32_t exitCode = 1;
    ASSERT_TRUE(started.wait(exitCode));
    EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1);
    EXPECT_EQ(errno, ECHILD);
}
