#include "dm/src/edit_lock.h"

#include "dm_tests.h"
#include "platform/process.h"

using namespace oa;
using namespace ovalis::test;
using impl::EditLock;
using testing::ElementsAre;
using testing::HasSubstr;

namespace {

class EditLockTest : public DMTest {
protected:
    const std::string file = path("layout.oa");
    const std::string lockFile = path("layout.oa.cdslck");

    /// A lock file whose holder is described by these lines.
    void putLock(const std::string& host, const std::string& system, const std::string& process) {
        put("layout.oa.cdslck", "# comment\nLockStakeVersion 1.1\nLoginName  somebody\nHostName  " +
                                    host + "\nProcessIdentifier   " + process + "\nOSType   " +
                                    system + "\n");
    }

    std::string valueOf(const std::string& key) {
        const std::string text = "\n" + get("layout.oa.cdslck");
        const std::size_t at = text.find("\n" + key + " ");
        if (at == std::string::npos)
            return "missing";
        const std::size_t start = text.find_first_not_of(' ', at + key.size() + 1);
        return text.substr(start, text.find('\n', start) - start);
    }
};

constexpr int refused = 1;
const std::string deadProcess = "4194303";

} // namespace

TEST_F(EditLockTest, TellsWhoHoldsIt) {
    const auto lock = EditLock::tryAcquire(file);
    ASSERT_TRUE(lock);
    EXPECT_EQ(get("layout.oa.cdslck").front(), '#');
    EXPECT_EQ(valueOf("LockStakeVersion"), "1.1");
    EXPECT_EQ(valueOf("LoginName"), platform::loginName());
    EXPECT_EQ(valueOf("HostName"), platform::hostName());
    EXPECT_EQ(valueOf("ProcessIdentifier"), std::to_string(platform::currentProcessId()));
    EXPECT_EQ(valueOf("AppIdentifier"), "OA File System Design Manager");
    EXPECT_EQ(valueOf("OSType"), platform::systemName());
    EXPECT_EQ(valueOf("ReasonForPlacingEditLock"), "OpenAccess edit lock");
    EXPECT_EQ(valueOf("FilePathUsedToEditLock"), platform::absolutePath(file));
    for (const char* key :
         {"ProcessCreationTime_UTC", "ProcessCreationTime_Readable", "TimeEditLocked"})
        EXPECT_NE(valueOf(key), "missing") << key;
}

TEST_F(EditLockTest, IsHeldByOneAtATime) {
    auto lock = EditLock::tryAcquire(file);
    EXPECT_FALSE(EditLock::tryAcquire(file));
    EXPECT_EQ(child("try-edit", "layout.oa"), refused);
    EXPECT_EQ(EditLock::status(file), oacLockedByCurrentProcess);
    lock.reset();
    EXPECT_FALSE(platform::exists(lockFile));
    EXPECT_EQ(EditLock::status(file), oacNotLocked);
    EXPECT_TRUE(EditLock::tryAcquire(file));
}

TEST_F(EditLockTest, GoesWithItsOwner) {
    auto first = EditLock::tryAcquire(file);
    auto second = EditLock::tryAcquire(path("other.oa"));
    *second = std::move(*first);
    first.reset();
    EXPECT_THAT(namesOnDisk(""), ElementsAre("layout.oa.cdslck"));
    second->release();
    second->release();
    EXPECT_THAT(namesOnDisk(""), testing::IsEmpty());
}

TEST_F(EditLockTest, RefusalNamesTheHolder) {
    const EditLock lock = EditLock::acquire(file);
    const Thrown thrown = thrownBy([&] { EditLock::acquire(file); });
    EXPECT_EQ(thrown.id, oacCannotLockDatabase);
    EXPECT_EQ(thrown.text, "'" + file +
                               "' cannot be locked for editing: it is being edited by process " +
                               std::to_string(platform::currentProcessId()) + " of user " +
                               platform::loginName() + " on host " + platform::hostName() + " ('" +
                               lockFile + "').");
}

TEST_F(EditLockTest, FailureOfTheSystemIsARefusal) {
    const Thrown thrown = thrownBy([&] { EditLock::acquire(path("missing/layout.oa")); });
    EXPECT_EQ(thrown.id, oacCannotLockDatabase);
    EXPECT_THAT(thrown.text, testing::StartsWith("'" + path("missing/layout.oa") +
                                                 "' cannot be locked for editing: "));
}

TEST_F(EditLockTest, OfALivingProcessIsKept) {
    WaitingChild holder("hold-edit", file, path("ready"));
    EXPECT_FALSE(EditLock::tryAcquire(file));
    EXPECT_EQ(EditLock::status(file), oacLockedByForeignProcess);
}

TEST_F(EditLockTest, OfAKilledProcessIsTakenOver) {
    WaitingChild holder("hold-edit", file, path("ready"));
    ASSERT_FALSE(EditLock::tryAcquire(file));
    holder.kill();
    ASSERT_TRUE(platform::exists(lockFile));
    EXPECT_EQ(EditLock::status(file), oacNotLocked);
    const auto lock = EditLock::tryAcquire(file);
    ASSERT_TRUE(lock);
    EXPECT_EQ(valueOf("ProcessIdentifier"), std::to_string(platform::currentProcessId()));
    EXPECT_THAT(namesOnDisk(""), ElementsAre("layout.oa.cdslck", "ready"));
}

TEST_F(EditLockTest, IsGivenBackByAProcessThatEndsWithoutReleasing) {
    EXPECT_EQ(child("try-edit", "layout.oa"), 0);
    EXPECT_FALSE(platform::exists(lockFile));
}

