#pragma once

#include <cstdint>
#include <vector>

namespace spiral {

enum class Shape { square, octagon };

/// What a spiral is drawn from. Lengths are whole steps of the grid, so that every corner of the
/// drawing lies on it.
struct Dimensions {
    Shape shape = Shape::octagon;
    int turns = 1;
    std::int64_t width = 1;
    std::int64_t spacing = 1;
    /// Half the inner diameter.
    std::int64_t innerRadius = 1;
};

struct Point {
    std::int64_t x = 0;
    std::int64_t y = 0;

    friend bool operator==(const Point&, const Point&) = default;
};

struct Box {
    std::int64_t left = 0;
    std::int64_t bottom = 0;
    std::int64_t right = 0;
    std::int64_t top = 0;

    friend bool operator==(const Box&, const Box&) = default;
};

/// A spiral around the origin, counter-clockwise from its inner end to its outer one.
///
/// - The trace begins on the positive x axis, goes round `turns` times and leaves to the right.
/// - The inner end goes through the via down to the underpass, which leaves to the left.
/// - Both leads end as far from the origin, with their lower edge on the x axis.
struct Drawing {
    std::vector<Point> trace;
    Box via;
    Box underpass;
    /// The last piece of each lead, as long as it is wide.
    Box outerPin;
    Box innerPin;
};

/// The least length in a diagonal direction, counted in steps along x plus steps along y, that is
/// no shorter than `length`: rounded up from the square root of two times as much.
std::int64_t diagonalSteps(std::int64_t length);

/// The smallest inner radius for which the first side has room for the via and for the gap to the
/// outer end.
std::int64_t leastInnerRadius(Shape shape, std::int64_t width, std::int64_t spacing);

/// Half the width of the whole drawing, leads included.
std::int64_t outerReach(const Dimensions& dimensions);

/// Draws a spiral whose inner radius is at least the least one.
///
/// Sides along the axes have the width and the spacing exactly. Diagonal sides have the smallest
/// ones on the grid that are not below them, less than one step more.
Drawing draw(const Dimensions& dimensions);

} // namespace spiral
