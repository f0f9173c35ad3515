#include "platform/atomic_file.h"

#include "platform/process.h"
#include "platform_tests.h"

using namespace platform;
using testing::ElementsAre;

namespace {
using AtomicFileTest = ovalis::test::PlatformTest;
} // namespace

TEST_F(AtomicFileTest, ShowsTheOldContentUntilCommit) {
    put("file", "old");
    AtomicFile file(path("file"));
    file.write("ne", 2);
    file.write("w", 1);
    EXPECT_EQ(get("file"), "old");
    file.commit();
    EXPECT_EQ(get("file"), "new");
    EXPECT_THAT(names(), ElementsAre("file"));
}

TEST_F(AtomicFileTest, CreatesAFileThatWasNotThere) {
    AtomicFile file(path("file"));
    file.write("new", 3);
    EXPECT_FALSE(exists(path("file")));
    file.commit();
    EXPECT_EQ(get("file"), "new");
}

TEST_F(AtomicFileTest, LeavesEverythingAsItWasWithoutCommit) {
    put("file", "old");
    { AtomicFile(path("file")).write("new", 3); }
    EXPECT_EQ(get("file"), "old");
    EXPECT_THAT(names(), ElementsAre("file"));
}

TEST_F(AtomicFileTest, ReplacesAFileThatSomebodyReads) {
    put("file", "old");
    File reader(path("file"), OpenMode::read);
    AtomicFile file(path("file"));
    file.write("new", 3);
    reader.close();
    file.commit();
    EXPECT_EQ(get("file"), "new");
}

TEST_F(AtomicFileTest, TwoAtOnceDoNotMeet) {
    AtomicFile first(path("file"));
    AtomicFile second(path("file"));
    EXPECT_NE(first.temporary(), second.temporary());
    first.write("first", 5);
    second.write("second", 6);
    second.commit();
    first.commit();
    EXPECT_EQ(get("file"), "first");
}

TEST_F(AtomicFileTest, NamesTheTargetThatCannotBeWritten) {
    createDirectory(path("taken"));
    for (const std::string name : {"missing/file", "taken"}) {
        try {
            AtomicFile file(path(name));
            ADD_FAILURE() << name;
        } catch (const SystemFailure& failure) {
            EXPECT_EQ(failure.path(), nativePath(path(name)));
        }
    }
}

TEST_F(AtomicFileTest, WritesToANameThatIsRecognised) {
    const AtomicFile file(path("file"));
    EXPECT_TRUE(isTemporaryName(fileName(file.temporary()))) << file.temporary();
    for (const char* name : {"file", ".file", "file~", ".x.tmp~", ".a.b.tmp~", "a.f-1-1.tmp~", ""})
        EXPECT_FALSE(isTemporaryName(name)) << name;
}

TEST_F(AtomicFileTest, LeavingsOfADeadProcessAreRemovedAndThoseOfTheLivingStay) {
    put("file", "old");
    ASSERT_EQ(child("write-and-die", "file"), died);
    ASSERT_EQ(child("write-and-die", "file.b"), died);
    AtomicFile living(path("file"));
    ASSERT_EQ(names().size(), 4U);
    removeStaleTemporaries(path("file"));
    EXPECT_EQ(get("file"), "old");
    EXPECT_TRUE(exists(living.temporary()));
    EXPECT_EQ(names().size(), 3U) << "the leaving for file.b stays";
    removeStaleTemporaries(path("file.b"));
    EXPECT_EQ(names().size(), 2U);
}

TEST_F(AtomicFileTest, LeavingsOfAnotherComputerStay) {
    put(".file.0-4294967294-1.tmp~", "");
    removeStaleTemporaries(path("file"));
    removeStaleTemporaries(path("missing/file"));
    EXPECT_THAT(names(), ElementsAre(".file.0-4294967294-1.tmp~"));
}
