#include "platform/file_lock.h"

#include "platform_tests.h"

using namespace platform;
using testing::IsEmpty;

namespace {

class FileLockTest : public ovalis::test::PlatformTest {
protected:
    std::optional<FileLock> take(LockKind kind) { return FileLock::tryAcquire(path("lock"), kind); }
};

} // namespace

TEST_F(FileLockTest, ExclusiveExcludesEverybodyInOneProcess) {
    std::optional<FileLock> held = take(LockKind::exclusive);
    ASSERT_TRUE(held);
    EXPECT_FALSE(take(LockKind::exclusive));
    EXPECT_FALSE(take(LockKind::shared));
    held.reset();
    EXPECT_TRUE(take(LockKind::exclusive));
}

TEST_F(FileLockTest, SharedExcludesOnlyExclusive) {
    const std::optional<FileLock> held = take(LockKind::shared);
    EXPECT_TRUE(take(LockKind::shared));
    EXPECT_FALSE(take(LockKind::exclusive));
    EXPECT_EQ(child("lock-shared", "lock"), 0);
    EXPECT_EQ(child("lock-exclusive", "lock"), 1);
}

TEST_F(FileLockTest, ExcludesAnotherProcess) {
    const std::optional<FileLock> held = take(LockKind::exclusive);
    EXPECT_EQ(child("lock-shared", "lock"), 1);
    EXPECT_EQ(child("lock-exclusive", "lock"), 1);
    EXPECT_EQ(child("lock-exclusive", "other"), 0);
}

TEST_F(FileLockTest, OfADeadProcessIsFree) {
    ASSERT_EQ(child("lock-and-die", "lock"), died);
    EXPECT_TRUE(take(LockKind::exclusive));
}

TEST_F(FileLockTest, LeavesNoFileBehind) {
    {
        std::optional<FileLock> first = take(LockKind::shared);
        const std::optional<FileLock> second = take(LockKind::shared);
        first.reset();
        EXPECT_TRUE(exists(path("lock")));
    }
    EXPECT_THAT(names(), IsEmpty());
    ASSERT_EQ(child("lock-and-die", "lock"), died);
    take(LockKind::shared);
    EXPECT_THAT(names(), IsEmpty());
}

TEST_F(FileLockTest, MovesWithItsOwner) {
    std::optional<FileLock> held = take(LockKind::exclusive);
    FileLock owner = std::move(*held);
    held.reset();
    EXPECT_FALSE(take(LockKind::shared));
    owner.release();
    owner.release();
    EXPECT_TRUE(take(LockKind::shared));
}

TEST_F(FileLockTest, NamesALockFileThatCannotBeMade) {
    EXPECT_THROW(FileLock::tryAcquire(path("missing/lock"), LockKind::exclusive), SystemFailure);
    EXPECT_THROW(FileLock::tryAcquire(path("missing/lock"), LockKind::shared), SystemFailure);
}
