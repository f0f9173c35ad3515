#include <gtest/gtest.h>

#include <chrono>
#include <thread>

#include "platform/child_process.h"
#include "platform/file_lock.h"
#include "platform/process.h"
#include "workplace.h"

namespace cli::test {
namespace {

using ovalis::test::readText;
using ovalis::test::writeText;

const std::string deadProcess = "4194303";

/// A library with a cell "coil" whose layout may be locked.
class Locks : public testing::Test {
protected:
    Locks() { EXPECT_EQ(work.exportIt().status, 0); }

    Outcome locks(const std::vector<std::string>& more = {}) const {
        std::vector<std::string> arguments = {"locks", work.library()};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return ovalisHere(arguments);
    }

    nlohmann::json list(const std::vector<std::string>& more = {"--json"}) const {
        return nlohmann::json::parse(locks(more).out)["locks"];
    }

    /// A lock on the layout whose holder is described so.
    void lockLayout(const std::string& host, const std::string& process) const {
        writeText(lockFile, "# comment\nLockStakeVersion   1.1\nLoginName   jane\nHostName   " +
                                host + "\nProcessIdentifier   " + process + "\nOSType   " +
                                platform::systemName() +
                                "\nTimeEditLocked   Sun Nov 22 01:02:03 2026\n");
    }

    nlohmann::json layoutLock(const std::string& state, const std::string& host,
                              const std::string& process) const {
        return {{"file", "coil/layout/layout.oa"},
                {"kind", "edit"},
                {"state", state},
                {"user", "jane"},
                {"host", host},
                {"process", process},
                {"since", "Sun Nov 22 01:02:03 2026"}};
    }

    const Workplace work;
    const std::string lockFile = work.library() + "/coil/layout/layout.oa.cdslck";
    const std::string here = platform::hostName();
};

/// Another process that holds a lock until it is killed.
class Holder {
public:
    Holder(const std::string& action, const std::string& target, const std::string& ready)
        : process_(ovalis::test::utf8(ovalis::test::builtProgram("dm_child")),
                   {action, target, ready}) {
        for (int i = 0; i < 2000 && !std::filesystem::exists(ready); ++i)
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }

