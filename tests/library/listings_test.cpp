#include <ovalis/library.h>

#include <algorithm>

#include "support/library_fixture.h"

using namespace ovalis;
using ovalis::test::failureOf;
using ovalis::test::messageIdOf;
using ovalis::test::nameOf;

namespace {

class Listings : public ovalis::test::LibraryTest {
protected:
    void fill() {
        createCellView(lib(), "divider", "layout", oa::oacMaskLayout);
        createCellView(lib(), "divider", "symbol", oa::oacSchematicSymbol);
        createCellView(lib(), "größe", "model", "listingsTest");
        createCell(lib(), "empty");
    }
};

std::vector<std::string> inIterationOrder(oa::oaLib& lib) {
    std::vector<std::string> names;
    oa::oaIter<oa::oaCell> cells(lib.getCells());
    while (oa::oaCell* cell = cells.getNext()) {
        names.push_back(nameOf(cell));
    }
    return names;
}

template <class Element, class Text>
std::vector<std::string> sorted(const std::vector<Element>& list, Text text) {
    std::vector<std::string> texts;
    std::transform(list.begin(), list.end(), std::back_inserter(texts), text);
    std::sort(texts.begin(), texts.end());
    return texts;
}

std::string joined(const TStringPair& pair) {
    return pair.get<0>() + "/" + pair.get<1>();
}

std::string joinedWithType(const TStringTriplet& triplet) {
    return triplet.get<0>() + "/" + triplet.get<1>() + ":" + triplet.get<2>();
}

} // namespace

TEST_F(Listings, OfAnEmptyLibraryAreEmpty) {
    EXPECT_TRUE(getCellNames(lib()).empty());
    EXPECT_TRUE(getCellViewNames(lib()).empty());
    EXPECT_TRUE(getCellViewNamesAndTypes(lib()).empty());
}

TEST_F(Listings, HoldAllCellsInTheOrderOfTheDatabase) {
    fill();
    EXPECT_EQ(getCellNames(lib()), inIterationOrder(lib()));
    EXPECT_EQ(sorted(getCellNames(lib()), [](const std::string& name) { return name; }),
              (std::vector<std::string>{"divider", "empty", "größe"}));
}

TEST_F(Listings, HoldAllCellViews) {
    fill();
    EXPECT_EQ(sorted(getCellViewNames(lib()), joined),
              (std::vector<std::string>{"divider/layout", "divider/symbol", "größe/model"}));
}

TEST_F(Listings, HoldTheCellViewsOfOneCell) {
    fill();
    EXPECT_EQ(sorted(getCellViewNames(lib(), "divider"), joined),
              (std::vector<std::string>{"divider/layout", "divider/symbol"}));
    EXPECT_TRUE(getCellViewNames(lib(), "empty").empty());
}

TEST_F(Listings, HoldViewTypes) {
    fill();
    EXPECT_EQ(
        sorted(getCellViewNamesAndTypes(lib()), joinedWithType),
        (std::vector<std::string>{"divider/layout:maskLayout", "divider/symbol:schematicSymbol",
                                  "größe/model:listingsTest"}));
}

TEST_F(Listings, HoldViewTypesOfOneCell) {
    fill();
    EXPECT_EQ(getCellViewNamesAndTypes(lib(), "größe"),
              std::vector{make_triplet("größe", "model", "listingsTest")});
    EXPECT_TRUE(getCellViewNamesAndTypes(lib(), "empty").empty());
}

TEST_F(Listings, AreTheSameFromDisk) {
    fill();
    reopen();
    EXPECT_EQ(
        sorted(getCellViewNamesAndTypes(lib()), joinedWithType),
        (std::vector<std::string>{"divider/layout:maskLayout", "divider/symbol:schematicSymbol",
                                  "größe/model:listingsTest"}));
}

TEST_F(Listings, OfAMissingCellAreRefused) {
    EXPECT_EQ(failureOf([&] { getCellViewNames(lib(), "none"); }), "Cell not found in library.");
    EXPECT_EQ(failureOf([&] { getCellViewNamesAndTypes(lib(), "none"); }),
              "Cell not found in library.");
}

TEST_F(Listings, NeedAccess) {
    lib().releaseAccess();
    EXPECT_EQ(messageIdOf([&] { getCellNames(lib()); }), oa::oacLibAccessDenied);
    EXPECT_EQ(messageIdOf([&] { getCellViewNames(lib()); }), oa::oacLibAccessDenied);
    EXPECT_EQ(messageIdOf([&] { getCellViewNamesAndTypes(lib(), "none"); }),
              oa::oacLibAccessDenied);
}
