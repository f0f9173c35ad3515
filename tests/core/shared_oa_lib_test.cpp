#include <ovalis/core.h>

#include <memory>

#include <gtest/gtest.h>

#include "support/library_fixture.h"

using namespace ovalis;
using ovalis::test::failureOf;

namespace {

class SharedLibrary : public ovalis::test::FolderTest {
protected:
    /// A new open library that nothing owns yet.
    oa::oaLib* openLibrary(const std::string& name) {
        return createLib(pathOf(name), name).release();
    }
};

constexpr char emptyReference[] = "Invalid reference in shared oa lib";

} // namespace

TEST_F(SharedLibrary, IsEmptyByDefaultAndForNull) {
    for (const SharedOaLib& empty : {SharedOaLib(), SharedOaLib(nullptr)}) {
        EXPECT_TRUE(!empty);
        EXPECT_EQ(empty.get(), nullptr);
        EXPECT_EQ(failureOf([&] { empty->getMode(); }), emptyReference);
        EXPECT_EQ(failureOf([&] { static_cast<void>(*empty); }), emptyReference);
    }
}

TEST_F(SharedLibrary, GivesItsLibrary) {
    oa::oaLib* lib = openLibrary("a");
    const SharedOaLib shared(lib);
    EXPECT_FALSE(!shared);
    EXPECT_EQ(shared.get(), lib);
    EXPECT_EQ(&*shared, lib);
    EXPECT_EQ(shared.operator->(), lib);
    EXPECT_TRUE(shared->isValid());
}

TEST_F(SharedLibrary, ClosesWhenTheOnlyOwnerGoes) {
    oa::oaLib* lib = openLibrary("a");
    { const SharedOaLib shared(lib); }
    EXPECT_FALSE(lib->isValid());
}

TEST_F(SharedLibrary, StaysOpenUntilTheLastOfFourOwnersGoesInAnyOrder) {
    const int orders[][4] = {{0, 1, 2, 3}, {3, 2, 1, 0}, {1, 3, 0, 2}, {2, 0, 3, 1}};
    for (const auto& order : orders) {
        oa::oaLib* lib = openLibrary("order" + std::to_string(order[0]));
        std::unique_ptr<SharedOaLib> owners[4];
        owners[0] = std::make_unique<SharedOaLib>(lib);
        for (int i = 1; i < 4; ++i) {
            owners[i] = std::make_unique<SharedOaLib>(*owners[i - 1]);
        }
        for (int i = 0; i < 4; ++i) {
            EXPECT_TRUE(lib->isValid());
            owners[order[i]].reset();
        }
        EXPECT_FALSE(lib->isValid());
    }
}

TEST_F(SharedLibrary, StaysOpenWhenAssignedToItself) {
    oa::oaLib* lib = openLibrary("a");
    {
        SharedOaLib shared(lib);
        const SharedOaLib& same = shared;
        shared = same;
        EXPECT_TRUE(lib->isValid());
        EXPECT_EQ(shared.get(), lib);
    }
    EXPECT_FALSE(lib->isValid());
}

TEST_F(SharedLibrary, ReleasesTheOldLibraryOnAssignment) {
    oa::oaLib* first = openLibrary("first");
    oa::oaLib* second = openLibrary("second");
    SharedOaLib shared(first);
    {
        const SharedOaLib other(second);
        shared = other;
        EXPECT_FALSE(first->isValid());
    }
    EXPECT_TRUE(second->isValid());
    shared = SharedOaLib();
    EXPECT_FALSE(second->isValid());
}

TEST_F(SharedLibrary, KeepsALibraryThatAnotherOwnerHoldsOnAssignment) {
    oa::oaLib* lib = openLibrary("a");
    SharedOaLib first(lib);
    const SharedOaLib second(first);
    first = SharedOaLib();
    EXPECT_TRUE(lib->isValid());
}

TEST_F(SharedLibrary, SwapsWithoutClosing) {
    oa::oaLib* a = openLibrary("a");
    oa::oaLib* b = openLibrary("b");
    SharedOaLib first(a);
    SharedOaLib second(b);
    first.swap(second);
    EXPECT_EQ(first.get(), b);
    EXPECT_EQ(second.get(), a);
    SharedOaLib empty;
    first.swap(empty);
    EXPECT_TRUE(!first);
    EXPECT_EQ(empty.get(), b);
    EXPECT_TRUE(a->isValid() && b->isValid());
}

TEST_F(SharedLibrary, IsEqualWhenTheLibraryIs) {
    oa::oaLib* lib = openLibrary("a");
    const SharedOaLib shared(lib);
    const SharedOaLib copy(shared);
    const SharedOaLib other(openLibrary("b"));
    EXPECT_TRUE(shared == copy);
    EXPECT_FALSE(shared != copy);
    EXPECT_TRUE(shared != other);
    EXPECT_FALSE(shared == other);
    EXPECT_TRUE(SharedOaLib() == SharedOaLib(nullptr));
    EXPECT_TRUE(shared != SharedOaLib());
}

TEST_F(SharedLibrary, IsEqualToASeparateOwnerThatKnowsNothingOfIt) {
    oa::oaLib* lib = openLibrary("a");
    // Never destroyed: the second close would be its maker's fault.
    static const auto* const separate = new SharedOaLib(lib);
    {
        const SharedOaLib shared(lib);
        EXPECT_TRUE(shared == *separate);
    }
    EXPECT_FALSE(lib->isValid());
    EXPECT_EQ(separate->get(), lib);
}
