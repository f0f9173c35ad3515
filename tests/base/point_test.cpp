#include "geometry_printers.h"

#include <gtest/gtest.h>

using namespace oa;

TEST(Point, IsTheOriginAtFirst) {
    EXPECT_EQ(oaPoint(), oaPoint(0, 0));
}

TEST(Point, IsReadAndWrittenByCoordinate) {
    oaPoint point(1, 2);
    point.x() = 5;
    point.y() += 4;
    EXPECT_EQ(point, oaPoint(5, 6));
    point.set(-1, -2);
    const oaPoint& fixed = point;
    EXPECT_EQ(fixed.x(), -1);
    EXPECT_EQ(fixed.y(), -2);
}

TEST(Point, ComparesBothCoordinates) {
    EXPECT_TRUE(oaPoint(1, 2) == oaPoint(1, 2));
    EXPECT_TRUE(oaPoint(1, 2) != oaPoint(1, 3));
    EXPECT_TRUE(oaPoint(1, 2) != oaPoint(0, 2));
}

TEST(Point, AddsAndSubtracts) {
    oaPoint point(1, 2);
    point += oaPoint(10, 20);
    EXPECT_EQ(point, oaPoint(11, 22));
    point -= oaPoint(1, 1);
    EXPECT_EQ(point, oaPoint(10, 21));
    EXPECT_EQ(oaPoint(1, 2) + oaPoint(3, 4), oaPoint(4, 6));
    EXPECT_EQ(oaPoint(1, 2) - oaPoint(3, 5), oaPoint(-2, -3));
}

TEST(Point, WrapsAroundAtTheEndsOfTheRange) {
    EXPECT_EQ(oaPoint(INT_MAX, INT_MIN) + oaPoint(1, -1), oaPoint(INT_MIN, INT_MAX));
    EXPECT_EQ(oaPoint(oaPoint(INT_MIN, 0), oaTransform(oacR180)), oaPoint(INT_MIN, 0));
}

TEST(Point, IsTurnedFirstAndMovedThen) {
    const struct {
        oaOrientEnum orient;
        oaPoint turned;
    } rows[] = {
        {oacR0, {3, 1}},  {oacR90, {-1, 3}},    {oacR180, {-3, -1}}, {oacR270, {1, -3}},
        {oacMY, {-3, 1}}, {oacMYR90, {-1, -3}}, {oacMX, {3, -1}},    {oacMXR90, {1, 3}},
    };
    for (const auto& row : rows) {
        const oaTransform xform(oaPoint(100, 200), row.orient);
        oaPoint result;
        oaPoint(3, 1).transform(xform, result);
        EXPECT_EQ(result, row.turned + oaPoint(100, 200)) << oaOrient(row.orient).getName();
        oaPoint inPlace(3, 1);
        inPlace.transform(xform);
        EXPECT_EQ(inPlace, result);
        EXPECT_EQ(oaPoint(oaPoint(3, 1), xform), result);
    }
}

TEST(Point, IsScaledAndTurnedByAnAngle) {
    const oaDouble quarter = 1.5707963267948966;
    oaPoint point(10, 0);
    point.transform(2.5, quarter);
    EXPECT_EQ(point, oaPoint(0, 25));
    oaPoint result;
    oaPoint(3, -3).transform(0.5, 0.0, result);
    EXPECT_EQ(result, oaPoint(2, -2));
    oaPoint(INT_MAX, INT_MIN).transform(4, 0, result);
    EXPECT_EQ(result, oaPoint(INT_MAX, INT_MIN));
}

TEST(Point, KnowsTheSquareOfADistance) {
    EXPECT_DOUBLE_EQ(oaPoint(1, 1).distanceFrom2(oaPoint(4, 5)), 25.0);
    EXPECT_DOUBLE_EQ(oaPoint(INT_MIN, 0).distanceFrom2(oaPoint(INT_MAX, 0)),
                     4294967295.0 * 4294967295.0);
}
