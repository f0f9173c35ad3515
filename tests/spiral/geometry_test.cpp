#include "examples/pcells/spiral/geometry.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include <gtest/gtest.h>

namespace spiral {

void PrintTo(const Point& point, std::ostream* stream) {
    *stream << '(' << point.x << ", " << point.y << ')';
}

namespace {

using Outline = std::vector<Point>;

struct Vector {
    double x;
    double y;
};

double cross(const Point& a, const Point& b, const Point& c) {
    return double(b.x - a.x) * double(c.y - a.y) - double(b.y - a.y) * double(c.x - a.x);
}

bool cross(const Point& a, const Point& b, const Point& c, const Point& d) {
    return cross(a, b, c) * cross(a, b, d) < 0 && cross(c, d, a) * cross(c, d, b) < 0;
}

double distance(const Point& point, const Point& a, const Point& b) {
    const Vector along{double(b.x - a.x), double(b.y - a.y)};
    const Vector to{double(point.x - a.x), double(point.y - a.y)};
    const double length = along.x * along.x + along.y * along.y;
    const double at = std::clamp((to.x * along.x + to.y * along.y) / length, 0.0, 1.0);
    return std::hypot(to.x - at * along.x, to.y - at * along.y);
}

/// Between two pieces that do not cross.
double distance(const Point& a, const Point& b, const Point& c, const Point& d) {
    return std::min({distance(a, c, d), distance(b, c, d), distance(c, a, b), distance(d, a, b)});
}

/// The trace as its two edges from the inner end to the outer one, the lead left out.
struct TraceEdges {
    Outline inner;
    Outline outer;
};

TraceEdges edgesOf(const Drawing& drawing) {
    const std::size_t corners = (drawing.trace.size() - 6) / 2;
    const auto begin = drawing.trace.begin();
    TraceEdges edges;
    edges.inner.assign(begin, begin + std::ptrdiff_t(corners + 2));
    edges.outer.assign(drawing.trace.rbegin(),
                       drawing.trace.rbegin() + std::ptrdiff_t(corners + 2));
    return edges;
}

/// The least distance between pieces of two lines; those that `skip` names are left out.
template <class Skip>
double leastDistance(const Outline& first, const Outline& second, Skip skip) {
    double least = 1e300;
    for (std::size_t i = 1; i < first.size(); ++i)
        for (std::size_t j = 1; j < second.size(); ++j)
            if (!skip(i, j))
                least = std::min(least, distance(first[i - 1], first[i], second[j - 1], second[j]));
    return least;
}

/// The inner edge of a side against the outer one of the same side and its neighbours.
double widthOf(const TraceEdges& edges) {
    return leastDistance(edges.inner, edges.outer, [](std::size_t inner, std::size_t outer) {
        return inner + 1 < outer || outer + 1 < inner;
    });
}

/// The outer edge of a turn against the inner edge of the next one.
double spacingOf(const TraceEdges& edges, std::size_t sidesPerTurn) {
    return leastDistance(edges.outer, edges.inner, [&](std::size_t outer, std::size_t inner) {
        return inner < outer + sidesPerTurn - 1;
    });
}

bool crossesItself(const Outline& outline) {
    const std::size_t count = outline.size();
    for (std::size_t i = 0; i < count; ++i)
        for (std::size_t j = i + 1; j < count; ++j)
            if (cross(outline[i], outline[(i + 1) % count], outline[j], outline[(j + 1) % count]))
                return true;
    return false;
}

/// How often a ray from the origin goes through the outline.
int crossings(const Outline& outline, double degrees) {
    const double angle = degrees * std::numbers::pi / 180;
    const Point far{std::llround(1e9 * std::cos(angle)), std::llround(1e9 * std::sin(angle))};
    int count = 0;
    for (std::size_t i = 0; i < outline.size(); ++i)
        count += cross({0, 0}, far, outline[i], outline[(i + 1) % outline.size()]);
    return count;
}

std::int64_t twiceArea(const Outline& outline) {
    std::int64_t sum = 0;
    for (std::size_t i = 0; i < outline.size(); ++i) {
        const Point& a = outline[i];
        const Point& b = outline[(i + 1) % outline.size()];
        sum += a.x * b.y - b.x * a.y;
    }
    return std::abs(sum);
}

Dimensions dimensions(Shape shape, int turns, std::int64_t width, std::int64_t spacing) {
    return {shape, turns, width, spacing, leastInnerRadius(shape, width, spacing)};
}

TEST(SpiralGeometry, ASquareOfOneTurnHasTheseCorners) {
    const Drawing drawing = draw({Shape::square, 1, 10, 5, 50});
    EXPECT_EQ(drawing.trace, (Outline{{50, 0},
                                      {50, 50},
                                      {-50, 50},
                                      {-50, -50},
                                      {65, -50},
                                      {65, 10},
                                      {90, 10},
                                      {90, 0},
                                      {75, 0},
                                      {75, -60},
                                      {-60, -60},
                                      {-60, 60},
                                      {60, 60},
                                      {60, 0}}));
    EXPECT_EQ(drawing.via, (Box{50, 0, 60, 10}));
    EXPECT_EQ(drawing.underpass, (Box{-90, 0, 60, 10}));
    EXPECT_EQ(drawing.outerPin, (Box{80, 0, 90, 10}));
    EXPECT_EQ(drawing.innerPin, (Box{-90, 0, -80, 10}));
}

TEST(SpiralGeometry, AnOctagonOfOneTurnHasTheseCorners) {
    const Drawing drawing = draw({Shape::octagon, 1, 10, 5, 50});
    EXPECT_EQ(drawing.trace,
              (Outline{{50, 0},    {50, 21},  {21, 50},  {-21, 50},  {-50, 21},  {-50, -21},
                       {-21, -50}, {21, -50}, {65, -6},  {65, 10},   {90, 10},   {90, 0},
                       {75, 0},    {75, -11}, {26, -60}, {-26, -60}, {-60, -26}, {-60, 26},
                       {-26, 60},  {26, 60},  {60, 26},  {60, 0}}));
}

TEST(SpiralGeometry, DiagonalsAreTheFirstOnTheGridThatAreNotTooShort) {
    const std::int64_t expected[] = {0, 2, 3, 5, 6, 8, 9, 10, 12, 13, 15};
    for (std::int64_t length = 0; length <= 10; ++length)
        EXPECT_EQ(diagonalSteps(length), expected[length]) << length;
    EXPECT_EQ(diagonalSteps(1'000'000), 1'414'214);
}

TEST(SpiralGeometry, WidthAndSpacingAreNeverBelowWhatIsAskedAndLessThanAStepAbove) {
    for (const Shape shape : {Shape::square, Shape::octagon})
        for (const int turns : {1, 2, 3, 7})
            for (const std::int64_t width : {1, 2, 7, 400, 2000})
                for (const std::int64_t spacing : {1, 3, 400, 3000}) {
                    const TraceEdges edges =
                        edgesOf(draw(dimensions(shape, turns, width, spacing)));
                    EXPECT_NEAR(widthOf(edges), double(width), 1e-9)
                        << turns << ' ' << width << ' ' << spacing;
                    EXPECT_NEAR(spacingOf(edges, shape == Shape::octagon ? 8 : 4), double(spacing),
                                1e-9)
                        << turns << ' ' << width << ' ' << spacing;
                    EXPECT_LT(double(diagonalSteps(width)) / std::numbers::sqrt2,
                              double(width) + 1);
                }
}

TEST(SpiralGeometry, NoTraceCrossesOrTouchesItself) {
    for (const Shape shape : {Shape::square, Shape::octagon})
        for (const int turns : {1, 4})
            for (const std::int64_t width : {1, 10, 333})
                for (const std::int64_t spacing : {1, 20, 1000}) {
                    const Drawing drawing = draw(dimensions(shape, turns, width, spacing));
                    EXPECT_FALSE(crossesItself(drawing.trace))
                        << turns << ' ' << width << ' ' << spacing;
                }
}

TEST(SpiralGeometry, ARayFromTheCentreCrossesEveryTurn) {
    for (const Shape shape : {Shape::square, Shape::octagon})
        for (const int turns : {1, 2, 5, 100}) {
            const Drawing drawing = draw(dimensions(shape, turns, 20, 10));
            for (const double degrees : {50.1, 89.9, 135.5, 180.3, 200.2, 300.7, 340.4})
                EXPECT_EQ(crossings(drawing.trace, degrees), 2 * turns) << degrees;
        }
}

TEST(SpiralGeometry, TheInnerDiameterIsFree) {
    const std::int64_t radius = 300;
    for (const Shape shape : {Shape::square, Shape::octagon}) {
        const Drawing drawing = draw({shape, 3, 20, 10, radius});
        double least = 1e300;
        for (std::size_t i = 1; i < drawing.trace.size(); ++i)
            least = std::min(least, distance({0, 0}, drawing.trace[i - 1], drawing.trace[i]));
        EXPECT_EQ(least, double(radius));
    }
}

TEST(SpiralGeometry, ASquareHasTheAreaOfItsLengthTimesItsWidth) {
    // The middle of the trace: half sides first, whole sides, the last half side, then the lead.
    const std::int64_t pitch = 15;
    const std::int64_t middle = 55;
    const std::int64_t length = middle + 2 * middle + 2 * middle + (2 * middle + pitch) + middle;
    const Drawing drawing = draw({Shape::square, 1, 10, 5, 50});
    EXPECT_EQ(twiceArea(drawing.trace), 2 * (length * 10 + 10 * 10 + 15 * 10));
}

TEST(SpiralGeometry, BothLeadsReachEquallyFarWithThePinsAtTheirEnds) {
    for (const Shape shape : {Shape::square, Shape::octagon}) {
        const Dimensions size = dimensions(shape, 4, 20, 10);
        const Drawing drawing = draw(size);
        const std::int64_t reach = outerReach(size);
        const auto right =
            std::max_element(drawing.trace.begin(), drawing.trace.end(),
                             [](const Point& a, const Point& b) { return a.x < b.x; });
        EXPECT_EQ(right->x, reach);
        EXPECT_EQ(drawing.outerPin, (Box{reach - 20, 0, reach, 20}));
        EXPECT_EQ(drawing.underpass.left, -reach);
        EXPECT_EQ(drawing.innerPin, (Box{-reach, 0, 20 - reach, 20}));
        EXPECT_EQ(drawing.via, (Box{size.innerRadius, 0, size.innerRadius + 20, 20}));
        EXPECT_EQ(drawing.underpass.right, drawing.via.right);
    }
}

TEST(SpiralGeometry, TheLeastRadiusIsTheLeast) {
    EXPECT_EQ(leastInnerRadius(Shape::square, 10, 5), 15);
    EXPECT_EQ(leastInnerRadius(Shape::octagon, 10, 5), 42);
    for (const std::int64_t width : {1, 15, 1001}) {
        const std::int64_t radius = leastInnerRadius(Shape::octagon, width, 1);
        EXPECT_GE(diagonalSteps(radius) - radius, width + 2);
        EXPECT_LT(diagonalSteps(radius - 1) - (radius - 1), width + 2);
    }
}

} // namespace
} // namespace spiral
