#include "two_designs.h"

namespace comparison::test {
namespace {

using oa::oaBox;
using oa::oaPoint;

class ShapeTest : public TwoDesigns {};

oa::oaPolygon* triangle(oa::oaBlock* block, oa::oaCoord x) {
    return oa::oaPolygon::create(block, 1, drawing, outline({{x, 0}, {x + 20, 0}, {x + 10, 30}}));
}

oa::oaText* text(oa::oaBlock* block, const char* shown, const oaPoint& origin) {
    return oa::oaText::create(block, 2, drawing, shown, origin, oa::oacLowerLeftTextAlign,
                              oa::oacR0, oa::oacRomanFont, 10);
}

/// One shape of each kind, all moved by that much.
void drawAll(oa::oaBlock* block, oa::oaCoord x, oa::oaCoord y) {
    const oa::oaPointArray bent = outline({{x, y}, {x + 50, y}, {x + 50, y + 40}});
    oa::oaRect::create(block, 1, drawing, oaBox(x, y, x + 10, y + 5));
    oa::oaPolygon::create(block, 1, drawing, bent);
    oa::oaLine::create(block, 1, drawing, bent);
    oa::oaPath::create(block, 1, drawing, 6, bent, oa::oacExtendPathStyle);
    oa::oaPathSeg::create(block, 1, drawing, oaPoint(x, y), oaPoint(x + 30, y),
                          oa::oaSegStyle(8, oa::oacExtendEndStyle, oa::oacTruncateEndStyle));
    oa::oaArc::create(block, 1, drawing, oaBox(x, y, x + 40, y + 40), 0.5, 2.5);
    oa::oaEllipse::create(block, 1, drawing, oaBox(x, y, x + 40, y + 20));
    oa::oaDonut::create(block, 1, drawing, oaPoint(x, y), 20, 10);
    oa::oaDot::create(block, 1, drawing, oaPoint(x, y), 3, 4);
    text(block, "note", oaPoint(x, y));
    oa::oaEvalText::create(block, 2, drawing, "2+2", oaPoint(x, y), oa::oacLowerLeftTextAlign,
                           oa::oacR0, oa::oacRomanFont, 12, oa::oaString("calculator"));
    oa::oaAttrDisplay::create(
        block->getDesign(), oa::oaDesignAttrType(oa::oacCellNameDesignAttrType), 2, drawing,
        oaPoint(x, y), oa::oacLowerLeftTextAlign, oa::oacR0, oa::oacRomanFont, 12);
    oa::oaPropDisplay::create(oa::oaIntProp::create(block, "N", 3), 2, drawing, oaPoint(x, y),
                              oa::oacLowerLeftTextAlign, oa::oacR0, oa::oacRomanFont, 12);
}

TEST_F(ShapeTest, OfAllKindsInAnotherOrderAreTheSame) {
    drawAll(wasBlock(), 0, 0);
    triangle(wasBlock(), 100);
    triangle(isBlock(), 100);
    drawAll(isBlock(), 0, 0);
    EXPECT_THAT(differences(), IsEmpty());
}

TEST_F(ShapeTest, OfAllKindsThatMoveAreOneLineEach) {
    drawAll(wasBlock(), 0, 0);
    drawAll(isBlock(), 7, -3);
    Lines expected;
    for (const char* shape :
         {"donut on M1/drawing (-20, -20)-(20, 20)", "path segment on M1/drawing (-4, -4)-(30, 4)",
          "path on M1/drawing (-3, -3)-(53, 43)", "dot on M1/drawing (-1, -2)-(2, 2)",
          "ellipse on M1/drawing (0, 0)-(40, 20)", "line on M1/drawing (0, 0)-(50, 40)",
          "polygon on M1/drawing (0, 0)-(50, 40)", "rectangle on M1/drawing (0, 0)-(10, 5)",
          "arc on M1/drawing (4, 30)-(38, 40)", "text \"note\" on M2/drawing at (0, 0)",
          "evaluated text \"2+2\" on M2/drawing at (0, 0)",
          "display of property \"N\" of block on M2/drawing at (0, 0)",
          "display of an attribute of design on M2/drawing at (0, 0)"})
        expected.push_back(shape + std::string(" moved by (7, -3)"));
    EXPECT_EQ(differences(), expected);
}

TEST_F(ShapeTest, ThatMovesIsPairedWithTheNearestOneOfItsForm) {
    inBoth([](oa::oaBlock* block) { triangle(block, 1000); });
    triangle(wasBlock(), 0);
    triangle(wasBlock(), 100);
    triangle(isBlock(), 104);
    triangle(isBlock(), 3);
    EXPECT_THAT(differences(),
                ElementsAre("polygon on M1/drawing (0, 0)-(20, 30) moved by (3, 0)",
                            "polygon on M1/drawing (100, 0)-(120, 30) moved by (4, 0)"));
}

TEST_F(ShapeTest, OfLargeNumberThatMoveTogetherAllMoveTheSameWay) {
    for (oa::oaCoord at = 0; at < 1000; ++at) {
        oa::oaRect::create(wasBlock(), 1, drawing, oaBox(at * 20, 0, at * 20 + 10, 10));
        oa::oaRect::create(isBlock(), 1, drawing, oaBox(at * 20 + 3, 1, at * 20 + 13, 11));
    }
    const Lines lines = differences();
    ASSERT_EQ(lines.size(), 1000u);
    for (const std::string& line : lines)
        EXPECT_THAT(line, ::testing::EndsWith(" moved by (3, 1)"));
}

TEST_F(ShapeTest, OnAnotherLayerIsOneLine) {
    triangle(wasBlock(), 0);
    triangle(isBlock(), 0)->setLPP(2, 7);
    EXPECT_THAT(differences(),
                ElementsAre("polygon on M1/drawing (0, 0)-(20, 30): layer and purpose was "
                            "M1/drawing, is M2/7"));
}

TEST_F(ShapeTest, WithOneOtherCornerSaysWhich) {
    oa::oaPolygon::create(wasBlock(), 1, drawing, outline({{0, 0}, {20, 0}, {10, 30}}));
    oa::oaPolygon::create(isBlock(), 1, drawing, outline({{0, 0}, {25, 0}, {10, 30}}));
    EXPECT_THAT(differences(),
                ElementsAre("polygon on M1/drawing (0, 0)-(20, 30): outline was 3 points, number 2 "
                            "at (20, 0), is 3 points, number 2 at (25, 0)"));
}

TEST_F(ShapeTest, OfAnotherSizeIsOneLine) {
    oa::oaRect::create(wasBlock(), 1, drawing, oaBox(0, 0, 10, 10));
    oa::oaRect::create(isBlock(), 1, drawing, oaBox(0, 0, 10, 20));
    EXPECT_THAT(differences(), ElementsAre("rectangle on M1/drawing (0, 0)-(10, 10): box was (0, "
                                           "0)-(10, 10), is (0, 0)-(10, 20)"));
}

TEST_F(ShapeTest, OfAnotherSizeElsewhereIsAnotherOne) {
    oa::oaRect::create(wasBlock(), 1, drawing, oaBox(0, 0, 10, 10));
    oa::oaRect::create(isBlock(), 1, drawing, oaBox(100, 0, 110, 20));
    EXPECT_THAT(differences(), ElementsAre("rectangle on M1/drawing (0, 0)-(10, 10) removed",
                                           "rectangle on M1/drawing (100, 0)-(110, 20) added"));
}

TEST_F(ShapeTest, ThatIsThereTwiceIsCounted) {
    triangle(wasBlock(), 0);
    triangle(isBlock(), 0);
    triangle(isBlock(), 0);
    EXPECT_THAT(differences(), ElementsAre("polygon on M1/drawing (0, 0)-(20, 30) added"));
}

TEST_F(ShapeTest, WithAnotherTextSaysBoth) {
    text(wasBlock(), "one", oaPoint(5, 6));
    text(isBlock(), "two", oaPoint(5, 6))->setHeight(20);
    EXPECT_THAT(differences(),
                ElementsAre("text \"one\" on M2/drawing at (5, 6): height was 10, is 20",
                            "text \"one\" on M2/drawing at (5, 6): text was \"one\", is \"two\""));
}

TEST_F(ShapeTest, OnAnotherNetIsOneLine) {
    inBoth([](oa::oaBlock* block) {
        oa::oaNet::create(block, general("a"));
        oa::oaNet::create(block, general("b"));
    });
    triangle(wasBlock(), 0)->addToNet(oa::oaNet::find(wasBlock(), general("a")));
    triangle(isBlock(), 0)->addToNet(oa::oaNet::find(isBlock(), general("b")));
    EXPECT_THAT(differences(),
                ElementsAre("polygon on M1/drawing (0, 0)-(20, 30): net was \"a\", is \"b\""));
}

TEST_F(ShapeTest, WithAnotherPropertyIsOneLine) {
    oa::oaStringProp::create(triangle(wasBlock(), 0), "use", "shield");
    oa::oaStringProp::create(triangle(isBlock(), 0), "use", "ground");
    EXPECT_THAT(differences(), ElementsAre("polygon on M1/drawing (0, 0)-(20, 30): property "
                                           "\"use\" was \"shield\", is \"ground\""));
}

TEST_F(ShapeTest, ThatMovesTakesTheDisplayOfItsPropertyAlong) {
    const auto draw = [](oa::oaBlock* block, oa::oaCoord x) {
        oa::oaProp* const prop = oa::oaIntProp::create(triangle(block, x), "N", 3);
        oa::oaPropDisplay::create(prop, 2, drawing, oaPoint(0, 0), oa::oacLowerLeftTextAlign,
                                  oa::oacR0, oa::oacRomanFont, 12);
    };
    draw(wasBlock(), 0);
    draw(isBlock(), 5);
    EXPECT_THAT(differences(),
                ElementsAre("polygon on M1/drawing (0, 0)-(20, 30) moved by (5, 0)"));
}

} // namespace
} // namespace comparison::test