TEST_F(EditLockTest, IsTakenOverOnlyWhereTheHolderCanBeJudged) {
    const std::string here = platform::hostName();
    const std::string system = platform::systemName();
    const std::string otherSystem = system == "unix" ? "windows" : "unix";
    const struct {
        std::string host;
        std::string system;
        std::string process;
        bool taken;
    } locks[] = {{here, system, deadProcess, true},
                 {here + "x", system, deadProcess, false},
                 {here, otherSystem, deadProcess, false},
                 {here, system, "none", false},
                 {here, system, std::to_string(platform::currentProcessId()), false}};
    for (const auto& [host, os, process, taken] : locks) {
        putLock(host, os, process);
        EXPECT_EQ(EditLock::tryAcquire(file).has_value(), taken) << host << os << process;
        EXPECT_EQ(platform::exists(lockFile), !taken);
    }
}

TEST_F(EditLockTest, OfAnEarlierProcessWithThisNumberIsTakenOver) {
    putLock(platform::hostName(), platform::systemName(),
            std::to_string(platform::currentProcessId()) + "\nProcessInstance  earlier");
    EXPECT_TRUE(EditLock::tryAcquire(file));
}

TEST_F(EditLockTest, ThatCameWithACopyIsTakenOver) {
    platform::createDirectory(path("original"));
    platform::createDirectory(path("copy"));
    const auto lock = EditLock::tryAcquire(path("original/layout.oa"));
    platform::copyFile(path("original/layout.oa.cdslck"), path("copy/layout.oa.cdslck"));
    EXPECT_FALSE(EditLock::tryAcquire(path("original/layout.oa")));
    EXPECT_EQ(EditLock::status(path("copy/layout.oa")), oacNotLocked);
    EXPECT_TRUE(EditLock::tryAcquire(path("copy/layout.oa")));
}

TEST_F(EditLockTest, ThatIsStaleIsTakenOverByOneOfManyAtOnce) {
    for (int round = 0; round < 3; ++round) {
        putLock(platform::hostName(), platform::systemName(), deadProcess);
        std::vector<std::unique_ptr<platform::ChildProcess>> children;
        const auto ready = [&](std::size_t i) {
            return path("ready" + std::to_string(round) + std::to_string(i));
        };
        for (std::size_t i = 0; i < 4; ++i)
            children.push_back(std::make_unique<platform::ChildProcess>(
                utf8(builtProgram("dm_child")),
                std::vector<std::string>{"hold-edit", file, ready(i)}));
        std::size_t winner = children.size();
        for (int wait = 0; winner == children.size() && wait < 6000; ++wait) {
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
            for (std::size_t i = 0; i < children.size(); ++i)
                winner = platform::exists(ready(i)) ? i : winner;
        }
        ASSERT_LT(winner, children.size());
        for (std::size_t i = 0; i < children.size(); ++i)
            if (i != winner) {
                EXPECT_EQ(children[i]->wait(), refused);
            }
    }
}

TEST_F(EditLockTest, OfUnknownFormIsKeptAndNamed) {
    put("layout.oa.cdslck", "something else");
    const Thrown thrown = thrownBy([&] { EditLock::acquire(file); });
    EXPECT_EQ(thrown.text,
              "'" + file + "' cannot be locked for editing: it is locked by '" + lockFile + "'.");
    EXPECT_EQ(EditLock::status(file), oacLockedByForeignProcess);
}

TEST_F(EditLockTest, LeftEmptyByACrashIsTakenOver) {
    put("layout.oa.cdslck", "");
    EXPECT_TRUE(EditLock::tryAcquire(file));
}

TEST_F(EditLockTest, ReplacedBySomebodyElseIsLeftToThem) {
    {
        const auto lock = EditLock::tryAcquire(file);
        put("layout.oa.cdslck", "theirs");
    }
    EXPECT_EQ(get("layout.oa.cdslck"), "theirs");
}

TEST_F(EditLockTest, OfAManagedFileIsThatOfItsObject) {
    oaLib* lib = createWritable("lib");
    oaDMFile* managed = make(lib, "cell", "layout", oacMaskLayout)->getPrimary();
    EXPECT_EQ(managed->getLockStatus(), oacNotLocked);
    EXPECT_TRUE(managed->getLock());
    EXPECT_FALSE(managed->getLock());
    EXPECT_EQ(managed->getLockStatus(), oacLockedByCurrentProcess);
    EXPECT_TRUE(platform::exists(path("lib/cell/layout/layout.oa.cdslck")));
    managed->releaseLock();
    EXPECT_EQ(managed->getLockStatus(), oacNotLocked);
    const Thrown thrown = thrownBy([&] { managed->releaseLock(); });
    EXPECT_EQ(thrown.id, oacDMFileNotLocked);
    EXPECT_EQ(thrown.text, "File '" + pathOf(managed) + "' is not locked through this object.");
    ASSERT_TRUE(managed->getLock());
    lib->close();
    EXPECT_FALSE(platform::exists(path("lib/cell/layout/layout.oa.cdslck")));
}

TEST_F(EditLockTest, OfAManagedFileHeldElsewhereIsRefused) {
    oaLib* lib = createWritable("lib");
    oaDMFile* managed = make(lib, "cell", "layout", oacMaskLayout)->getPrimary();
    WaitingChild holder("hold-edit", pathOf(managed), path("ready"));
    EXPECT_FALSE(managed->getLock());
    EXPECT_EQ(managed->getLockStatus(), oacLockedByForeignProcess);
    holder.kill();
    EXPECT_TRUE(managed->getLock());
}
