#include "geometry_printers.h"

#include <gtest/gtest.h>

using namespace oa;

namespace {

const oaBox inverted(INT_MAX, INT_MAX, INT_MIN, INT_MIN);

oaPoint centerOf(const oaBox& box) {
    oaPoint center;
    box.getCenter(center);
    return center;
}

} // namespace

TEST(Box, IsMadeFromItsParts) {
    EXPECT_EQ(oaBox(), oaBox(0, 0, 0, 0));
    EXPECT_EQ(oaBox(oaPoint(1, 2), oaPoint(3, 4)), oaBox(1, 2, 3, 4));
    EXPECT_EQ(oaBox(oaPoint(10, 20), 4), oaBox(8, 18, 12, 22));
    EXPECT_EQ(oaBox(oaPoint(10, 20), 5), oaBox(8, 18, 13, 23));
    EXPECT_EQ(oaBox(oaBox(0, 0, 2, 1), oaTransform(10, 0, oacR90)), oaBox(9, 0, 10, 2));
}

TEST(Box, IsReadAndWrittenBySide) {
    oaBox box;
    box.left() = 1;
    box.bottom() = 2;
    box.right() = 3;
    box.top() = 4;
    const oaBox& fixed = box;
    EXPECT_EQ(fixed.left(), 1);
    EXPECT_EQ(fixed.bottom(), 2);
    EXPECT_EQ(fixed.right(), 3);
    EXPECT_EQ(fixed.top(), 4);
    box.lowerLeft() = oaPoint(-1, -2);
    box.upperRight().x() = 9;
    EXPECT_EQ(fixed.lowerLeft(), oaPoint(-1, -2));
    EXPECT_EQ(fixed.upperRight(), oaPoint(9, 4));
}

TEST(Box, IsSetFromItsParts) {
    oaBox box;
    box.set();
    EXPECT_EQ(box, inverted);
    box.set(1, 2);
    EXPECT_EQ(box, oaBox(1, 2, INT_MIN, INT_MIN));
    box.set(oaPoint(1, 2), oaPoint(3, 4));
    EXPECT_EQ(box, oaBox(1, 2, 3, 4));
    box.set(oaPoint(0, 0), 10);
    EXPECT_EQ(box, oaBox(-5, -5, 5, 5));
    box.set(oaBox(0, 0, 1, 2), oaTransform(oacMY));
    EXPECT_EQ(box, oaBox(-1, 0, 0, 2));
    box.makeZero();
    EXPECT_EQ(box, oaBox(0, 0, 0, 0));
    box.makeInvertedZero();
    EXPECT_EQ(box, inverted);
    box.makeZero();
    box.init();
    EXPECT_EQ(box, inverted);
}

TEST(Box, KnowsItsMeasures) {
    const oaBox box(-3, 1, 4, 3);
    oaPoint corner;
    EXPECT_EQ(box.getWidth(), 7u);
    EXPECT_EQ(box.getHeight(), 2u);
    EXPECT_EQ(centerOf(box), oaPoint(0, 2));
    box.getLowerRight(corner);
    EXPECT_EQ(corner, oaPoint(4, 1));
    box.getUpperLeft(corner);
    EXPECT_EQ(corner, oaPoint(-3, 3));
}

TEST(Box, MeasuresTheWholeRangeAndNothing) {
    const oaBox everything(INT_MIN, INT_MIN, INT_MAX, INT_MAX);
    EXPECT_EQ(everything.getWidth(), UINT_MAX);
    EXPECT_EQ(centerOf(everything), oaPoint(0, 0));
    EXPECT_EQ(inverted.getWidth(), 0u);
    EXPECT_EQ(inverted.getHeight(), 0u);
}

TEST(Box, GivesItsCornersCounterClockwise) {
    oaPoint corners[4];
    oaBox(1, 2, 3, 4).toPoints(corners);
    EXPECT_EQ(oaPointArray(corners, 4), oaPointArray(oaBox(1, 2, 3, 4)));
    EXPECT_EQ(corners[0], oaPoint(1, 2));
    EXPECT_EQ(corners[1], oaPoint(3, 2));
    EXPECT_EQ(corners[2], oaPoint(3, 4));
    EXPECT_EQ(corners[3], oaPoint(1, 4));
}

TEST(Box, KnowsWhetherItHasAnArea) {
    EXPECT_FALSE(oaBox(0, 0, 1, 1).hasNoArea());
    EXPECT_TRUE(oaBox(0, 0, 0, 1).hasNoArea());
    EXPECT_TRUE(oaBox(0, 0, 1, 0).hasNoArea());
    EXPECT_TRUE(inverted.hasNoArea());
    EXPECT_FALSE(oaBox(0, 0, 0, 0).isInverted());
    EXPECT_TRUE(oaBox(1, 0, 0, 5).isInverted());
    EXPECT_TRUE(oaBox(0, 5, 5, 4).isInverted());
}

TEST(Box, OverlapsABox) {
    const oaBox box(0, 0, 10, 10);
    const struct {
        oaBox other;
        bool withEdges, inside;
    } rows[] = {
        {{5, 5, 15, 15}, true, true},    {{2, 2, 3, 3}, true, true},
        {{10, 0, 20, 10}, true, false},  {{10, 10, 20, 20}, true, false},
        {{11, 0, 20, 10}, false, false}, {{5, -9, 6, -1}, false, false},
        {inverted, false, false},        {{-5, -5, 15, 15}, true, true},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(box.overlaps(row.other), row.withEdges) << testing::PrintToString(row.other);
        EXPECT_EQ(box.overlaps(row.other, false), row.inside) << testing::PrintToString(row.other);
    }
}

