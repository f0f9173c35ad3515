#include "tech_tests.h"

#include "support/places.h"
#include "support/run_program.h"

#include <filesystem>

using namespace oa;
using namespace ovalis::test;

namespace {

/// What another process says when it opens the technology of a library.
std::string openElsewhere(const NewLibrary& library, const std::string& mode,
                          const std::string& then = "close") {
    return runProgram(builtProgram("open_tech"), {library.path(), mode, then}).output;
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
    EXPECT_EQ(openElsewhere(tech, "a", "die"), "open");
    EXPECT_TRUE(std::filesystem::exists(lockFile(tech)));
    EXPECT_EQ(oaTech::open(tech.lib(), 'a')->getMode(), 'a');
}
