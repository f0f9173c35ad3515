#include <ovalis/library.h>

#include "support/library_fixture.h"

using namespace ovalis;
using ovalis::test::failureOf;
using ovalis::test::messageIdOf;
using ovalis::test::nameOf;

namespace {

class Cells : public ovalis::test::LibraryTest {
protected:
    bool hasView(const char* view, const oa::oaViewType* type) {
        const oa::oaScalarName name(oa::oaNativeNS(), view);
        return oa::oaView::find(&lib(), name, type) != nullptr;
    }
};

std::string typeNameOf(const oa::oaCellView* cellView) {
    oa::oaString name;
    cellView->getView()->getViewType()->getName(name);
    return fromOa(name);
}

} // namespace

TEST_F(Cells, AreCreated) {
    oa::oaCell* cell = createCell(lib(), "divider");
    ASSERT_NE(cell, nullptr);
    EXPECT_EQ(nameOf(cell), "divider");
    EXPECT_EQ(getCellNames(lib()), std::vector<std::string>{"divider"});
}

TEST_F(Cells, AreFoundWhenTheyExist) {
    oa::oaCell* cell = createCell(lib(), "divider");
    EXPECT_EQ(createCell(lib(), "divider"), cell);
    EXPECT_EQ(getCellNames(lib()).size(), 1U);
}

TEST_F(Cells, MayHaveNonAsciiNames) {
    EXPECT_EQ(nameOf(createCell(lib(), "größe µ")), "größe µ");
    reopen();
    EXPECT_EQ(getCellNames(lib()), std::vector<std::string>{"größe µ"});
}

TEST_F(Cells, AreNotCreatedWithoutWriteAccess) {
    lib().releaseAccess();
    EXPECT_EQ(messageIdOf([&] { createCell(lib(), "divider"); }), oa::oacLibAccessDenied);
}

TEST_F(Cells, AreRemovedWithEverythingInThem) {
    createCellView(lib(), "divider", "layout", oa::oacMaskLayout);
    createCell(lib(), "other");
    removeCell(lib(), "divider");
    EXPECT_EQ(getCellNames(lib()), std::vector<std::string>{"other"});
    EXPECT_TRUE(getCellViewNames(lib()).empty());
    EXPECT_FALSE(std::filesystem::exists(filePath("lib") / "divider"));
}

TEST_F(Cells, ThatAreMissingCannotBeRemoved) {
    EXPECT_EQ(failureOf([&] { removeCell(lib(), "größe"); }), "Could not find cell größe");
}

TEST_F(Cells, GetViewsOfReservedTypes) {
    oa::oaCell* cell = createCell(lib(), "divider");
    oa::oaCellView* cellView = createCellView(*cell, "layout", oa::oacMaskLayout);
    ASSERT_NE(cellView, nullptr);
    EXPECT_EQ(nameOf(cellView->getCell()), "divider");
    EXPECT_EQ(nameOf(cellView->getView()), "layout");
    EXPECT_EQ(typeNameOf(cellView), "maskLayout");
    EXPECT_EQ(createCellView(*cell, "layout", oa::oacMaskLayout), cellView);
}

TEST_F(Cells, GetViewsOfCustomTypes) {
    oa::oaCell* cell = createCell(lib(), "divider");
    ASSERT_EQ(oa::oaViewType::find("cellsTestFirst"), nullptr);
    oa::oaCellView* cellView = createCellView(*cell, "model", "cellsTestFirst");
    EXPECT_EQ(typeNameOf(cellView), "cellsTestFirst");
    EXPECT_NE(oa::oaViewType::find("cellsTestFirst"), nullptr);
    EXPECT_EQ(createCellView(*cell, "model", "cellsTestFirst"), cellView);
}

TEST_F(Cells, GetViewsOfReservedTypesByName) {
    oa::oaCell* cell = createCell(lib(), "divider");
    oa::oaCellView* cellView = createCellView(*cell, "layout", "maskLayout");
    EXPECT_EQ(cellView->getView()->getViewType(), oa::oaViewType::get(oa::oacMaskLayout));
}

TEST_F(Cells, AreCreatedTogetherWithTheirViews) {
    oa::oaCellView* first = createCellView(lib(), "first", "layout", oa::oacMaskLayout);
    oa::oaCellView* second = createCellView(lib(), "second", "model", "cellsTestSecond");
    EXPECT_EQ(nameOf(first->getCell()), "first");
    EXPECT_EQ(typeNameOf(second), "cellsTestSecond");
    EXPECT_EQ(createCellView(lib(), "first", "layout", oa::oacMaskLayout), first);
    EXPECT_EQ(createCellView(lib(), "second", "model", "cellsTestSecond"), second);
    EXPECT_EQ(getCellNames(lib()).size(), 2U);
}

TEST_F(Cells, AreFoundWithTheirViews) {
    oa::oaCellView* cellView = createCellView(lib(), "divider", "model", "cellsTestThird");
    EXPECT_EQ(findCellView(lib(), "divider", "model", "cellsTestThird"), cellView);
    EXPECT_EQ(findCellView(*cellView->getCell(), "model", "cellsTestThird"), cellView);
    EXPECT_EQ(getCellView(lib(), "divider", "model"), cellView);
}

TEST_F(Cells, LookUpsDefineViewTypeAndViewButNoCellView) {
    oa::oaCell* cell = createCell(lib(), "divider");
    ASSERT_EQ(oa::oaViewType::find("cellsTestFourth"), nullptr);
    EXPECT_EQ(findCellView(*cell, "model", "cellsTestFourth"), nullptr);
    const oa::oaViewType* type = oa::oaViewType::find("cellsTestFourth");
    ASSERT_NE(type, nullptr);
    EXPECT_TRUE(hasView("model", type));
    EXPECT_TRUE(getCellViewNames(lib()).empty());
}

TEST_F(Cells, LookUpsOfAMissingCellDefineNothing) {
    EXPECT_EQ(findCellView(lib(), "none", "model", "cellsTestFifth"), nullptr);
    EXPECT_EQ(oa::oaViewType::find("cellsTestFifth"), nullptr);
    EXPECT_TRUE(getCellNames(lib()).empty());
}

TEST_F(Cells, LookUpsThatMakeNothingAnswerNull) {
    EXPECT_EQ(getCellView(lib(), "none", "layout"), nullptr);
    createCell(lib(), "divider");
    EXPECT_EQ(getCellView(lib(), "divider", "layout"), nullptr);
    EXPECT_TRUE(getCellViewNames(lib()).empty());
}

TEST_F(Cells, LookUpsWorkWithReadAccess) {
    createCellView(lib(), "divider", "layout", oa::oacMaskLayout);
    lib().releaseAccess();
    lib().getAccess(oa::oacReadLibAccess);
    EXPECT_NE(findCellView(lib(), "divider", "layout", "maskLayout"), nullptr);
    EXPECT_NE(getCellView(lib(), "divider", "layout"), nullptr);
}

TEST_F(Cells, CannotHaveOneViewInTwoTypes) {
    createCellView(lib(), "divider", "layout", oa::oacMaskLayout);
    EXPECT_EQ(messageIdOf([&] { createCellView(lib(), "divider", "layout", oa::oacSchematic); }),
              oa::oacMismatchViewType);
}
