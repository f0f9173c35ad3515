#include "design_fixture.h"

#include <numbers>

namespace design_test {

namespace {

constexpr oaLayerNum kLayer = 3;
constexpr oaPurposeNum kPurpose = 0xFFFFFFFF;

class ShapeTest : public DesignTest {
protected:
    oaBlock* block = makeBlock();

    oaRect* rect(const oaBox& box = oaBox(0, 0, 10, 20)) {
        return oaRect::create(block, kLayer, kPurpose, box);
    }
};

} // namespace

TEST_F(ShapeTest, RectanglesNeedAnArea) {
    EXPECT_EQ(boxText(rect(oaBox(-5, -6, 7, 8))), "-5 -6 7 8");
    for (const oaBox& box :
         {oaBox(0, 0, 0, 10), oaBox(0, 0, 10, 0), oaBox(10, 0, 0, 10), oaBox(0, 0, 160, -40)})
        EXPECT_EQ(thrownBy([&] { rect(box); }), oacRectBBoxInvalid) << spelled(box);
    EXPECT_EQ(messageOf([&] { rect(oaBox(0, 0, 160, -40)); }),
              "The box (0 0) (160 -40) of a rectangle is inverted or has no area.");
    EXPECT_EQ(block->getShapes().getCount(), 1u);

    oaRect* changed = rect();
    changed->setBBox(oaBox(1, 2, 3, 4));
    EXPECT_EQ(boxText(changed), "1 2 3 4");
    EXPECT_EQ(thrownBy([&] { changed->setBBox(oaBox(1, 2, 1, 4)); }), oacRectBBoxInvalid);
    EXPECT_EQ(boxText(changed), "1 2 3 4");
}

TEST_F(ShapeTest, PolygonsNeedThreePointsAndNoExtraOnes) {
    const auto make = [&](std::initializer_list<oaPoint> list) {
        return oaPolygon::create(block, kLayer, kPurpose, points(list));
    };
    oaPolygon* triangle = make({{0, 0}, {10, 0}, {0, 10}});
    oaPointArray read;
    triangle->getPoints(read);
    EXPECT_EQ(pointText(read), "0,0 10,0 0,10");
    EXPECT_EQ(triangle->getNumPoints(), 3u);
    EXPECT_FALSE(triangle->isOrthogonal());
    EXPECT_EQ(boxText(triangle), "0 0 10 10");

    EXPECT_EQ(thrownBy([&] { make({{0, 0}, {10, 0}}); }), oacPolygonTooFewPoints);
    EXPECT_EQ(messageOf([&] {
                  make({{0, 0}, {10, 0}});
              }),
              "A polygon needs at least 3 points, 2 given.");
    EXPECT_EQ(thrownBy([&] {
                  make({{0, 0}, {5, 0}, {10, 0}, {0, 10}});
              }),
              oacPolygonHasExtraPoints);
    EXPECT_EQ(thrownBy([&] {
                  make({{0, 0}, {10, 0}, {0, 10}, {0, 0}});
              }),
              oacPolygonHasExtraPoints);
    EXPECT_EQ(messageOf([&] {
                  make({{0, 0}, {10, 0}, {10, 0}, {0, 10}});
              }),
              "The polygon has collinear, repeated or closing points.");

    triangle->setPoints(points({{0, 0}, {20, 0}, {20, 5}, {0, 5}}));
    EXPECT_TRUE(triangle->isOrthogonal());
    EXPECT_EQ(boxText(triangle), "0 0 20 5");
    EXPECT_EQ(thrownBy([&] {
                  triangle->setPoints(points({{0, 0}, {1, 1}}));
              }),
              oacPolygonTooFewPoints);
    EXPECT_EQ(boxText(triangle), "0 0 20 5");
}

TEST_F(ShapeTest, LinesNeedTwoDifferentPoints) {
    const auto make = [&](std::initializer_list<oaPoint> list) {
        return oaLine::create(block, kLayer, kPurpose, points(list));
    };
    oaLine* line = make({{0, 0}, {10, 0}, {10, -5}});
    oaPointArray read;
    line->getPoints(read);
    EXPECT_EQ(pointText(read), "0,0 10,0 10,-5");
    EXPECT_EQ(line->getNumPoints(), 3u);
    EXPECT_EQ(boxText(line), "0 -5 10 0");
    EXPECT_EQ(thrownBy([&] { make({{0, 0}}); }), oacLineTooFewPoints);
    EXPECT_EQ(messageOf([&] {
                  make({{4, 4}, {4, 4}});
              }),
              "A line needs at least 2 points, 1 given.");
    line->setPoints(points({{1, 1}, {2, 3}}));
    EXPECT_EQ(boxText(line), "1 1 2 3");
    EXPECT_EQ(thrownBy([&] { line->setPoints(points({})); }), oacLineTooFewPoints);
}

TEST_F(ShapeTest, PathsReachAsFarAsWidthAndStyleSay) {
    const auto make = [&](oaPathStyleEnum style, oaDist beginExt = 0, oaDist endExt = 0) {
        return oaPath::create(block, kLayer, kPurpose, 4, points({{0, 0}, {20, 0}, {20, 10}}),
                              style, beginExt, endExt);
    };
    EXPECT_EQ(boxText(make(oacTruncatePathStyle)), "0 -2 22 10");
    EXPECT_EQ(boxText(make(oacExtendPathStyle)), "-2 -2 22 12");
    EXPECT_EQ(boxText(make(oacRoundPathStyle)), "-2 -2 22 12");
    EXPECT_EQ(boxText(make(oacTruncatePathStyle, 7, 9)), "0 -2 22 10");
    oaPath* path = make(oacVariablePathStyle, 1, 3);
    EXPECT_EQ(boxText(path), "-1 -2 22 13");

    oaPointArray read;
    path->getPoints(read);
    EXPECT_EQ(pointText(read), "0,0 20,0 20,10");
    path->getBoundary(read);
    EXPECT_EQ(pointText(read), "-1,-2 22,-2 22,13 18,13 18,2 -1,2");
    EXPECT_EQ(path->getWidth(), 4u);
    EXPECT_EQ(path->getStyle(), oacVariablePathStyle);
    EXPECT_EQ(path->getBeginExt(), 1u);
    EXPECT_EQ(path->getEndExt(), 3u);
    EXPECT_EQ(path->getNumPoints(), 3u);
    EXPECT_TRUE(path->isOrthogonal());
    EXPECT_EQ(messageOf([&] {
                  path->setPoints(points({{1, 1}}));
              }),
              "A path needs at least 2 points, 1 given.");
    EXPECT_EQ(thrownBy([&] {
                  oaPath::create(block, kLayer, kPurpose, 4, points({{1, 1}, {1, 1}}));
              }),
              oacPathTooFewPoints);
}

TEST_F(ShapeTest, PathsFollowTheirSetters) {
    oaPath* path = oaPath::create(block, kLayer, kPurpose, 4, points({{0, 0}, {20, 0}}));
    path->setWidth(6);
    EXPECT_EQ(boxText(path), "0 -3 20 3");
    path->setStyle(oacVariablePathStyle);
    path->setBeginExt(5);
    path->setEndExt(1);
    EXPECT_EQ(boxText(path), "-5 -3 21 3");
    path->setPoints(points({{0, 0}, {0, 10}}));
    EXPECT_EQ(boxText(path), "-3 -5 3 11");
    EXPECT_EQ(boxText(block), "-3 -5 3 11");
    path->setWidth(0);
    EXPECT_EQ(boxText(path), "0 0 0 10");
}

TEST_F(ShapeTest, PathsCutSharpCornersOff) {
    oaPointArray boundary;
    oaPath::genBoundary(points({{0, 0}, {100, 0}, {0, 1}}), 10, oacTruncatePathStyle, 0, 0,
                        boundary);
    oaBox box;
    boundary.getBBox(box);
    EXPECT_EQ(spelled(box), "0 -5 100 6");
}

TEST_F(ShapeTest, PathSegmentsHaveAStyleForEachEnd) {
    oaSegStyle style(10, oacExtendEndStyle, oacVariableEndStyle, 0, 3);
    oaPathSeg* segment =
        oaPathSeg::create(block, kLayer, kPurpose, oaPoint(0, 0), oaPoint(100, 0), style);
    EXPECT_EQ(boxText(segment), "-5 -5 103 5");
    oaPoint begin;
    oaPoint end;
    segment->getPoints(begin, end);
    EXPECT_EQ(begin, oaPoint(0, 0));
    EXPECT_EQ(end, oaPoint(100, 0));
    oaSegStyle read;
    segment->getStyle(read);
    EXPECT_TRUE(read == style);
    EXPECT_TRUE(segment->isOrthogonal());

    segment->setStyle(oaSegStyle(10, oacTruncateEndStyle, oacChamferEndStyle));
    oaPointArray boundary;
    segment->getBoundary(boundary);
    EXPECT_EQ(pointText(boundary), "0,-5 102,-5 105,-2 105,2 102,5 0,5");
    segment->setPoints(oaPoint(0, 0), oaPoint(0, 50));
    EXPECT_EQ(boxText(segment), "-5 0 5 55");
    EXPECT_EQ(messageOf([&] { segment->setPoints(oaPoint(7, 8), oaPoint(7, 8)); }),
              "A path segment at (7 8) has no length.");
    EXPECT_EQ(thrownBy([&] {
                  oaPathSeg::create(block, kLayer, kPurpose, oaPoint(1, 1), oaPoint(1, 1), style);
              }),
              oacPathSegTooShort);
}

TEST_F(ShapeTest, ArcsReachAsFarAsTheirAnglesSay) {
    const double pi = std::numbers::pi;
    const oaBox ellipse(-100, -50, 100, 50);
    const auto make = [&](double start, double stop) {
        return oaArc::create(block, kLayer, kPurpose, ellipse, start, stop);
    };
    EXPECT_EQ(boxText(make(0, pi / 2)), "0 0 100 50");
    EXPECT_EQ(boxText(make(pi / 2, 2 * pi)), "-100 -50 100 50");
    EXPECT_EQ(boxText(make(pi, -pi / 2)), "-100 -50 0 0");
    oaArc* arc = make(0, pi);
    EXPECT_EQ(boxText(arc), "-100 0 100 50");
    oaPointArray read;
    arc->getPoints(read, 4);
    EXPECT_EQ(pointText(read), "100,0 71,35 0,50 -71,35 -100,0");
    arc->getPoints(read);
    EXPECT_EQ(read.getNumElements(), 11u);
    oaBox box;
    arc->getEllipseBBox(box);
    EXPECT_EQ(spelled(box), "-100 -50 100 50");
    arc->set(oaBox(0, 0, 20, 20), 1.5, 2.5);
    EXPECT_EQ(arc->getStartAngle(), 1.5);
    EXPECT_EQ(arc->getStopAngle(), 2.5);
    oaArc::calcBBox(ellipse, 0, pi, box);
    EXPECT_EQ(spelled(box), "-100 0 100 50");

    EXPECT_EQ(thrownBy([&] { make(1, 1); }), oacArcInvalid);
    EXPECT_EQ(thrownBy([&] { make(0, std::numeric_limits<double>::infinity()); }), oacArcInvalid);
    EXPECT_EQ(messageOf([&] { arc->set(oaBox(0, 0, 20, 0), 0.5, 2); }),
              "The arc in the box (0 0) (20 0) from 0.5 to 2 has no area around it or no length.");
}

TEST_F(ShapeTest, EllipsesAndDonutsCheckTheirSizes) {
    oaEllipse* ellipse = oaEllipse::create(block, kLayer, kPurpose, oaBox(0, 0, 20, 10));
    EXPECT_EQ(boxText(ellipse), "0 0 20 10");
    oaPointArray read;
    ellipse->getBoundary(read, 4);
    EXPECT_EQ(pointText(read), "20,5 10,10 0,5 10,0");
    ellipse->setBBox(oaBox(0, 0, 2, 4));
    EXPECT_EQ(boxText(ellipse), "0 0 2 4");
    EXPECT_EQ(messageOf([&] { ellipse->setBBox(oaBox(0, 0, -2, 4)); }),
              "The box (0 0) (-2 4) of an ellipse is inverted or has no area.");
    EXPECT_EQ(thrownBy([&] { oaEllipse::create(block, kLayer, kPurpose, oaBox(0, 0, 0, 0)); }),
              oacEllipseBBoxInvalid);

    oaDonut* donut = oaDonut::create(block, kLayer, kPurpose, oaPoint(5, 6), 10, 4);
    EXPECT_EQ(boxText(donut), "-5 -4 15 16");
    oaBox hole;
    donut->getHoleBBox(hole);
    EXPECT_EQ(spelled(hole), "1 2 9 10");
    donut->getBoundary(read, 4);
    EXPECT_EQ(pointText(read), "15,6 5,16 -5,6 5,-4 15,6 9,6 5,2 1,6 5,10 9,6");
    donut->setRadii(20, 15);
    donut->setCenter(oaPoint(0, 0));
    donut->setHoleRadius(3);
    donut->setRadius(8);
    EXPECT_EQ(donut->getRadius(), 8u);
    EXPECT_EQ(donut->getHoleRadius(), 3u);
    oaPoint center;
    donut->getCenter(center);
    EXPECT_EQ(center, oaPoint(0, 0));
    EXPECT_EQ(messageOf([&] { donut->setHoleRadius(8); }),
              "The radius 8 of a donut is not larger than that of its hole, 8.");
    EXPECT_EQ(thrownBy([&] { oaDonut::create(block, kLayer, kPurpose, oaPoint(), 1, 2); }),
              oacDonutRadiiInvalid);
}

TEST_F(ShapeTest, DotsHaveAPlaceAndASize) {
    oaDot* dot = oaDot::create(block, kLayer, kPurpose, oaPoint(3, 4));
    EXPECT_EQ(boxText(dot), "3 4 3 4");
    dot->setWidth(4);
    dot->setHeight(6);
    dot->setLocation(oaPoint(10, 10));
    oaPoint location;
    dot->getLocation(location);
    EXPECT_EQ(location, oaPoint(10, 10));
    EXPECT_EQ(dot->getWidth(), 4u);
    EXPECT_EQ(dot->getHeight(), 6u);
    EXPECT_EQ(boxText(dot), "8 7 12 13");
}

TEST_F(ShapeTest, ShapesTurnIntoOneAnother) {
    oaRect* rect = oaRect::create(block, kLayer, kPurpose, oaBox(0, 0, 10, 20));
    oaIntProp::create(rect, "n", 7);
    oaNet* net = oaNet::create(block, oaName(oaNativeNS(), "net"));
    rect->addToNet(net);
    oaPolygon* polygon = rect->convertToPolygon();
    EXPECT_FALSE(rect->isValid());
    EXPECT_EQ(boxText(polygon), "0 0 10 20");
    EXPECT_EQ(polygon->getNet(), net);
    EXPECT_EQ(polygon->getProps().getCount(), 1u);
    oaRect* again = polygon->convertToRect();
    EXPECT_FALSE(polygon->isValid());
    EXPECT_EQ(boxText(again), "0 0 10 20");
    EXPECT_EQ(again->getNet(), net);
    EXPECT_EQ(net->getShapes().getCount(), 1u);

    oaPolygon* triangle =
        oaPolygon::create(block, kLayer, kPurpose, points({{0, 0}, {10, 0}, {0, 10}}));
    EXPECT_EQ(triangle->convertToRect(), nullptr);
    EXPECT_TRUE(triangle->isValid());

    oaEllipse* ellipse = oaEllipse::create(block, kLayer, kPurpose, oaBox(0, 0, 20, 20));
    EXPECT_EQ(thrownBy([&] { ellipse->convertToPolygon(2); }), oacPolygonTooFewPoints);
    EXPECT_EQ(ellipse->convertToPolygon(8)->getNumPoints(), 8u);
    oaDonut* donut = oaDonut::create(block, kLayer, kPurpose, oaPoint(0, 0), 100, 50);
    EXPECT_EQ(donut->convertToPolygon()->getNumPoints(), 42u);
    oaArc* arc = oaArc::create(block, kLayer, kPurpose, oaBox(0, 0, 100, 100), 0, 1);
    EXPECT_EQ(arc->convertToLine(5)->getNumPoints(), 6u);
    EXPECT_EQ(block->getShapes().getCount(), 5u);
}

TEST_F(ShapeTest, MovingAndCopyingTurnsEveryKind) {
    const oaTransform turn(100, 0, oacR90);
    oaRect* rect = oaRect::create(block, kLayer, kPurpose, oaBox(0, 0, 10, 20));
    rect->move(turn);
    EXPECT_EQ(boxText(rect), "80 0 100 10");
    oaPath* path = oaPath::create(block, kLayer, kPurpose, 4, points({{0, 0}, {20, 0}}));
    EXPECT_EQ(boxText(path->copy(turn)), "98 0 102 20");
    EXPECT_EQ(boxText(path), "0 -2 20 2");
    oaArc* arc =
        oaArc::create(block, kLayer, kPurpose, oaBox(-20, -10, 20, 10), 0, std::numbers::pi / 2);
    EXPECT_EQ(boxText(arc), "0 0 20 10");
    EXPECT_EQ(boxText(arc->copy(turn)), "90 0 100 20");
    EXPECT_EQ(boxText(arc->copy(oaTransform(oacMY))), "-20 0 0 10");
    EXPECT_EQ(boxText(arc->copy(oaTransform(oacMX))), "0 -10 20 0");
    EXPECT_EQ(boxText(arc->copy(oaTransform(oacMYR90))), boxText([&] {
                  oaFig* fig = arc->copy(oaTransform(oacMY));
                  fig->move(oaTransform(oacR90));
                  return fig;
              }()));
    EXPECT_EQ(boxText(arc->copy(oaTransform(oacMXR90))), boxText([&] {
                  oaFig* fig = arc->copy(oaTransform(oacMX));
                  fig->move(oaTransform(oacR90));
                  return fig;
              }()));
    oaDot* dot = oaDot::create(block, kLayer, kPurpose, oaPoint(10, 0), 4, 8);
    dot->move(turn);
    EXPECT_EQ(boxText(dot), "96 8 104 12");
    oaDonut* donut = oaDonut::create(block, kLayer, kPurpose, oaPoint(10, 0), 4, 2);
    donut->move(turn);
    EXPECT_EQ(boxText(donut), "96 6 104 14");
    oaEllipse* ellipse = oaEllipse::create(block, kLayer, kPurpose, oaBox(0, 0, 10, 20));
    ellipse->move(turn);
    EXPECT_EQ(boxText(ellipse), "80 0 100 10");
    oaText* label = oaText::create(block, kLayer, kPurpose, "abcde", oaPoint(0, 0),
                                   oacLowerLeftTextAlign, oacR0, oacRomanFont, 10);
    EXPECT_EQ(boxText(label), "0 0 30 10");
    EXPECT_EQ(boxText(label->copy(turn)), "90 0 100 30");
}

TEST_F(ShapeTest, MirroredPathSegmentsSwapTheirSides) {
    oaSegStyle style(10, oacTruncateEndStyle, oacTruncateEndStyle);
    style.setEndStyle(oacCustomEndStyle, 8, 20, 5, 3);
    oaPathSeg* segment =
        oaPathSeg::create(block, kLayer, kPurpose, oaPoint(0, 0), oaPoint(100, 0), style);
    EXPECT_EQ(boxText(segment), "0 -3 108 7");
    segment->move(oaTransform(oacMX));
    EXPECT_EQ(boxText(segment), "0 -7 108 3");
    oaPointArray before;
    segment->getBoundary(before);
    segment->move(oaTransform(oacMX));
    oaPointArray after;
    segment->getBoundary(after);
    EXPECT_EQ(before.getArea(), after.getArea());
}

TEST_F(ShapeTest, BoxesEndWithTheRangeOfCoordinates) {
    oaDonut* donut = oaDonut::create(block, kLayer, kPurpose, oaPoint(INT_MAX, 0), UINT_MAX, 1);
    EXPECT_EQ(spelled(boxOf(donut)), "-2147483648 -2147483648 2147483647 2147483647");
    oaPath* path = oaPath::create(block, kLayer, kPurpose, UINT_MAX,
                                  points({{INT_MIN, INT_MIN}, {INT_MAX, INT_MAX}}));
    EXPECT_EQ(spelled(boxOf(path)), "-2147483648 -2147483648 2147483647 2147483647");
}

TEST_F(ShapeTest, ShapesOverlapBoxes) {
    oaRect* shape = rect(oaBox(0, 0, 10, 20));
    EXPECT_TRUE(shape->overlaps(oaBox(10, 20, 30, 30)));
    EXPECT_FALSE(shape->overlaps(oaBox(11, 20, 30, 30)));
}

TEST_F(ShapeTest, DestroyedShapesAreGone) {
    oaRect* first = rect();
    oaRect* second = rect(oaBox(0, 0, 100, 100));
    second->destroy();
    EXPECT_TRUE(first->isValid());
    EXPECT_FALSE(second->isValid());
    EXPECT_EQ(all(block->getShapes()), (std::vector<oaShape*>{first}));
    EXPECT_EQ(boxText(block), "0 0 10 20");
    EXPECT_EQ(thrownBy([&] { second->getLayerNum(); }), oacInvalidObject);
    EXPECT_EQ(thrownBy([&] { second->destroy(); }), oacInvalidObject);
    first->destroy();
    EXPECT_TRUE(block->getShapes().isEmpty());
    EXPECT_EQ(boxText(block), "none");
    EXPECT_TRUE(block->getLPPHeaders().isEmpty());
    EXPECT_TRUE(block->getLayerHeaders().isEmpty());
}

TEST_F(ShapeTest, ShapesMayBeDestroyedWhileAWalkGoesOn) {
    for (int i = 0; i < 1000; ++i)
        rect(oaBox(i, 0, i + 1, 1));
    oaIter<oaShape> shapes(block->getShapes());
    while (oaShape* shape = shapes.getNext())
        shape->destroy();
    EXPECT_EQ(block->getShapes().getCount(), 0u);
}

TEST_F(ShapeTest, CopiesGoToOtherDesigns) {
    oaBlock* other = makeBlock("other");
    oaText* label = oaText::create(block, 1, 2, "label", oaPoint(1, 1), oacLowerLeftTextAlign,
                                   oacR0, oacRomanFont, 10);
    oaStringProp::create(label, "p", "value");
    auto* copy = static_cast<oaText*>(label->copy(oaTransform(5, 5), other));
    oaString shown;
    copy->getText(shown);
    EXPECT_EQ(text(shown), "label");
    EXPECT_EQ(copy->getBlock(), other);
    EXPECT_EQ(copy->getLayerNum(), 1u);
    EXPECT_EQ(copy->getPurposeNum(), 2u);
    EXPECT_TRUE(copy->hasProp());
    auto* moved = static_cast<oaText*>(label->move(oaTransform(0, 0), other->getDesign()));
    EXPECT_FALSE(label->isValid());
    EXPECT_EQ(other->getShapes().getCount(), 2u);
    EXPECT_EQ(moved->move(oaTransform(1, 1), other), moved);
    EXPECT_EQ(block->getShapes().getCount(), 0u);

    oaDesign* empty = open("empty", 'w');
    EXPECT_EQ(messageOf([&] { moved->copy(oaTransform(), empty); }),
              "Design 'lib/empty/layout' has no top block.");
}

TEST_F(ShapeTest, EveryChangeIsRefusedInADesignOpenForReading) {
    oaText::create(block, 1, 1, "t", oaPoint(), oacLowerLeftTextAlign, oacR0, oacRomanFont, 10);
    rect();
    block = reopened(block);
    oaIter<oaShape> shapes(block->getShapes());
    while (oaShape* shape = shapes.getNext()) {
        EXPECT_EQ(thrownBy([&] { shape->destroy(); }), oacCannotModifyReadModeDesign);
        EXPECT_EQ(thrownBy([&] { shape->move(oaTransform(1, 1)); }), oacCannotModifyReadModeDesign);
        EXPECT_EQ(thrownBy([&] { shape->copy(oaTransform(1, 1)); }), oacCannotModifyReadModeDesign);
        EXPECT_EQ(thrownBy([&] { shape->setLPP(9, 9); }), oacCannotModifyReadModeDesign);
        EXPECT_EQ(thrownBy([&] { oaIntProp::create(shape, "p", 1); }),
                  oacCannotModifyReadModeDesign);
    }
    EXPECT_EQ(thrownBy([&] { rect(); }), oacCannotModifyReadModeDesign);
    EXPECT_EQ(messageOf([&] { block->destroy(); }),
              "Design 'lib/cell/layout' is open for reading and cannot be changed.");
    EXPECT_FALSE(block->getDesign()->isModified());
    EXPECT_EQ(block->getShapes().getCount(), 2u);
}

} // namespace design_test
