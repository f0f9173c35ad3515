#include <gtest/gtest.h>

#include "cli/library_access.h"
#include "workplace.h"

namespace cli::test {
namespace {

namespace fs = std::filesystem;

using ovalis::test::writeText;

struct Broken : std::runtime_error {
    Broken() : std::runtime_error("broken on purpose") {}
};

Watcher breakAt(Step step) {
    return [step](Step now) {
        if (now == step)
            throw Broken();
    };
}

constexpr Step beforeTheEnd[] = {Step::libraryReady, Step::technologyReady, Step::layoutDrawn,
                                 Step::masterMade,   Step::symbolDrawn,     Step::oldCellAside};

TEST(ExportFailure, LeavesTheOldCellWholeAtEveryStep) {
    Workplace work;
    ASSERT_EQ(work.exportIt().status, 0);
    const Tree before = work.tree();
    work.layout["layers"][0]["polygons"].erase(0);
    for (const Step step : beforeTheEnd) {
        EXPECT_THROW(work.exportWatched(breakAt(step), true), Broken);
        EXPECT_EQ(work.tree(), before) << static_cast<int>(step);
    }
    EXPECT_TRUE(work.exportWatched([](Step) {}, true).replaced);
    EXPECT_NE(work.tree(), before);
}

TEST(ExportFailure, LeavesNoHalfMadeCellAtEveryStep) {
    Workplace work;
    ASSERT_EQ(work.exportIt().status, 0);
    const Tree before = work.tree();
    work.component["name"] = "second";
    for (const Step step : beforeTheEnd) {
        EXPECT_THROW(work.exportWatched(breakAt(step)), Broken);
        EXPECT_EQ(work.tree(), before) << static_cast<int>(step);
    }
}

TEST(ExportFailure, LeavesNoLibraryThatItMadeItself) {
    const Workplace work;
    for (const Step step : beforeTheEnd) {
        EXPECT_THROW(work.exportWatched(breakAt(step)), Broken);
        EXPECT_FALSE(fs::exists(work.library())) << static_cast<int>(step);
    }
}

TEST(ExportFailure, AFileWithTheNameOfTheCellIsLeftAlone) {
    Workplace work;
    ASSERT_EQ(work.exportIt().status, 0);
    writeText(work.library() + "/second", "mine");
    const Tree before = work.tree();
    work.component["name"] = "second";
    const Outcome exported = work.exportIt({"--replace"});
    EXPECT_EQ(exported.status, 2);
    EXPECT_TRUE(exported.talk.ends_with("second: is no cell, but in the way of one\n"))
        << exported.talk;
    EXPECT_EQ(work.tree(), before);
}

/// What a process leaves that is killed between moving the old cell aside and the new one in.
void leaveHalfWay(const std::string& library) {
    fs::create_directories(library + "/.ovalis-export/old");
    fs::create_directories(library + "/.ovalis-export/new/coil/layout");
    fs::rename(library + "/coil", library + "/.ovalis-export/old/coil");
}

TEST(ExportFailure, TheNextExportPutsBackACellThatAKilledOneMovedAside) {
    Workplace work;
    ASSERT_EQ(work.exportIt().status, 0);
    const Tree before = work.tree();
    leaveHalfWay(work.library());
    work.component["name"] = "second";
    ASSERT_EQ(work.exportIt().status, 0);
    Tree after = work.tree();
    std::erase_if(after, [](const auto& entry) { return entry.first.starts_with("second"); });
    EXPECT_EQ(after, before);
}

TEST(ExportFailure, TheSameExportCanBeRepeatedAfterAKill) {
    const Workplace work;
    ASSERT_EQ(work.exportIt().status, 0);
    leaveHalfWay(work.library());
    EXPECT_EQ(work.exportIt({"--replace"}).status, 0);
    EXPECT_EQ(ovalisHere({"check", work.library()}).status, 0);
    EXPECT_FALSE(fs::exists(work.library() + "/.ovalis-export"));
}

TEST(ExportFailure, ALibraryInUseIsLeftAlone) {
    const Workplace work;
    ASSERT_EQ(work.exportIt().status, 0);
    const Tree before = work.tree();
    {
        const ovalis::LibPtr user = ovalis::openLib(work.library(), true, "user");
        EXPECT_EQ(
            ovalisProgram({"export", work.componentFile(), "--lib", work.library(), "--replace"}),
            (Outcome{2, "",
                     "ovalis: Could not obtain access to library at " + work.library() + "\n"}));
    }
    EXPECT_EQ(work.tree(), before);
}

TEST(ExportFailure, ACellInUseIsLeftAlone) {
    const Workplace work;
    ASSERT_EQ(work.exportIt().status, 0);
    const Tree before = work.tree();
    {
        const ovalis::LibPtr user = ovalis::openLib(work.library(), true, "user");
        const OpenDesign edited(ovalis::openDesign(*user, "coil", "layout", true));
        user->releaseAccess();
        EXPECT_EQ(
            ovalisProgram({"export", work.componentFile(), "--lib", work.library(), "--replace"}),
            (Outcome{2, "",
                     "ovalis: " + work.library() +
                         ": the cell coil is locked, somebody edits it\n"}));
    }
    EXPECT_EQ(work.tree(), before);
}

TEST(ExportFailure, ALibraryWithoutItsMarkerIsLeftAlone) {
    const Workplace work;
    ASSERT_EQ(work.exportIt().status, 0);
    fs::remove(work.library() + "/.oalib");
    const Tree before = work.tree();
    EXPECT_EQ(work.exportIt({"--replace"}),
              (Outcome{2, "", "ovalis: " + work.library() + ": .oalib not found\n"}));
    EXPECT_EQ(work.tree(), before);
}

TEST(ExportFailure, AMissingParentIsNamed) {
    const Workplace work;
    const std::string library = work.path("absent/lib");
    EXPECT_EQ(ovalisHere({"export", work.componentFile(), "--lib", library}),
              (Outcome{2, "", "ovalis: " + library + ": the directory above it does not exist\n"}));
}

TEST(ExportFailure, ADirectoryWithOtherFilesIsNoPlaceForALibrary) {
    const Workplace work;
    fs::create_directory(work.library());
    writeText(work.library() + "/diary.txt", "mine");
    const Outcome exported = work.exportIt();
    EXPECT_EQ(exported.status, 2);
    EXPECT_NE(exported.talk.find(work.library()), std::string::npos);
    EXPECT_EQ(work.tree(), (Tree{{"diary.txt", "mine"}}));
}

} // namespace
} // namespace cli::test