TEST(Box, OverlapsASegment) {
    const oaBox box(0, 0, 10, 10);
    const struct {
        oaPoint from, to;
        bool withEdges, inside;
    } rows[] = {
        {{-5, 5}, {15, 5}, true, true},     {{2, 2}, {3, 3}, true, true},
        {{-5, 5}, {5, 15}, true, false},    {{-6, 5}, {5, 16}, false, false},
        {{0, -5}, {0, 15}, true, false},    {{5, 10}, {5, 20}, true, false},
        {{5, 5}, {5, 5}, true, true},       {{0, 0}, {0, 0}, true, false},
        {{11, 11}, {12, 12}, false, false}, {{-1, -1}, {11, 11}, true, true},
    };
    for (const auto& row : rows) {
        const oaSegment segment(row.from, row.to);
        EXPECT_EQ(box.overlaps(segment), row.withEdges) << testing::PrintToString(row.from);
        EXPECT_EQ(box.overlaps(segment, false), row.inside) << testing::PrintToString(row.from);
    }
}

TEST(Box, ContainsBoxesAndPoints) {
    const oaBox box(0, 0, 10, 10);
    EXPECT_TRUE(box.contains(oaPoint(10, 0)));
    EXPECT_FALSE(box.contains(oaPoint(10, 0), false));
    EXPECT_TRUE(box.contains(oaPoint(9, 1), false));
    EXPECT_FALSE(box.contains(oaPoint(11, 5)));
    EXPECT_TRUE(box.contains(box));
    EXPECT_FALSE(box.contains(box, false));
    EXPECT_TRUE(box.contains(oaBox(1, 1, 9, 9), false));
    EXPECT_FALSE(box.contains(oaBox(1, 1, 11, 9)));
    EXPECT_FALSE(box.contains(inverted));
}

TEST(Box, KnowsTheSquareOfTheDistanceToAPoint) {
    const oaBox box(0, 0, 10, 10);
    EXPECT_DOUBLE_EQ(box.distanceFrom2(oaPoint(5, 5)), 0.0);
    EXPECT_DOUBLE_EQ(box.distanceFrom2(oaPoint(13, 14)), 25.0);
    EXPECT_DOUBLE_EQ(box.distanceFrom2(oaPoint(-2, 5)), 4.0);
}

TEST(Box, IsPutRight) {
    oaBox box(3, 5, 1, 7);
    oaBox result;
    box.fix(result);
    EXPECT_EQ(result, oaBox(1, 5, 3, 7));
    box.fix();
    EXPECT_EQ(box, result);
}

TEST(Box, GrowsAroundBoxesAndPoints) {
    oaBox box = inverted;
    box.merge(oaPoint(5, 5));
    EXPECT_EQ(box, oaBox(5, 5, 5, 5));
    box.merge(oaBox(0, 7, 1, 8));
    EXPECT_EQ(box, oaBox(0, 5, 5, 8));
    box.merge(inverted);
    EXPECT_EQ(box, oaBox(0, 5, 5, 8));
    box.merge(oaBox(9, 0, 8, 1));
    EXPECT_EQ(box, oaBox(0, 5, 5, 8));
    oaBox result;
    inverted.merge(box, result);
    EXPECT_EQ(result, box);
    box.merge(oaPoint(-1, -1), result);
    EXPECT_EQ(result, oaBox(-1, -1, 5, 8));
}

TEST(Box, IsCutByAnother) {
    oaBox box(0, 0, 10, 10);
    oaBox result;
    box.intersection(oaBox(5, -5, 15, 5), result);
    EXPECT_EQ(result, oaBox(5, 0, 10, 5));
    box.intersection(oaBox(20, 20, 30, 30), result);
    EXPECT_TRUE(result.isInverted());
    box.intersection(inverted);
    EXPECT_TRUE(box.isInverted());
}

TEST(Box, IsMovedAsAWhole) {
    oaBox box(0, 0, 4, 2);
    oaBox result;
    box.transform(oaTransform(10, 20, oacR90), result);
    EXPECT_EQ(result, oaBox(8, 20, 10, 24));
    box.transform(oaPoint(1, 1), result);
    EXPECT_EQ(result, oaBox(1, 1, 5, 3));
    box.transform(oaPoint(1, 1));
    EXPECT_EQ(box, oaBox(1, 1, 5, 3));
    box.transform(oaTransform(oacMX));
    EXPECT_EQ(box, oaBox(1, -3, 5, -1));
    inverted.transform(oaTransform(5, 5, oacR90), result);
    EXPECT_EQ(result, inverted);
}

TEST(Box, IsScaledAndTurnedByAnAngle) {
    const oaDouble eighth = 0.78539816339744831;
    oaBox box(-10, -10, 10, 10);
    oaBox result;
    box.transform(1.0, eighth, result);
    EXPECT_EQ(result, oaBox(-14, -14, 14, 14));
    box.transform(2.0, 0.0);
    EXPECT_EQ(box, oaBox(-20, -20, 20, 20));
    inverted.transform(2.0, 0.0, result);
    EXPECT_EQ(result, inverted);
    box.scale(0.25f);
    EXPECT_EQ(box, oaBox(-5, -5, 5, 5));
}
