#include "geometry_printers.h"

#include <gtest/gtest.h>

using namespace oa;

TEST(Segment, IsMadeFromItsParts) {
    EXPECT_EQ(oaSegment(), oaSegment(oaPoint(), oaPoint()));
    EXPECT_EQ(oaSegment(oaVector(3, 4), oaPoint(1, 1)), oaSegment(oaPoint(4, 5), oaPoint(1, 1)));
    oaSegment segment;
    segment.set(oaPoint(1, 2), oaPoint(3, 4));
    EXPECT_TRUE(segment == oaSegment(oaPoint(1, 2), oaPoint(3, 4)));
    EXPECT_TRUE(segment != oaSegment(oaPoint(3, 4), oaPoint(1, 2)));
    segment.set(oaVector(1, 0), oaPoint(7, 7));
    EXPECT_EQ(segment.head(), oaPoint(8, 7));
    EXPECT_EQ(segment.tail(), oaPoint(7, 7));
}

TEST(Segment, IsReadAndWrittenByCoordinate) {
    oaSegment segment;
    segment.x1() = 1;
    segment.y1() = 2;
    segment.x2() = 3;
    segment.y2() = 5;
    const oaSegment& fixed = segment;
    EXPECT_EQ(fixed.head(), oaPoint(fixed.x1(), fixed.y1()));
    EXPECT_EQ(fixed.tail(), oaPoint(fixed.x2(), fixed.y2()));
    EXPECT_EQ(fixed.getDeltaX(), -2);
    EXPECT_EQ(fixed.getDeltaY(), -3);
    segment.head() = oaPoint(9, 9);
    segment.tail() = oaPoint(8, 8);
    EXPECT_EQ(segment, oaSegment(oaPoint(9, 9), oaPoint(8, 8)));
}

TEST(Segment, KnowsItsDirection) {
    const oaSegment level(oaPoint(0, 1), oaPoint(5, 1));
    const oaSegment upright(oaPoint(0, 1), oaPoint(0, 9));
    const oaSegment slanted(oaPoint(0, 0), oaPoint(5, 1));
    EXPECT_TRUE(level.isHorizontal() && level.isOrthogonal() && !level.isVertical());
    EXPECT_TRUE(upright.isVertical() && upright.isOrthogonal() && !upright.isHorizontal());
    EXPECT_FALSE(slanted.isVertical() || slanted.isHorizontal() || slanted.isOrthogonal());
}

TEST(Segment, ContainsThePointsBetweenItsEnds) {
    const oaSegment segment(oaPoint(0, 0), oaPoint(6, 3));
    EXPECT_TRUE(segment.contains(oaPoint(2, 1)));
    EXPECT_TRUE(segment.contains(oaPoint(6, 3)));
    EXPECT_FALSE(segment.contains(oaPoint(6, 3), false));
    EXPECT_FALSE(segment.contains(oaPoint(2, 2)));
    EXPECT_FALSE(segment.contains(oaPoint(8, 4)));
    EXPECT_TRUE(segment.collinearContains(oaPoint(4, 2)));
    EXPECT_FALSE(segment.collinearContains(oaPoint(0, 0), false));
    EXPECT_FALSE(segment.collinearContains(oaPoint(-2, -1)));
}

TEST(Segment, IntersectsAnother) {
    const oaSegment base(oaPoint(0, 0), oaPoint(10, 0));
    const struct {
        oaPoint from, to;
        bool all, withoutEnds, withoutOverlap;
    } rows[] = {
        {{5, -5}, {5, 5}, true, true, true},      // crosses
        {{5, 0}, {5, 5}, true, false, true},      // stands on it
        {{10, 0}, {15, 5}, true, false, true},    // shares an end
        {{10, 0}, {20, 0}, true, false, true},    // goes on from its end
        {{5, 0}, {20, 0}, true, true, false},     // overlaps
        {{11, 0}, {20, 0}, false, false, false},  // same line, apart
        {{0, 1}, {10, 1}, false, false, false},   // parallel
        {{11, -5}, {11, 5}, false, false, false}, // crosses its line only
        {{4, 0}, {4, 0}, true, false, true},      // a point of it
    };
    for (const auto& row : rows) {
        const oaSegment other(row.from, row.to);
        EXPECT_EQ(base.intersects(other), row.all) << testing::PrintToString(row.from);
        EXPECT_EQ(other.intersects(base), row.all);
        EXPECT_EQ(base.intersects(other, false), row.withoutEnds)
            << testing::PrintToString(row.from);
        EXPECT_EQ(base.intersects(other, true, false), row.withoutOverlap)
            << testing::PrintToString(row.from);
    }
}

TEST(Segment, FindsThePointInCommon) {
    const oaSegment base(oaPoint(0, 0), oaPoint(10, 10));
    oaPoint meet(-7, -7);
    EXPECT_TRUE(base.intersects(oaSegment(oaPoint(0, 6), oaPoint(6, 0)), meet));
    EXPECT_EQ(meet, oaPoint(3, 3));
    EXPECT_TRUE(base.intersects(oaSegment(oaPoint(10, 10), oaPoint(20, 20)), meet));
    EXPECT_EQ(meet, oaPoint(10, 10));
    meet.set(-7, -7);
    EXPECT_FALSE(base.intersects(oaSegment(oaPoint(5, 5), oaPoint(20, 20)), meet));
    EXPECT_FALSE(base.intersects(oaSegment(oaPoint(0, 40), oaPoint(40, 0)), meet));
    EXPECT_EQ(meet, oaPoint(-7, -7));
    EXPECT_TRUE(base.intersects(oaSegment(oaPoint(0, 40), oaPoint(40, 0)), meet, false));
    EXPECT_EQ(meet, oaPoint(20, 20));
    EXPECT_FALSE(base.intersects(oaSegment(oaPoint(0, 1), oaPoint(10, 11)), meet, false));
}

TEST(Segment, KnowsTheSquareOfTheDistanceToAPoint) {
    const oaSegment segment(oaPoint(0, 0), oaPoint(10, 0));
    oaPoint nearest;
    EXPECT_DOUBLE_EQ(segment.distanceFrom2(oaPoint(4, 3), nearest), 9.0);
    EXPECT_EQ(nearest, oaPoint(4, 0));
    EXPECT_DOUBLE_EQ(segment.distanceFrom2(oaPoint(13, 4), nearest), 25.0);
    EXPECT_EQ(nearest, oaPoint(10, 0));
    EXPECT_DOUBLE_EQ(segment.distanceFrom2(oaPoint(-1, 0)), 1.0);
    EXPECT_DOUBLE_EQ(oaSegment(oaPoint(1, 1), oaPoint(1, 1)).distanceFrom2(oaPoint(1, 3)), 4.0);
}
