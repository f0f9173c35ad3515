#include "cli/result_file.h"

#include <gtest/gtest.h>

#include "workplace.h"

namespace cli::test {
namespace {

using ovalis::test::readText;
using ovalis::test::TemporaryDirectory;
using ovalis::test::writeText;

TEST(ResultFile, IsThereAsAWholeOnceItIsFinished) {
    const TemporaryDirectory directory;
    const std::string path = directory.str() + "/result.txt";
    writeText(path, "old");
    {
        ResultFile file(path);
        file.write("ne", 2);
        file.write("w", 1);
        EXPECT_EQ(readText(path), "old");
        file.finish();
    }
    EXPECT_EQ(treeOf(directory.str()), (Tree{{"result.txt", "new"}}));
}

TEST(ResultFile, LeavesNothingBehindUnfinished) {
    const TemporaryDirectory directory;
    const std::string path = directory.str() + "/result.txt";
    ResultFile(path).write("new", 3);
    EXPECT_EQ(treeOf(directory.str()), Tree());
    writeText(path, "old");
    ResultFile(path).write("new", 3);
    EXPECT_EQ(treeOf(directory.str()), (Tree{{"result.txt", "old"}}));
}

TEST(ResultFile, IsNoDirectory) {
    const TemporaryDirectory directory;
    EXPECT_THROW(ResultFile file(directory.str()), platform::SystemFailure);
    EXPECT_EQ(treeOf(directory.str()), Tree());
}

} // namespace
} // namespace cli::test
