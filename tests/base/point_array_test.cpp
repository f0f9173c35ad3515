#include "geometry_printers.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <vector>

using namespace oa;

namespace {

oaPointArray pointsOf(std::initializer_list<oaPoint> points) {
    return {std::data(points), static_cast<oaUInt4>(points.size())};
}

// A square with a notch in its upper side.
const oaPointArray notched =
    pointsOf({{0, 0}, {30, 0}, {30, 30}, {20, 30}, {20, 10}, {10, 10}, {10, 30}, {0, 30}});

} // namespace

TEST(PointArray, HasRoomBeforeItHasPoints) {
    oaPointArray points(4);
    EXPECT_EQ(points.getSize(), 4u);
    EXPECT_EQ(points.getNumElements(), 0u);
    points.append(oaPoint(1, 2));
    EXPECT_EQ(points, pointsOf({{1, 2}}));
    points[1] = oaPoint(3, 4);
    points.setNumElements(2);
    EXPECT_EQ(points, pointsOf({{1, 2}, {3, 4}}));
    EXPECT_NE(points, pointsOf({{1, 2}, {3, 5}}));
    EXPECT_NE(points, pointsOf({{1, 2}}));
}

TEST(PointArray, IsMadeFromABox) {
    EXPECT_EQ(oaPointArray(oaBox(1, 2, 3, 4)), pointsOf({{1, 2}, {3, 2}, {3, 4}, {1, 4}}));
}

TEST(PointArray, IsMadeFromMovedPoints) {
    const oaPointArray points = pointsOf({{1, 0}, {2, 0}});
    EXPECT_EQ(oaPointArray(points, oaTransform(10, 0, oacR90)), pointsOf({{10, 1}, {10, 2}}));
    EXPECT_EQ(oaPointArray(points, oaPoint(5, 5)), pointsOf({{6, 5}, {7, 5}}));
}

TEST(PointArray, KnowsWhetherItIsOrthogonal) {
    EXPECT_TRUE(notched.isOrthogonal());
    EXPECT_FALSE(pointsOf({{0, 0}, {5, 0}, {5, 5}}).isOrthogonal());
    EXPECT_TRUE(pointsOf({{0, 0}, {5, 0}, {5, 5}}).isOrthogonal(false));
    EXPECT_TRUE(oaPointArray().isOrthogonal());
}

TEST(PointArray, KnowsWhetherItIsARectangle) {
    EXPECT_TRUE(oaPointArray(oaBox(0, 0, 4, 2)).isRectangle());
    EXPECT_TRUE(pointsOf({{0, 0}, {2, 0}, {4, 0}, {4, 2}, {0, 2}, {0, 0}}).isRectangle());
    EXPECT_FALSE(notched.isRectangle());
    EXPECT_FALSE(pointsOf({{0, 0}, {4, 1}, {4, 3}, {0, 2}}).isRectangle());
    EXPECT_FALSE(pointsOf({{0, 0}, {4, 0}, {4, 2}}).isRectangle());
    EXPECT_FALSE(oaPointArray(oaBox(0, 0, 4, 0)).isRectangle());
}

TEST(PointArray, LosesSuperfluousPoints) {
    const struct {
        oaPointArray points, closed, open;
    } rows[] = {
        {notched, notched, notched},
        // one on an edge, one twice, one that closes the outline
        {pointsOf({{0, 0}, {5, 0}, {9, 0}, {9, 0}, {9, 9}, {0, 0}}),
         pointsOf({{0, 0}, {9, 0}, {9, 9}}), pointsOf({{0, 0}, {9, 0}, {9, 9}, {0, 0}})},
        // the first point lies on the edge that leads to it
        {pointsOf({{5, 0}, {9, 0}, {9, 9}, {0, 0}}), pointsOf({{9, 0}, {9, 9}, {0, 0}}),
         pointsOf({{5, 0}, {9, 0}, {9, 9}, {0, 0}})},
        // an edge that runs back over itself
        {pointsOf({{0, 0}, {9, 0}, {9, 20}, {9, 9}}), pointsOf({{0, 0}, {9, 0}, {9, 9}}),
         pointsOf({{0, 0}, {9, 0}, {9, 20}, {9, 9}})},
        {pointsOf({{3, 3}, {3, 3}, {3, 3}}), pointsOf({{3, 3}}), pointsOf({{3, 3}})},
        {oaPointArray(), oaPointArray(), oaPointArray()},
    };
    for (const auto& row : rows) {
        oaPointArray result;
        row.points.compress(result);
        EXPECT_EQ(result, row.closed);
        EXPECT_EQ(row.points.hasExtraPoints(), row.points != row.closed);
        row.points.compress(result, false);
        EXPECT_EQ(result, row.open);
        EXPECT_EQ(row.points.hasExtraPoints(false), row.points != row.open);
        oaPointArray inPlace(row.points);
        inPlace.compress();
        EXPECT_EQ(inPlace, row.closed);
    }
}

TEST(PointArray, KnowsWhetherItIntersectsItself) {
    const struct {
        oaPointArray points;
        bool closed, open;
    } rows[] = {
        {notched, false, false},
        {pointsOf({{0, 0}, {9, 9}, {9, 0}, {0, 9}}), true, true},
        {pointsOf({{0, 0}, {9, 0}, {9, 9}, {5, -5}}), true, true},
        {pointsOf({{0, 0}, {9, 0}, {4, 9}, {4, 0}}), true, true},
        {pointsOf({{0, 0}, {9, 0}, {3, 0}}), true, true},
        {pointsOf({{0, 0}, {9, 0}, {9, 9}, {9, 5}, {20, 5}}), true, true},
        {pointsOf({{0, 0}, {10, 0}, {0, 5}, {10, 5}}), true, false},
        {pointsOf({{0, 0}, {9, 0}, {9, 0}, {9, 9}}), false, false},
        {pointsOf({{0, 0}, {9, 0}, {9, 9}}), false, false},
        {pointsOf({{0, 0}, {9, 0}}), false, false},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(row.points.isSelfIntersecting(), row.closed)
            << testing::PrintToString(row.points);
        EXPECT_EQ(row.points.isSelfIntersecting(false), row.open)
            << testing::PrintToString(row.points);
    }
}

