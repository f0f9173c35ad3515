#include "platform/path.h"

#include "platform/file.h"
#include "support/files.h"
#include "support/temporary_directory.h"

#include <gtest/gtest.h>

using namespace platform;
using ovalis::test::TemporaryDirectory;

TEST(Path, JoinsWithOneSeparatorOfTheSystem) {
    const std::string separator(1, pathSeparator());
    EXPECT_EQ(joinPath("a", "b"), "a" + separator + "b");
    EXPECT_EQ(joinPath("a" + separator, "b"), "a" + separator + "b");
    EXPECT_EQ(joinPath("", "b"), "b");
}

TEST(Path, SplitsAtBothSeparators) {
    EXPECT_EQ(fileName("a/b.txt"), "b.txt");
    EXPECT_EQ(fileName("a\\b.txt"), "b.txt");
    EXPECT_EQ(fileName("b.txt"), "b.txt");
    EXPECT_EQ(fileName("a/"), "");
    EXPECT_EQ(parentPath("a/b"), "a");
    EXPECT_EQ(parentPath("a\\b"), "a");
    EXPECT_EQ(parentPath("b"), ".");
    EXPECT_EQ(parentPath("/b"), "/");
}

TEST(Path, MakesPathsAbsoluteThatDoNotExist) {
    EXPECT_EQ(absolutePath("no/such/file"),
              joinPath(joinPath(joinPath(currentDirectory(), "no"), "such"), "file"));
    EXPECT_EQ(absolutePath("x/.././y"), joinPath(currentDirectory(), "y"));
    EXPECT_EQ(absolutePath("."), currentDirectory());
}

TEST(Path, ReachesAFileThroughEitherSeparator) {
    const TemporaryDirectory directory;
    createDirectory(directory.str() + "/in");
    ovalis::test::writeText(directory.path() / "in" / "file", "x");
    EXPECT_TRUE(isFile(directory.str() + "/in/file"));
    EXPECT_TRUE(isFile(directory.str() + "\\in\\file"));
}

TEST(Path, HasOneCanonicalFormForOneFile) {
    const TemporaryDirectory directory;
    createDirectory(directory.str() + "/in");
    EXPECT_EQ(canonicalPath(directory.str() + "/in/../in/."),
              canonicalPath(directory.str() + "/in"));
    EXPECT_THROW(canonicalPath(directory.str() + "/missing"), SystemFailure);
}
