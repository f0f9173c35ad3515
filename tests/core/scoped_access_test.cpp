#include <ovalis/core.h>

#include <type_traits>

#include <gtest/gtest.h>

#include "support/library_fixture.h"

using namespace ovalis;
using ovalis::test::failureOf;
using ovalis::test::messageIdOf;

namespace {

const oa::oaLibAccess readAccess(oa::oacReadLibAccess);
const oa::oaLibAccess writeAccess(oa::oacWriteLibAccess);

class LibraryAccess : public ovalis::test::FolderTest {
protected:
    LibraryAccess() : lib_(createLib(pathOf("lib"), "lib")) {}

    oa::oaLib& lib() { return *lib_; }

    /// The same directory as another library object, which counts as somebody else.
    LibPtr elsewhere() {
        const oa::oaScalarName name(oa::oaNativeNS(), "elsewhere");
        return LibPtr(oa::oaLib::open(name, toOa(pathOf("lib"))));
    }

private:
    LibPtr lib_;
};

class FileLock : public ovalis::test::LibraryTest {
protected:
    FileLock() : file_(*oa::oaDMFile::create(&lib(), "notes.txt")) {}

    oa::oaDMFile& file() { return file_; }
    bool isLocked() const { return file_.getLockStatus() != oa::oacNotLocked; }

private:
    oa::oaDMFile& file_;
};

} // namespace

TEST_F(LibraryAccess, IsHeldForTheScope) {
    {
        const ScopedLibAccess access(lib(), readAccess, 0);
        EXPECT_TRUE(access.hasAccess());
        EXPECT_FALSE(!access);
        EXPECT_EQ(lib().getAccessLevel(), oa::oacReadLibAccessLevel);
    }
    EXPECT_EQ(lib().getAccessLevel(), oa::oacNoLibAccessLevel);
    {
        const ScopedLibAccess access(lib(), writeAccess, 1);
        EXPECT_TRUE(access.hasAccess());
        EXPECT_EQ(lib().getAccessLevel(), oa::oacWriteLibAccessLevel);
    }
    EXPECT_EQ(lib().getAccessLevel(), oa::oacNoLibAccessLevel);
}

TEST_F(LibraryAccess, IsGivenBackWhenAnExceptionPasses) {
    EXPECT_EQ(failureOf([&] {
                  const ScopedLibAccess access(lib(), writeAccess, 0);
                  throw std::runtime_error("passes");
              }),
              "passes");
    EXPECT_EQ(lib().getAccessLevel(), oa::oacNoLibAccessLevel);
}

TEST_F(LibraryAccess, RefusedIsNoErrorAndGivesNothingBack) {
    const LibPtr other = elsewhere();
    const ScopedLibAccess held(*other, writeAccess, 0);
    ASSERT_TRUE(held.hasAccess());
    {
        const ScopedLibAccess refused(lib(), readAccess, 0);
        EXPECT_FALSE(refused.hasAccess());
        EXPECT_TRUE(!refused);
    } // giving back an access that is not held would end the process
    EXPECT_EQ(other->getAccessLevel(), oa::oacWriteLibAccessLevel);
}

TEST_F(LibraryAccess, ThatTheDatabaseForbidsIsTranslated) {
    const ScopedLibAccess held(lib(), readAccess, 0);
    EXPECT_EQ(messageIdOf([&] { ScopedLibAccess(lib(), writeAccess, 0); }),
              oa::oacLibAccessCannotUpgrade);
    EXPECT_EQ(lib().getAccessLevel(), oa::oacReadLibAccessLevel);
}

TEST_F(LibraryAccess, CannotBeCopied) {
    static_assert(!std::is_copy_constructible_v<ScopedLibAccess>);
    static_assert(!std::is_copy_assignable_v<ScopedLibAccess>);
}

TEST_F(FileLock, IsHeldForTheScope) {
    {
        const ScopedDMFileLock lock(file());
        EXPECT_TRUE(isLocked());
    }
    EXPECT_FALSE(isLocked());
}

TEST_F(FileLock, RefusedIsAnError) {
    const ScopedDMFileLock held(file());
    EXPECT_EQ(failureOf([&] { const ScopedDMFileLock refused(file()); }),
              "failed to obtain DMFile lock.");
    EXPECT_TRUE(isLocked());
}

TEST_F(FileLock, ChangesPlacesWithAnother) {
    oa::oaDMFile& other = *oa::oaDMFile::create(&lib(), "other.txt");
    ScopedDMFileLock lock(file());
    {
        ScopedDMFileLock second(other);
        lock.swap(second);
    }
    EXPECT_FALSE(isLocked());
    EXPECT_NE(other.getLockStatus(), oa::oacNotLocked);
}

TEST_F(FileLock, MayBeTried) {
    {
        const ScopedDMFileTryLock lock(file());
        EXPECT_TRUE(lock.hasLock());
        EXPECT_FALSE(!lock);
        EXPECT_TRUE(isLocked());
    }
    EXPECT_FALSE(isLocked());
}

TEST_F(FileLock, TriedInVainReleasesNothing) {
    const ScopedDMFileLock held(file());
    {
        const ScopedDMFileTryLock refused(file());
        EXPECT_FALSE(refused.hasLock());
        EXPECT_TRUE(!refused);
    }
    EXPECT_TRUE(isLocked());
}

TEST_F(FileLock, TriedHoldsNothingByDefault) {
    ScopedDMFileTryLock none;
    EXPECT_FALSE(none.hasLock());
    EXPECT_TRUE(!none);
    {
        ScopedDMFileTryLock lock(file());
        lock.swap(none);
        EXPECT_FALSE(lock.hasLock());
    }
    EXPECT_TRUE(none.hasLock());
    EXPECT_TRUE(isLocked());
}
