#include <ovalis/library.h>

#include "support/library_fixture.h"

using namespace ovalis;
using ovalis::test::failureOf;
using ovalis::test::messageIdOf;

namespace {

class Designs : public ovalis::test::LibraryTest {
protected:
    /// Saves a layout "divider" with one rectangle, and closes it.
    void saveDivider() {
        oa::oaDesign* design =
            openDesignWithView(lib(), "divider", "layout", oa::oacMaskLayout, true);
        oa::oaRect::create(oa::oaBlock::create(design), 1, 2, oa::oaBox(0, 0, 10, 20));
        design->save();
        design->close();
    }

    oa::oaUInt4 shapesOnDisk(const std::string& cell) {
        oa::oaDesign* design = openDesign(lib(), cell, "layout", false);
        const oa::oaUInt4 count = design->getTopBlock()->getShapes().getCount();
        design->close();
        return count;
    }
};

/// Closes each design as soon as it is open.
class Closer : public oa::oaObserver<oa::oaDesign> {
public:
    Closer() : oa::oaObserver<oa::oaDesign>(1) {}
    void onFirstOpen(oa::oaDesign* design) override { design->purge(); }
};

} // namespace

TEST_F(Designs, AreCreatedForAppend) {
    createCellView(lib(), "divider", "layout", oa::oacMaskLayout);
    oa::oaDesign* design = openDesign(lib(), "divider", "layout", true);
    ASSERT_NE(design, nullptr);
    EXPECT_EQ(design->getMode(), 'a');
    EXPECT_EQ(design->getTopBlock(), nullptr);
    design->close();
}

TEST_F(Designs, AreCreatedWithNothingPrepared) {
    oa::oaDesign* design = openDesign(lib(), "größe", "layout", true);
    ASSERT_NE(design, nullptr);
    EXPECT_EQ(design->getViewType(), oa::oaViewType::get(oa::oacMaskLayout));
    design->close();
}

TEST_F(Designs, AreOpenedForReading) {
    saveDivider();
    oa::oaDesign* design = openDesign(lib(), "divider", "layout", false);
    EXPECT_EQ(design->getMode(), 'r');
    EXPECT_EQ(design->getTopBlock()->getShapes().getCount(), 1U);
    design->close();
}

TEST_F(Designs, ThatAreMissingCannotBeRead) {
    createCell(lib(), "divider");
    EXPECT_EQ(failureOf([&] { openDesign(lib(), "divider", "layout", false); }),
              "Could not create or open design");
    EXPECT_EQ(failureOf([&] { openDesign(lib(), "none", "layout", false); }),
              "Could not create or open design");
    EXPECT_EQ(
        failureOf([&] { openDesignWithView(lib(), "none", "layout", oa::oacMaskLayout, false); }),
        "Could not create or open design");
}

TEST_F(Designs, ThatAreClosedWhileTheyAreOpenedAreNone) {
    saveDivider();
    const Closer closer;
    for (const bool write : {false, true}) {
        EXPECT_EQ(failureOf([&] { openDesign(lib(), "divider", "layout", write); }),
                  "Could not create or open design");
        EXPECT_EQ(failureOf([&] {
                      openDesignWithView(lib(), "divider", "layout", oa::oacMaskLayout, write);
                  }),
                  "Could not create or open design");
    }
}

TEST_F(Designs, ThatAreClosedWhileTheyAreOpenedAreNotCopied) {
    saveDivider();
    closeLibrary();
    const Closer closer;
    EXPECT_EQ(messageIdOf([&] { copyDesign(pathOf("lib"), "divider", "layout", "copy"); }),
              oa::oacInvalidObject);
    EXPECT_EQ(oa::oaLib::find(oa::oaScalarName(oa::oaNativeNS(), "LogicalName")), nullptr);
    reopen();
    EXPECT_EQ(getCellNames(lib()), std::vector<std::string>{"divider"});
}

TEST_F(Designs, AreCreatedWithTheViewTypeAskedFor) {
    oa::oaDesign* design =
        openDesignWithView(lib(), "divider", "picture", oa::oacSchematicSymbol, true);
    EXPECT_EQ(design->getViewType(), oa::oaViewType::get(oa::oacSchematicSymbol));
    EXPECT_EQ(design->getMode(), 'a');
    oa::oaBlock::create(design);
    design->save();
    design->close();
    design = openDesignWithView(lib(), "divider", "picture", oa::oacSchematicSymbol, false);
    EXPECT_EQ(design->getMode(), 'r');
    design->close();
}

TEST_F(Designs, OfAnotherViewTypeAreRefused) {
    saveDivider();
    EXPECT_EQ(messageIdOf(
                  [&] { openDesignWithView(lib(), "divider", "layout", oa::oacSchematic, true); }),
              oa::oacMismatchViewTypeForOpen);
}

TEST_F(Designs, ExistOnceSaved) {
    EXPECT_FALSE(existsDesign("lib", "divider", "layout"));
    saveDivider();
    EXPECT_TRUE(existsDesign("lib", "divider", "layout"));
    EXPECT_FALSE(existsDesign("lib", "divider", "Layout"));
    reopen();
    EXPECT_TRUE(existsDesign("lib", "divider", "layout"));
}

TEST_F(Designs, AreAskedForInAnOpenLibrary) {
    saveDivider();
    closeLibrary();
    EXPECT_EQ(messageIdOf([] { existsDesign("lib", "divider", "layout"); }),
              oa::oacCannotFindLibrary);
}

TEST_F(Designs, ExistWhileTheyAreOpen) {
    oa::oaDesign* design = openDesign(lib(), "divider", "layout", true);
    EXPECT_TRUE(existsDesign("lib", "divider", "layout"));
    design->close();
}

TEST_F(Designs, AreNotCopiedThoughTheSourceExists) {
    saveDivider();
    closeLibrary();
    EXPECT_EQ(failureOf([&] { copyDesign(pathOf("lib"), "divider", "layout", "copy"); }),
              "Could not find source design");
    EXPECT_EQ(oa::oaLib::find(oa::oaScalarName(oa::oaNativeNS(), "LogicalName")), nullptr);
    reopen();
    EXPECT_EQ(shapesOnDisk("divider"), 1U);
    EXPECT_EQ(getCellNames(lib()), std::vector<std::string>{"divider"});
}

TEST_F(Designs, AreNotCopiedFromAMissingSource) {
    closeLibrary();
    EXPECT_EQ(failureOf([&] { copyDesign(pathOf("lib"), "none", "layout", "copy"); }),
              "Could not find source design");
    reopen();
    EXPECT_TRUE(getCellNames(lib()).empty());
}

TEST_F(Designs, AreNotCopiedInAMissingLibrary) {
    EXPECT_EQ(failureOf([&] { copyDesign(pathOf("none"), "divider", "layout", "copy"); }),
              "OA Library not found at " + pathOf("none"));
}
