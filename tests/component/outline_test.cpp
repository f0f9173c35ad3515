#include "component/outline.h"

#include <limits>

#include <gtest/gtest.h>

namespace component {

void PrintTo(const Point& point, std::ostream* out) {
    *out << '(' << point.x << ", " << point.y << ')';
}

namespace {

constexpr std::int32_t lowest = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t highest = std::numeric_limits<std::int32_t>::max();

const Outline square = {{0, 0}, {4, 0}, {4, 4}, {0, 4}};

TEST(CleanPolygon, LeavesACleanOutlineAlone) {
    EXPECT_EQ(cleanPolygon(square), square);
    const Outline widest = {{lowest, lowest}, {highest, lowest}, {highest, highest}};
    EXPECT_EQ(cleanPolygon(widest), widest);
}

TEST(CleanPolygon, RemovesRepeatedPoints) {
    EXPECT_EQ(cleanPolygon({{0, 0}, {0, 0}, {4, 0}, {4, 4}, {4, 4}, {4, 4}, {0, 4}}), square);
}

TEST(CleanPolygon, RemovesTheClosingPoint) {
    EXPECT_EQ(cleanPolygon({{0, 0}, {4, 0}, {4, 4}, {0, 4}, {0, 0}}), square);
}

TEST(CleanPolygon, RemovesPointsOnASide) {
    EXPECT_EQ(cleanPolygon({{0, 0}, {1, 0}, {3, 0}, {4, 0}, {4, 4}, {2, 4}, {0, 4}}), square);
}

TEST(CleanPolygon, RemovesPointsAroundTheSeam) {
    const Outline fromMiddle = {{2, 0}, {4, 0}, {4, 4}, {0, 4}, {0, 0}, {1, 0}};
    EXPECT_EQ(cleanPolygon(fromMiddle), (Outline{{4, 0}, {4, 4}, {0, 4}, {0, 0}}));
}

TEST(CleanPolygon, RemovesSpikes) {
    EXPECT_EQ(cleanPolygon({{0, 0}, {4, 0}, {9, 0}, {4, 0}, {4, 4}, {0, 4}}), square);
    EXPECT_EQ(cleanPolygon({{0, 0}, {4, 0}, {4, 9}, {4, 4}, {0, 4}}), square);
}

TEST(CleanPolygon, KeepsTheCutOfAnOutlineWithAHole) {
    const Outline ring = {{0, 0}, {9, 0}, {9, 9}, {0, 9}, {0, 3},
                          {3, 3}, {3, 6}, {6, 6}, {6, 3}, {0, 3}};
    const Outline cleaned = cleanPolygon(ring);
    EXPECT_EQ(cleaned, ring);
}

TEST(CleanPolygon, LeavesFewerThanThreePointsOfNothing) {
    EXPECT_LT(cleanPolygon({{0, 0}, {1, 1}, {2, 2}}).size(), 3u);
    EXPECT_LT(cleanPolygon({{5, 5}, {5, 5}, {5, 5}}).size(), 3u);
    EXPECT_LT(cleanPolygon({{0, 0}, {9, 0}, {9, 5}, {9, 0}}).size(), 3u);
    EXPECT_LT(cleanPolygon({{lowest, lowest}, {0, 0}, {highest, highest}, {-1, -1}}).size(), 3u);
}

TEST(CleanPolygon, TellsNearlyCollinearPointsApartOverTheWholeRange) {
    const Outline nearly = {{lowest, lowest}, {0, 1}, {highest, highest}};
    EXPECT_EQ(cleanPolygon(nearly), nearly);
}

TEST(CleanLine, RemovesRepeatedNeighboursOnly) {
    EXPECT_EQ(cleanLine({{0, 0}, {0, 0}, {1, 0}, {2, 0}, {0, 0}}),
              (Outline{{0, 0}, {1, 0}, {2, 0}, {0, 0}}));
    EXPECT_EQ(cleanLine({{3, 3}, {3, 3}}), (Outline{{3, 3}}));
}

TEST(IsRectangle, HoldsForBothDirectionsAndAnyStart) {
    EXPECT_TRUE(isRectangle(square));
    EXPECT_TRUE(isRectangle({{4, 0}, {4, 4}, {0, 4}, {0, 0}}));
    EXPECT_TRUE(isRectangle({{0, 4}, {4, 4}, {4, 0}, {0, 0}}));
}

TEST(IsRectangle, FailsForOtherOutlines) {
    EXPECT_FALSE(isRectangle({{0, 0}, {4, 0}, {4, 4}}));
    EXPECT_FALSE(isRectangle({{2, 0}, {4, 2}, {2, 4}, {0, 2}}));
    EXPECT_FALSE(isRectangle({{0, 0}, {4, 0}, {0, 4}, {4, 4}}));
    EXPECT_FALSE(isRectangle({{0, 0}, {4, 0}, {5, 4}, {1, 4}}));
}

} // namespace
} // namespace component
