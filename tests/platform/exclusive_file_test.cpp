#include "platform/exclusive_file.h"

#include "platform_tests.h"

using namespace platform;
using testing::ElementsAre;

namespace {

using ExclusiveFileTest = ovalis::test::PlatformTest;

bool always(const std::string&) {
    return true;
}

} // namespace

TEST_F(ExclusiveFileTest, IsCreatedOnlyOnce) {
    EXPECT_TRUE(createExclusively(path("file"), "mine"));
    EXPECT_FALSE(createExclusively(path("file"), "yours"));
    EXPECT_EQ(child("create", "file"), 1);
    EXPECT_EQ(get("file"), "mine");
    EXPECT_THAT(names(), ElementsAre("file"));
    EXPECT_EQ(child("create", "other"), 0);
    EXPECT_EQ(get("other"), "child");
}

TEST_F(ExclusiveFileTest, NamesTheFileWhoseDirectoryIsMissing) {
    try {
        createExclusively(path("missing/file"), "x");
        FAIL() << "created";
    } catch (const SystemFailure& failure) {
        EXPECT_EQ(failure.path(), nativePath(path("missing/file")));
    }
}

TEST_F(ExclusiveFileTest, IsRemovedOnlyWhenItsContentIsAccepted) {
    put("file", "content");
    std::string seen;
    EXPECT_FALSE(removeFileIf(path("file"), [&](const std::string& text) {
        seen = text;
        return false;
    }));
    EXPECT_EQ(seen, "content");
    EXPECT_TRUE(exists(path("file")));
    EXPECT_TRUE(removeFileIf(path("file"), always));
    EXPECT_FALSE(exists(path("file")));
    EXPECT_FALSE(removeFileIf(path("file"), always));
}
