#include "platform/file.h"

#include "platform_tests.h"

using namespace platform;
using ovalis::test::PlatformTest;

namespace {
using DirectoryTest = PlatformTest;
} // namespace

TEST_F(DirectoryTest, ListsNamesAndKindsInOrder) {
    createDirectory(path("b"));
    put("c", "");
    put("a", "");
    put(".hidden", "");
    EXPECT_THAT(listDirectory(directory.str()),
                testing::ElementsAre(DirectoryEntry{".hidden", EntryKind::file},
                                     DirectoryEntry{"a", EntryKind::file},
                                     DirectoryEntry{"b", EntryKind::directory},
                                     DirectoryEntry{"c", EntryKind::file}));
    EXPECT_THROW(listDirectory(path("missing")), SystemFailure);
    EXPECT_THROW(listDirectory(path("a")), SystemFailure);
}

TEST_F(DirectoryTest, IsCreatedOnceAndUnderAnExistingParentOnly) {
    createDirectory(path("new"));
    EXPECT_TRUE(isDirectory(path("new")));
    EXPECT_THROW(createDirectory(path("new")), SystemFailure);
    EXPECT_THROW(createDirectory(path("no/parent")), SystemFailure);
}

TEST_F(DirectoryTest, IsRemovedWithEverythingInIt) {
    createDirectory(path("top"));
    createDirectory(path("top/in"));
    put("top/in/file", "x");
    EXPECT_THROW(removeDirectory(path("top")), SystemFailure);
    removeTree(path("top"));
    EXPECT_FALSE(exists(path("top")));
    removeTree(path("top"));
}

TEST_F(DirectoryTest, RemovesSingleFiles) {
    put("file", "x");
    removeFile(path("file"));
    EXPECT_FALSE(exists(path("file")));
    EXPECT_THROW(removeFile(path("file")), SystemFailure);
    put("file", "x");
    removeTree(path("file"));
    EXPECT_FALSE(exists(path("file")));
}

TEST_F(DirectoryTest, RenamingReplacesAFile) {
    put("from", "new");
    put("to", "old");
    renameFile(path("from"), path("to"));
    EXPECT_EQ(get("to"), "new");
    EXPECT_FALSE(exists(path("from")));
    EXPECT_THROW(renameFile(path("from"), path("to")), SystemFailure);
}

TEST_F(DirectoryTest, CopyingReplacesTheContent) {
    put("from", std::string(3'000'000, 'x') + "end");
    put("to", "old");
    copyFile(path("from"), path("to"));
    EXPECT_EQ(get("to"), get("from"));
    EXPECT_THROW(copyFile(path("missing"), path("to")), SystemFailure);
    EXPECT_EQ(get("to"), get("from"));
}

TEST_F(DirectoryTest, CopyingAFileOntoItselfKeepsIt) {
    put("file", "content");
    copyFile(path("file"), path("file"));
    EXPECT_EQ(get("file"), "content");
}
