#include <gtest/gtest.h>

#include "platform/file_lock.h"
#include "workplace.h"

namespace cli::test {
namespace {

std::vector<std::string> namesIn(const Workplace& work) {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(work.path("")))
        names.push_back(ovalis::test::utf8(entry.path().filename()));
    std::ranges::sort(names);
    return names;
}

TEST(Copy, MakesALibraryWithTheSameContents) {
    const Workplace work;
    ASSERT_EQ(work.exportIt().status, 0);
    const std::string copy = work.path("copy");
    EXPECT_EQ(ovalisProgram({"copy", work.library(), copy}),
              (Outcome{0, "", "copied " + work.library() + " to " + copy + "\n"}));
    EXPECT_EQ(treeOf(copy), work.tree());
    EXPECT_EQ(ovalisHere({"list", copy}).out, ovalisHere({"list", work.library()}).out);
    EXPECT_EQ(ovalisHere({"check", copy}), (Outcome{0, "", ""}));
}

TEST(Copy, LeavesWhatIsAtTheDestinationAlone) {
    const Workplace work;
    ASSERT_EQ(work.exportIt().status, 0);
    const std::string copy = work.path("copy");
    std::filesystem::create_directory(copy);
    EXPECT_EQ(ovalisHere({"copy", work.library(), copy}),
              (Outcome{2, "", "ovalis: " + copy + ": exists already\n"}));
    EXPECT_TRUE(std::filesystem::is_empty(copy));
}

TEST(Copy, RefusesAPlaceInsideOfTheLibrary) {
    const Workplace work;
    ASSERT_EQ(work.exportIt().status, 0);
    const Tree before = work.tree();
    const std::string copy = work.library() + "/copy";
    EXPECT_EQ(
        ovalisHere({"copy", work.library(), copy}),
        (Outcome{2, "",
                 "ovalis: " + copy + ": lies inside of the library " + work.library() + "\n"}));
    EXPECT_EQ(work.tree(), before);
}

TEST(Copy, RefusesAPathWithBlanks) {
    const Workplace work;
    ASSERT_EQ(work.exportIt().status, 0);
    const std::string copy = work.path("a copy");
    EXPECT_EQ(ovalisHere({"copy", work.library(), copy}),
              (Outcome{2, "",
                       "ovalis: " + copy +
                           ": Specified OpenAccess library path is not compatible with VEX: do "
                           "not use whitespaces.\n"}));
}

TEST(Copy, NamesAMissingParent) {
    const Workplace work;
    ASSERT_EQ(work.exportIt().status, 0);
    const std::string copy = work.path("absent/copy");
    EXPECT_EQ(ovalisHere({"copy", work.library(), copy}),
              (Outcome{2, "", "ovalis: " + copy + ": the directory above it does not exist\n"}));
}

TEST(Copy, RemovesACopyThatFailed) {
    const Workplace work;
    ASSERT_EQ(work.exportIt().status, 0);
    std::filesystem::remove(work.library() + "/.oalib");
    const std::string copy = work.path("copy");
    EXPECT_EQ(ovalisHere({"copy", work.library(), copy}).status, 2);
    EXPECT_EQ(namesIn(work), (std::vector<std::string>{"component.json", "layout.json", "lib"}));
}

TEST(Copy, ClearsWhatAKilledOneHasLeft) {
    const Workplace work;
    ASSERT_EQ(work.exportIt().status, 0);
    std::filesystem::create_directories(work.path(".ovalis-copy-copy/coil/layout"));
    ovalis::test::writeText(work.path(".ovalis-copy-copy/coil/layout/layout.oa"), "half");
    ovalis::test::writeText(work.path(".ovalis-copy.copy"), "");
    ASSERT_EQ(ovalisHere({"copy", work.library(), work.path("copy")}).status, 0);
    EXPECT_EQ(treeOf(work.path("copy")), work.tree());
    EXPECT_EQ(namesIn(work),
              (std::vector<std::string>{"component.json", "copy", "layout.json", "lib"}));
}

TEST(Copy, WaitsForNoOtherToTheSamePlace) {
    const Workplace work;
    ASSERT_EQ(work.exportIt().status, 0);
    std::filesystem::create_directory(work.path(".ovalis-copy-copy"));
    const std::string copy = work.path("copy");
    {
        const auto lock = platform::FileLock::tryAcquire(work.path(".ovalis-copy.copy"),
                                                         platform::LockKind::exclusive);
        EXPECT_EQ(ovalisProgram({"copy", work.library(), copy}),
                  (Outcome{2, "", "ovalis: " + copy + ": another process is copying to it\n"}));
    }
    EXPECT_EQ(namesIn(work), (std::vector<std::string>{".ovalis-copy-copy", "component.json",
                                                       "layout.json", "lib"}));
}

} // namespace
} // namespace cli::test
