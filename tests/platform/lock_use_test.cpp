#include "platform/lock_use.h"

#include "platform/process_mark.h"
#include "platform_tests.h"

using namespace platform;
using testing::AnyOf;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class LockUseTest : public ovalis::test::PlatformTest {};

} // namespace

TEST_F(LockUseTest, IsNothingWhenNobodyHoldsTheLock) {
    EXPECT_FALSE(lockUseOf(path("lock")));
    EXPECT_FALSE(exists(path("lock")));
    File(path("lock"), OpenMode::write).close();
    EXPECT_FALSE(lockUseOf(path("lock")));
    EXPECT_FALSE(lockUseOf(path("")));
}

TEST_F(LockUseTest, TellsReadersFromWriters) {
    for (const LockKind kind : {LockKind::shared, LockKind::exclusive}) {
        const auto held = FileLock::tryAcquire(path("lock"), kind);
        const auto use = lockUseOf(path("lock"));
        ASSERT_TRUE(use);
        EXPECT_EQ(use->kind, kind);
        // Not every system says who they are.
        EXPECT_THAT(use->processes, AnyOf(IsEmpty(), ElementsAre(currentProcessId())));
    }
}

TEST_F(LockUseTest, LeavesTheLockToItsHolder) {
    auto held = FileLock::tryAcquire(path("lock"), LockKind::exclusive);
    ASSERT_TRUE(lockUseOf(path("lock")));
    EXPECT_FALSE(FileLock::tryAcquire(path("lock"), LockKind::shared));
    held.reset();
    EXPECT_FALSE(exists(path("lock")));
}

TEST(ProcessMark, OfTheRunningProcessIsAlive) {
    ProcessMark mark{hostName(), systemName(), std::to_string(currentProcessId()), ""};
    EXPECT_EQ(fateOf(mark), ProcessFate::alive);
    mark.instance = processInstance(currentProcessId());
    EXPECT_EQ(fateOf(mark), ProcessFate::alive);
    mark.instance = "earlier";
    EXPECT_EQ(fateOf(mark), ProcessFate::dead);
}

TEST(ProcessMark, OfAnotherPlaceIsNotJudged) {
    const std::string dead = "4194303";
    EXPECT_EQ(fateOf({hostName(), systemName(), dead, ""}), ProcessFate::dead);
    EXPECT_EQ(fateOf({hostName() + "x", systemName(), dead, ""}), ProcessFate::unknown);
    EXPECT_EQ(fateOf({hostName(), "another", dead, ""}), ProcessFate::unknown);
    for (const char* number : {"", "none", "12x", "-1", "99999999999999999999"})
        EXPECT_EQ(fateOf({hostName(), systemName(), number, ""}), ProcessFate::unknown) << number;
}
