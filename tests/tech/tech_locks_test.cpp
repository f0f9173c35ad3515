#include "tech_tests.h"

#include "support/places.h"
#include "support/run_program.h"

#include "platform/child_process.h"

#include <chrono>
#include <filesystem>
#include <thread>

using namespace oa;
using namespace ovalis::test;

namespace {

/// What another process says when it opens the technology of a library.
std::string openElsewhere(const NewLibrary& library, const std::string& mode) {
    return runProgram(builtProgram("open_tech"), {library.path(), mode}).output;
}

/// Opens the technology of a library in another process and kills that.
void openAndDieElsewhere(const NewLibrary& library, const std::string& mode) {
    const TemporaryDirectory directory;
    const std::string ready = directory.str() + "/ready";
    platform::ChildProcess child(utf8(builtProgram("open_tech")), {library.path(), mode, ready},
                                 {directory.str() + "/output", ""});
    for (int i = 0; i < 2000 && !std::filesystem::exists(ready); ++i)
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    child.kill();
    child.wait();
}

std::string lockFile(const NewLibrary& library) {
    return library.techFile() + ".cdslck";
}

} // namespace

TEST(TechLock, KeepsOtherProcessesFromChangingTheTechnology) {
    NewTech tech;
    tech->save();
    EXPECT_EQ(openElsewhere(tech, "a"), "locked");
    EXPECT_EQ(openElsewhere(tech, "w"), "locked");
    EXPECT_EQ(openElsewhere(tech, "r"), "open");
    tech->close();
    EXPECT_EQ(openElsewhere(tech, "a"), "open");
}

TEST(TechLock, KeepsOtherProcessesFromMakingTheTechnology) {
    NewTech tech;
    EXPECT_EQ(openElsewhere(tech, "create"), "locked");
    tech->purge();
    EXPECT_EQ(openElsewhere(tech, "create"), "open");
}

TEST(TechLock, IsNotTakenForReading) {
    NewTech tech;
    tech.saveAndReopen('r');
    EXPECT_FALSE(std::filesystem::exists(lockFile(tech)));
    EXPECT_EQ(openElsewhere(tech, "a"), "open");
}

TEST(TechLock, IsGivenBackByReopeningForReading) {
    NewTech tech;
    tech->save();
    tech->reopen('r');
    EXPECT_EQ(openElsewhere(tech, "a"), "open");
    tech->reopen('a');
    EXPECT_EQ(openElsewhere(tech, "a"), "locked");
}

TEST(TechLock, IsGivenBackWithTheLibrary) {
    NewTech tech;
    tech->save();
    EXPECT_TRUE(std::filesystem::exists(lockFile(tech)));
    tech.lib()->close();
    EXPECT_FALSE(std::filesystem::exists(lockFile(tech)));
}

TEST(TechLock, OfADeadProcessIsTakenOver) {
    NewTech tech;
    tech->save();
    tech->close();
    openAndDieElsewhere(tech, "a");
    EXPECT_TRUE(std::filesystem::exists(lockFile(tech)));
    EXPECT_EQ(oaTech::open(tech.lib(), 'a')->getMode(), 'a');
}
