#include "design_fixture.h"

#include "support/places.h"
#include "support/run_program.h"

#include "platform/child_process.h"

#include <chrono>
#include <filesystem>
#include <thread>

namespace design_test {

using namespace ovalis::test;

namespace {

class DesignLockTest : public DesignTest {
protected:
    std::string library() const { return directory.str() + "/lib"; }

    /// What another process says when it opens a design.
    std::string openElsewhere(const std::string& mode, const std::string& cell = "cell") const {
        return runProgram(builtProgram("open_design"), {library(), cell, mode}).output;
    }
    /// Opens a design in another process and kills that.
    void openAndDieElsewhere(const std::string& mode) const {
        const std::string ready = directory.str() + "/ready";
        platform::ChildProcess child(utf8(builtProgram("open_design")),
                                     {library(), "cell", mode, ready},
                                     {directory.str() + "/output", ""});
        for (int i = 0; i < 2000 && !std::filesystem::exists(ready); ++i)
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        child.kill();
        child.wait();
    }
    bool isLocked() const { return std::filesystem::exists(file("cell") + ".cdslck"); }
};

} // namespace

TEST_F(DesignLockTest, KeepsOtherProcessesFromEditing) {
    oaBlock* block = makeBlock();
    EXPECT_TRUE(isLocked());
    EXPECT_EQ(openElsewhere("r"), "missing");
    block->getDesign()->save();
    EXPECT_EQ(openElsewhere("a"), "locked");
    EXPECT_EQ(openElsewhere("w"), "locked");
    EXPECT_EQ(openElsewhere("r"), "open, 0 shapes");
    block->getDesign()->close();
    EXPECT_FALSE(isLocked());
    EXPECT_EQ(openElsewhere("a"), "open, 0 shapes");
}

TEST_F(DesignLockTest, KeepsOtherProcessesFromMakingTheDesign) {
    oaDesign* design = open("cell", 'a');
    EXPECT_EQ(openElsewhere("w"), "locked");
    EXPECT_EQ(openElsewhere("w", "another"), "open, 0 shapes");
    design->purge();
    EXPECT_EQ(openElsewhere("w"), "open, 0 shapes");
    EXPECT_FALSE(std::filesystem::exists(library() + "/cell"));
}

TEST_F(DesignLockTest, IsTakenAndGivenBackWithTheMode) {
    oaDesign* design = reopened(makeBlock(), 'r')->getDesign();
    EXPECT_FALSE(isLocked());
    design->reopen('a');
    EXPECT_TRUE(isLocked());
    design->reopen('r');
    EXPECT_FALSE(isLocked());
    open("cell", 'a');
    EXPECT_EQ(openElsewhere("a"), "locked");
    lib->close();
    EXPECT_FALSE(isLocked());
}

TEST_F(DesignLockTest, OfADeadProcessIsTakenOver) {
    reopened(makeBlock(), 'r')->getDesign()->close();
    openAndDieElsewhere("a");
    EXPECT_TRUE(isLocked());
    EXPECT_EQ(open("cell", 'a')->getMode(), 'a');
}

TEST_F(DesignLockTest, WhatAnotherProcessSavedIsReadWhenEditingStarts) {
    oaBlock* block = reopened(makeBlock(), 'r');
    oaDesign* design = block->getDesign();
    {
        // The same library under another name is another one to the database.
        oaLib* same = oaLib::open(name("same"), library().c_str());
        oaDesign* other = oaDesign::open(name("same"), name("cell"), name("layout"), 'a');
        oaDot::create(other->getTopBlock(), 1, 1, oaPoint());
        other->save();
        same->close();
    }
    EXPECT_EQ(block->getShapes().getCount(), 0u);
    design->reopen('a');
    EXPECT_FALSE(block->isValid());
    EXPECT_EQ(design->getTopBlock()->getShapes().getCount(), 1u);
}

TEST_F(DesignLockTest, TwoLibrariesOnOneDirectoryExcludeEachOther) {
    reopened(makeBlock(), 'a');
    oaLib* same = oaLib::open(name("same"), library().c_str());
    EXPECT_EQ(thrownBy([] { oaDesign::open(name("same"), name("cell"), name("layout"), 'a'); }),
              oacCannotLockDatabase);
    EXPECT_EQ(oaDesign::find(name("same"), name("cell"), name("layout")), nullptr);
    same->close();
}

} // namespace design_test
