#include <ovalis/library.h>

#include <type_traits>

#include "support/library_fixture.h"

using ovalis::LibPtr;

namespace {

class OwnedLibrary : public ovalis::test::FolderTest {
protected:
    LibPtr newLibrary(const std::string& name) { return ovalis::createLib(pathOf(name), name); }
};

} // namespace

TEST_F(OwnedLibrary, IsClosedAtScopeEnd) {
    oa::oaLib* lib = nullptr;
    {
        const LibPtr owner = newLibrary("a");
        lib = owner.get();
        EXPECT_TRUE(owner);
        EXPECT_TRUE(owner->isValid());
        EXPECT_EQ(&*owner, lib);
    }
    EXPECT_FALSE(lib->isValid());
}

TEST_F(OwnedLibrary, IsNullByDefault) {
    const LibPtr none;
    EXPECT_FALSE(none);
    EXPECT_EQ(none.get(), nullptr);
}

TEST_F(OwnedLibrary, IsHandedOnByMoving) {
    LibPtr first = newLibrary("a");
    oa::oaLib* lib = first.get();
    LibPtr second(std::move(first));
    EXPECT_EQ(first.get(), nullptr);
    EXPECT_EQ(second.get(), lib);
    EXPECT_TRUE(lib->isValid());
    static_assert(!std::is_copy_constructible_v<LibPtr>);
    static_assert(std::is_nothrow_move_constructible_v<LibPtr>);
}

TEST_F(OwnedLibrary, ClosesTheOldOneWhenAnotherIsMovedIn) {
    LibPtr first = newLibrary("a");
    LibPtr second = newLibrary("b");
    oa::oaLib* a = first.get();
    oa::oaLib* b = second.get();
    first = std::move(second);
    EXPECT_FALSE(a->isValid());
    EXPECT_TRUE(b->isValid());
    EXPECT_EQ(first.get(), b);
    EXPECT_EQ(second.get(), nullptr);
}

TEST_F(OwnedLibrary, IsGivenUpOpen) {
    LibPtr owner = newLibrary("a");
    oa::oaLib* lib = owner.release();
    EXPECT_FALSE(owner);
    ASSERT_TRUE(lib->isValid());
    lib->close();
}

TEST_F(OwnedLibrary, IsClosedByAReset) {
    LibPtr owner = newLibrary("a");
    oa::oaLib* a = owner.get();
    oa::oaLib* b = newLibrary("b").release();
    owner.reset(b);
    EXPECT_FALSE(a->isValid());
    EXPECT_EQ(owner.get(), b);
    owner.reset();
    EXPECT_FALSE(b->isValid());
    EXPECT_FALSE(owner);
}

TEST_F(OwnedLibrary, ChangesPlaces) {
    LibPtr first = newLibrary("a");
    LibPtr second;
    oa::oaLib* lib = first.get();
    first.swap(second);
    EXPECT_FALSE(first);
    EXPECT_EQ(second.get(), lib);
}

TEST_F(OwnedLibrary, MayBeClosedByAnother) {
    const LibPtr owner = newLibrary("a");
    owner->close();
    EXPECT_FALSE(owner->isValid());
}