TEST(PointArray, KnowsThePointsOnItsEdges) {
    EXPECT_TRUE(notched.onEdge(oaPoint(15, 10)));
    EXPECT_TRUE(notched.onEdge(oaPoint(0, 15)));
    EXPECT_FALSE(notched.onEdge(oaPoint(0, 15), false));
    EXPECT_FALSE(notched.onEdge(oaPoint(5, 5)));
}

TEST(PointArray, ContainsThePointsInside) {
    EXPECT_TRUE(notched.contains(oaPoint(5, 25)));
    EXPECT_TRUE(notched.contains(oaPoint(15, 5)));
    EXPECT_FALSE(notched.contains(oaPoint(15, 20)));
    EXPECT_FALSE(notched.contains(oaPoint(40, 10)));
    EXPECT_TRUE(notched.contains(oaPoint(10, 20)));
    EXPECT_FALSE(notched.contains(oaPoint(10, 20), false));
    EXPECT_FALSE(oaPointArray().contains(oaPoint()));
}

TEST(PointArray, ContainsTheBoxesInside) {
    EXPECT_TRUE(notched.contains(oaBox(0, 0, 30, 10)));
    EXPECT_TRUE(notched.contains(oaBox(2, 2, 3, 3)));
    EXPECT_FALSE(notched.contains(oaBox(10, 10, 20, 30)));
    EXPECT_FALSE(notched.contains(oaBox(5, 20, 25, 25)));
    EXPECT_FALSE(notched.contains(oaBox(0, 0, 31, 10)));
    EXPECT_TRUE(notched.contains(oaBox(5, 5, 5, 25)));
    EXPECT_FALSE(notched.contains(oaBox(5, 25, 25, 25)));
    EXPECT_FALSE(notched.contains(oaBox(1, 1, 0, 0)));
}

TEST(PointArray, OverlapsBoxes) {
    EXPECT_TRUE(notched.overlaps(oaBox(25, 25, 40, 40)));
    EXPECT_TRUE(notched.overlaps(oaBox(2, 2, 3, 3)));
    EXPECT_FALSE(notched.overlaps(oaBox(2, 2, 3, 3), false));
    EXPECT_FALSE(notched.overlaps(oaBox(12, 15, 18, 40)));
    EXPECT_TRUE(notched.overlaps(oaBox(-9, -9, 99, 99)));
    EXPECT_FALSE(notched.overlaps(oaBox(1, 1, 0, 0)));
    EXPECT_TRUE(notched.overlaps(oaBox(-5, 10, 0, 20)));
    EXPECT_FALSE(notched.overlaps(oaBox(-5, 10, 0, 20), false));
}

TEST(PointArray, KnowsTheSquareOfTheDistanceToAPoint) {
    EXPECT_DOUBLE_EQ(notched.distanceFrom2(oaPoint(5, 5)), 0.0);
    EXPECT_DOUBLE_EQ(notched.distanceFrom2(oaPoint(15, 20)), 25.0);
    EXPECT_DOUBLE_EQ(notched.distanceFrom2(oaPoint(33, 34)), 25.0);
    EXPECT_DOUBLE_EQ(pointsOf({{1, 1}}).distanceFrom2(oaPoint(1, 4)), 9.0);
}

TEST(PointArray, KnowsItsAreaInBothDirections) {
    oaPointArray mirrored;
    notched.transform(oaTransform(oacMX), mirrored);
    EXPECT_DOUBLE_EQ(notched.getArea(), 700.0);
    EXPECT_DOUBLE_EQ(mirrored.getArea(), 700.0);
    EXPECT_DOUBLE_EQ(pointsOf({{0, 0}, {1, 0}, {0, 1}}).getArea(), 0.5);
    EXPECT_DOUBLE_EQ(oaPointArray().getArea(), 0.0);
    EXPECT_DOUBLE_EQ(oaPointArray(oaBox(INT_MIN, INT_MIN, INT_MAX, INT_MAX)).getArea(),
                     4294967295.0 * 4294967295.0);
}

TEST(PointArray, KnowsTheBoxAroundIt) {
    oaBox box;
    notched.getBBox(box);
    EXPECT_EQ(box, oaBox(0, 0, 30, 30));
    oaPointArray().getBBox(box);
    EXPECT_TRUE(box.isInverted());
}

TEST(PointArray, IsMovedAsAWhole) {
    oaPointArray points = pointsOf({{1, 0}, {2, 0}});
    oaPointArray result = pointsOf({{9, 9}, {9, 9}, {9, 9}});
    points.transform(oaPoint(1, 1), result);
    EXPECT_EQ(result, pointsOf({{2, 1}, {3, 1}}));
    points.transform(oaTransform(oacR90));
    EXPECT_EQ(points, pointsOf({{0, 1}, {0, 2}}));
    points.transform(oaPoint(5, 5));
    EXPECT_EQ(points, pointsOf({{5, 6}, {5, 7}}));
    points.transform(2.0, 0.0, result);
    EXPECT_EQ(result, pointsOf({{10, 12}, {10, 14}}));
    points.transform(10.0, 0.0);
    EXPECT_EQ(points, pointsOf({{50, 60}, {50, 70}}));
}