    void kill() {
        process_.kill();
        process_.wait();
    }

private:
    platform::ChildProcess process_;
};

TEST_F(Locks, OfAQuietLibraryAreNone) {
    EXPECT_EQ(ovalisProgram({"locks", work.library()}), (Outcome{0, "", ""}));
    EXPECT_EQ(locks({"--clear"}), (Outcome{0, "", ""}));
    EXPECT_EQ(
        locks({"--json"}),
        (Outcome{0, "{\n  \"directory\": \"" + work.library() + "\",\n  \"locks\": []\n}\n", ""}));
}

TEST_F(Locks, AreToldOneALine) {
    lockLayout(here, deadProcess);
    writeText(work.library() + "/tech.db.cdslck", "");
    EXPECT_EQ(locks(), (Outcome{0,
                                "coil/layout/layout.oa  edit  dead  jane@" + here + ", process " +
                                    deadProcess + "  since Sun Nov 22 01:02:03 2026\n" +
                                    "tech.db                edit  dead  somebody\n",
                                ""}));
}

TEST_F(Locks, OfALivingProcessAreHeldAndStay) {
    const Holder holder("hold-edit", work.library() + "/coil/layout/layout.oa", work.path("ready"));
    const nlohmann::json held = list();
    ASSERT_EQ(held.size(), 1U);
    EXPECT_EQ(held[0]["state"], "held");
    EXPECT_EQ(held[0]["kind"], "edit");
    EXPECT_EQ(held[0]["host"], here);
    EXPECT_EQ(held[0]["user"], platform::loginName());
    EXPECT_TRUE(held[0]["since"].is_string());
    EXPECT_NE(readText(lockFile).find(" " + held[0]["process"].get<std::string>() + "\n"),
              std::string::npos);
    EXPECT_EQ(list({"--clear", "--json"}), held);
    EXPECT_TRUE(std::filesystem::exists(lockFile));
}

TEST_F(Locks, OfAKilledProcessAreDeadAndAreCleared) {
    Holder holder("hold-edit", work.library() + "/coil/layout/layout.oa", work.path("ready"));
    holder.kill();
    ASSERT_TRUE(std::filesystem::exists(lockFile));
    EXPECT_EQ(list()[0]["state"], "dead");
    ASSERT_TRUE(std::filesystem::exists(lockFile));
    EXPECT_EQ(list({"--clear", "--json"})[0]["state"], "cleared");
    EXPECT_FALSE(std::filesystem::exists(lockFile));
    EXPECT_EQ(locks(), (Outcome{0, "", ""}));
}

TEST_F(Locks, AreClearedOnlyWhenTheHolderIsProvablyDead) {
    const std::string living = std::to_string(platform::currentProcessId());
    const struct {
        std::string host;
        std::string process;
        const char* state;
    } holders[] = {{here, deadProcess, "cleared"},
                   {here, living, "held"},
                   {here, living + "\nProcessInstance   earlier", "cleared"},
                   {here + "x", deadProcess, "unknown"},
                   {here, "none", "unknown"}};
    for (const auto& [host, process, state] : holders) {
        lockLayout(host, process);
        const std::string number = process.substr(0, process.find('\n'));
        EXPECT_EQ(list({"--clear", "--json"})[0], layoutLock(state, host, number));
        EXPECT_EQ(std::filesystem::exists(lockFile), std::string(state) != "cleared");
    }
}

TEST_F(Locks, ThatCameWithACopyAreCleared) {
    const Holder holder("hold-edit", work.library() + "/coil/layout/layout.oa", work.path("ready"));
    const std::string copy = work.path("copy");
    std::filesystem::copy(work.library(), copy, std::filesystem::copy_options::recursive);
    EXPECT_EQ(ovalisHere({"locks", copy, "--clear"}).status, 0);
    EXPECT_FALSE(std::filesystem::exists(copy + "/coil/layout/layout.oa.cdslck"));
    EXPECT_EQ(list()[0]["state"], "held");
}

TEST_F(Locks, OfUnknownFormAreKept) {
    writeText(lockFile, "something else\n");
    EXPECT_EQ(locks({"--clear"}),
              (Outcome{0, "coil/layout/layout.oa  edit  unknown  somebody\n", ""}));
    EXPECT_TRUE(std::filesystem::exists(lockFile));
}

TEST_F(Locks, LeftEmptyByACrashAreCleared) {
    writeText(lockFile, "");
    EXPECT_EQ(locks({"--clear"}),
              (Outcome{0, "coil/layout/layout.oa  edit  cleared  somebody\n", ""}));
    EXPECT_FALSE(std::filesystem::exists(lockFile));
}

TEST_F(Locks, OfWhoHasAccessAreToldAndEndWithTheProcess) {
    for (const char* kind : {"read", "write"}) {
        const std::string ready = work.path(std::string("ready_") + kind);
        Holder holder(std::string("hold-") + kind, work.library(), ready);
        const nlohmann::json held = list({"--clear", "--json"});
        ASSERT_EQ(held.size(), 1U);
        EXPECT_EQ(held[0]["file"], ".");
        EXPECT_EQ(held[0]["kind"], kind);
        EXPECT_EQ(held[0]["state"], "held");
        // Not every system tells whose it is.
        EXPECT_TRUE(held[0]["process"].is_null() || held[0]["host"] == here);
        holder.kill();
        EXPECT_EQ(list(), nlohmann::json::array());
    }
}

TEST_F(Locks, NeedALibrary) {
    EXPECT_EQ(ovalisHere({"locks", work.path("none")}),
              (Outcome{2, "", "ovalis: OA Library not found at " + work.path("none") + "\n"}));
}

} // namespace
} // namespace cli::test
