#include "geometry_printers.h"

#include <gtest/gtest.h>

using namespace oa;

TEST(Vector, IsMadeFromItsParts) {
    EXPECT_EQ(oaVector(), oaVector(0, 0));
    EXPECT_EQ(oaVector(oaPoint(3, 4)), oaVector(3, 4));
    EXPECT_EQ(oaVector(oaPoint(1, 1), oaPoint(4, 5)), oaVector(3, 4));
    oaVector vector;
    vector.set(oaPoint(4, 5), oaPoint(1, 1));
    EXPECT_EQ(vector, oaVector(-3, -4));
    vector.x() = 7;
    vector.y() = 8;
    EXPECT_TRUE(vector != oaVector(7, 9) && vector == oaVector(7, 8));
}

TEST(Vector, HasALengthRoundedToAnInteger) {
    EXPECT_EQ(oaVector(3, -4).getLength(), 5);
    EXPECT_EQ(oaVector(1, 1).getLength(), 1);
    EXPECT_EQ(oaVector(2, 2).getLength(), 3);
    EXPECT_EQ(oaVector(INT_MAX, INT_MAX).getLength(), INT_MAX);
}

TEST(Vector, KeepsItsDirectionWhenItsLengthChanges) {
    oaVector vector(3, -4);
    vector.setLength(50);
    EXPECT_EQ(vector, oaVector(30, -40));
    vector.setLength(0);
    EXPECT_EQ(vector, oaVector(0, 0));
    vector.setLength(10);
    EXPECT_EQ(vector, oaVector(0, 0));
}

TEST(Vector, IsNormalizedToTheShortestOfItsDirection) {
    const std::pair<oaVector, oaVector> rows[] = {
        {{12, -18}, {2, -3}}, {{0, -7}, {0, -1}}, {{5, 3}, {5, 3}}, {{0, 0}, {0, 0}}};
    for (auto [vector, expected] : rows) {
        vector.normalize();
        EXPECT_EQ(vector, expected);
    }
}

TEST(Vector, TurnsCounterClockwise) {
    oaVector vector(2, 1);
    vector.rotate90();
    EXPECT_EQ(vector, oaVector(-1, 2));
    vector.rotate180();
    EXPECT_EQ(vector, oaVector(1, -2));
    vector.rotate270();
    EXPECT_EQ(vector, oaVector(-2, -1));
}

TEST(Vector, KnowsItsSideOfAnother) {
    const oaVector east(1, 0);
    EXPECT_TRUE(oaVector(0, 1).leftOf(east));
    EXPECT_FALSE(oaVector(0, 1).rightOf(east));
    EXPECT_TRUE(oaVector(5, -1).rightOf(east));
    EXPECT_FALSE(oaVector(-3, 0).leftOf(east) || oaVector(-3, 0).rightOf(east));
    EXPECT_TRUE(oaVector(INT_MIN, INT_MAX).leftOf(oaVector(INT_MAX, INT_MAX)));
}

TEST(Vector, KnowsTheCosineOfAnAngle) {
    EXPECT_DOUBLE_EQ(oaVector(2, 0).getCosAngle(oaVector(0, 3)), 0.0);
    EXPECT_DOUBLE_EQ(oaVector(2, 0).getCosAngle(oaVector(-3, 0)), -1.0);
    EXPECT_DOUBLE_EQ(oaVector(3, 4).getCosAngle(oaVector(5, 0)), 0.6);
    EXPECT_DOUBLE_EQ(oaVector(3, 4).getCosAngle(oaVector()), 0.0);
}

TEST(Vector, FindsWhereTwoLinesMeet) {
    oaPoint meet(-1, -1);
    EXPECT_TRUE(oaVector(1, 0).intersects(oaPoint(0, 5), oaVector(0, 1), oaPoint(7, 0), meet));
    EXPECT_EQ(meet, oaPoint(7, 5));
    EXPECT_TRUE(oaVector(1, 1).intersects(oaPoint(0, 0), oaVector(1, -1), oaPoint(0, 4), meet));
    EXPECT_EQ(meet, oaPoint(2, 2));
    EXPECT_FALSE(oaVector(1, 2).intersects(oaPoint(0, 0), oaVector(2, 4), oaPoint(1, 0), meet));
    EXPECT_FALSE(
        oaVector(1000, 1).intersects(oaPoint(0, 0), oaVector(1000, 0), oaPoint(0, INT_MAX), meet));
    EXPECT_EQ(meet, oaPoint(2, 2));
}

TEST(Vector, LeadsFromAPointToAnother) {
    oaPoint result;
    oaVector(3, 4).addToPoint(oaPoint(1, 1), result);
    EXPECT_EQ(result, oaPoint(4, 5));
    oaVector(3, 4).subFromPoint(oaPoint(1, 1), result);
    EXPECT_EQ(result, oaPoint(-2, -3));
}
