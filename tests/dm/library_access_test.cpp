#include "dm/src/library_access.h"

#include "dm_tests.h"

using namespace oa;
using namespace ovalis::test;
using impl::ShortAccess;
using testing::ElementsAre;

namespace {

class LibraryAccessTest : public DMTest {
protected:
    impl::DesignPlace place(const oaLib* lib, const char* cell, const char* view) {
        return impl::makeDesignPlace(lib, scalarName(cell), scalarName(view),
                                     oaViewType::get(oacMaskLayout));
    }
};

} // namespace

TEST_F(LibraryAccessTest, OpenLibrariesAreFoundByName) {
    oaLib* lib = create("lib");
    EXPECT_EQ(impl::openLibrary(scalarName("lib")), lib);
    EXPECT_EQ(impl::libraryPath(lib), platform::absolutePath(path("lib")));
    const Thrown thrown = thrownBy([] { impl::openLibrary(scalarName("none")); });
    EXPECT_EQ(thrown.id, oacCannotFindLibrary);
    EXPECT_EQ(thrown.text, "There is no open library named 'none'.");
}

TEST_F(LibraryAccessTest, ShortAccessLastsForItsScope) {
    oaLib* lib = create("lib");
    {
        const ShortAccess access(lib, oacWriteLibAccess);
        EXPECT_EQ(lib->getAccessLevel(), oacWriteLibAccessLevel);
        const ShortAccess nested(lib, oacReadLibAccess);
    }
    EXPECT_EQ(lib->getAccessLevel(), oacNoLibAccessLevel);
}

TEST_F(LibraryAccessTest, ShortAccessLeavesTheApplicationWhatItHolds) {
    oaLib* lib = createWritable("lib");
    { const ShortAccess access(lib, oacReadLibAccess); }
    EXPECT_EQ(lib->getAccessLevel(), oacWriteLibAccessLevel);
}

TEST_F(LibraryAccessTest, ShortAccessDoesNotRaiseWhatTheApplicationHolds) {
    oaLib* lib = create("lib");
    ASSERT_TRUE(lib->getAccess(oacReadLibAccess));
    EXPECT_EQ(thrownBy([&] { ShortAccess(lib, oacWriteLibAccess); }).id, oacLibAccessCannotUpgrade);
    EXPECT_EQ(lib->getAccessLevel(), oacReadLibAccessLevel);
}

TEST_F(LibraryAccessTest, ShortAccessTellsWhyItIsRefused) {
    oaLib* lib = createWritable("lib");
    oaLib* second = open("second", "lib");
    const Thrown elsewhere = thrownBy([&] { ShortAccess(second, oacReadLibAccess); });
    EXPECT_EQ(elsewhere.id, oacLibAccessDenied);
    EXPECT_EQ(elsewhere.text, "Read access to library 'second' is denied: it is in use elsewhere.");
    lib->close();
    oaLib* readOnly = oaLib::open(scalarName("lib"), path("lib").c_str(), "", oacReadOnlyLibMode);
    EXPECT_EQ(thrownBy([&] { ShortAccess(readOnly, oacWriteLibAccess); }).text,
              "Write access to library 'lib' is denied: it is open in mode readOnly.");
}

TEST_F(LibraryAccessTest, PlaceOfADesignIsTakenBackWhenItWasNeverSaved) {
    oaLib* lib = createWritable("lib");
    const impl::DesignPlace made = place(lib, "cell", "layout");
    EXPECT_TRUE(made.cellIsNew && made.cellViewIsNew);
    EXPECT_EQ(impl::primaryPath(made.cellView), pathOf(made.cellView->getPrimary()));
    impl::removeUnsaved(made);
    EXPECT_FALSE(made.cellView->isValid());
    EXPECT_THAT(namesIn(lib->getCells()), testing::IsEmpty());
    EXPECT_FALSE(platform::exists(path("lib/cell")));
    impl::removeUnsaved(made);
}

TEST_F(LibraryAccessTest, PlaceOfADesignThatHoldsSomethingStays) {
    oaLib* lib = createWritable("lib");
    const impl::DesignPlace saved = place(lib, "saved", "layout");
    put("lib/saved/layout/layout.oa", "x");
    impl::removeUnsaved(saved);
    EXPECT_TRUE(saved.cellView->isValid());

    const impl::DesignPlace beside = place(lib, "beside", "layout");
    make(lib, "beside", "symbol", oacSchematicSymbol);
    impl::removeUnsaved(beside);
    EXPECT_FALSE(beside.cellView->isValid());
    EXPECT_THAT(namesOnDisk("lib/beside"), ElementsAre("symbol"));
}

TEST_F(LibraryAccessTest, PlaceOfADesignThatWasThereBeforeStays) {
    oaLib* lib = createWritable("lib");
    oaCell* cell = oaCell::get(lib, scalarName("cell"));
    const impl::DesignPlace first = place(lib, "cell", "layout");
    EXPECT_FALSE(first.cellIsNew);
    const impl::DesignPlace second = place(lib, "cell", "layout");
    EXPECT_FALSE(second.cellViewIsNew);
    EXPECT_EQ(second.cellView, first.cellView);
    impl::removeUnsaved(second);
    EXPECT_TRUE(first.cellView->isValid());
    impl::removeUnsaved(first);
    EXPECT_FALSE(first.cellView->isValid());
    EXPECT_TRUE(cell->isValid());
    EXPECT_TRUE(platform::exists(path("lib/cell")));
}

TEST_F(LibraryAccessTest, HooksMeetTheLibraryWhileItIsWhole) {
    static std::vector<std::string> closed;
    impl::beforeLibraryCloses([](oaLib* lib) { closed.push_back(nameOf(lib)); });
    oaLib* first = create("first");
    create("second")->close();
    first->close();
    EXPECT_THAT(closed, ElementsAre("second", "first"));
}
