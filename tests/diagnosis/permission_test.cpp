#include "diagnosis/installation.h"
#include "platform/ordinary_user.h"

namespace diagnosis::test {
namespace {

namespace fs = std::filesystem;

using testing::Contains;

TEST(Permission, AFileThatMayNotBeReadIsTold) {
    Installation here;
    here.writeFile();
    here.writesFile = false;
    fs::permissions(here.path(""), fs::perms(0755));
    fs::permissions(here.path("pcellBroker.cfg"), fs::perms(0000));
    const ovalis::test::OrdinaryUser user;
    const Report report = here.diagnose();
    EXPECT_EQ(report.refusal, "failed to open '" + here.file() + "'");
    EXPECT_EQ(report.faults, (Faults{{here.file() + " cannot be read: Permission denied",
                                      "give this user the right to read it"}}));
}

TEST(Permission, AProgramThatMayNotBeExecutedIsTold) {
    Installation here;
    here.writeFile();
    here.writesFile = false;
    fs::permissions(here.path(""), fs::perms(0755));
    fs::permissions(here.path("pcellBroker.cfg"), fs::perms(0644));
    fs::permissions(here.path("broker6"), fs::perms(0744));
    const ovalis::test::OrdinaryUser user;
    EXPECT_THAT(
        here.diagnose().faults,
        Contains(Fault{"BROKER_EXE_6 (line 3): " + here.at("broker6") + " is not executable",
                       "give this user the right to execute it"}));
}

TEST(Permission, APlugInDirectoryThatMayNotBeReadIsTold) {
    Installation here;
    here.lines.push_back("OA_PLUGIN_DIR_6=plugins");
    here.write("plugins/coil.plg", "");
    here.writeFile();
    here.writesFile = false;
    fs::permissions(here.path(""), fs::perms(0755));
    fs::permissions(here.path("pcellBroker.cfg"), fs::perms(0644));
    fs::permissions(here.path("plugins"), fs::perms(0700));
    const ovalis::test::OrdinaryUser user;
    EXPECT_THAT(here.diagnose().faults,
                Contains(Fault{"OA_PLUGIN_DIR_6 (line 5): " + here.at("plugins") +
                                   " cannot be read: Permission denied",
                               "give this user the right to read it"}));
}

} // namespace
} // namespace diagnosis::test
