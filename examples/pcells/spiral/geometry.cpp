#include "geometry.h"

#include <cmath>

namespace spiral {
namespace {

/// The line `normalX * x + normalY * y == offset`.
struct Line {
    std::int64_t normalX;
    std::int64_t normalY;
    std::int64_t offset;
};

/// The directions from the centre to the eight sides of a turn, the first one to the right.
constexpr Point directions[] = {{1, 0},  {1, 1},   {0, 1},  {-1, 1},
                                {-1, 0}, {-1, -1}, {0, -1}, {1, -1}};

constexpr bool isDiagonal(const Point& direction) {
    return direction.x != 0 && direction.y != 0;
}

/// Where the edges of neighbouring sides meet. Their normals span one unit of area, so that the
/// corner is a whole number of steps away.
Point cornerOf(const Line& first, const Line& second) {
    return {first.offset * second.normalY - second.offset * first.normalY,
            first.normalX * second.offset - second.normalX * first.offset};
}

class Edges {
public:
    explicit Edges(const Dimensions& dimensions)
        : sidesPerTurn_(dimensions.shape == Shape::octagon ? 8 : 4),
          sideCount_(sidesPerTurn_ * dimensions.turns),
          width_(dimensions.width),
          pitch_(dimensions.width + dimensions.spacing),
          radius_(dimensions.innerRadius),
          diagonalWidth_(diagonalSteps(dimensions.width)),
          diagonalPitch_(diagonalWidth_ + diagonalSteps(dimensions.spacing)),
          diagonalRadius_(diagonalSteps(dimensions.innerRadius)) {}

    /// The corners between the sides, from the inner end to the outer one.
    std::vector<Point> corners(bool outer) const {
        std::vector<Point> points;
        for (int side = 1; side <= sideCount_; ++side)
            points.push_back(cornerOf(edge(side - 1, outer), edge(side, outer)));
        return points;
    }

    /// Where an edge of the first and of the last side is, from the centre.
    std::int64_t first(bool outer) const { return edge(0, outer).offset; }
    std::int64_t last(bool outer) const { return edge(sideCount_, outer).offset; }

private:
    Line edge(int side, bool outer) const {
        const int turn = side / sidesPerTurn_;
        const Point& to = directions[side % sidesPerTurn_ * (8 / sidesPerTurn_)];
        const std::int64_t inside =
            isDiagonal(to) ? diagonalRadius_ + turn * diagonalPitch_ : radius_ + turn * pitch_;
        const std::int64_t across = isDiagonal(to) ? diagonalWidth_ : width_;
        return {to.x, to.y, outer ? inside + across : inside};
    }

    int sidesPerTurn_;
    int sideCount_;
    std::int64_t width_;
    std::int64_t pitch_;
    std::int64_t radius_;
    std::int64_t diagonalWidth_;
    std::int64_t diagonalPitch_;
    std::int64_t diagonalRadius_;
};

} // namespace

std::int64_t diagonalSteps(std::int64_t length) {
    auto steps = static_cast<std::int64_t>(std::sqrt(2.0) * static_cast<double>(length));
    while (steps * steps < 2 * length * length)
        ++steps;
    while (steps > 0 && (steps - 1) * (steps - 1) >= 2 * length * length)
        --steps;
    return steps;
}

std::int64_t leastInnerRadius(Shape shape, std::int64_t width, std::int64_t spacing) {
    if (shape == Shape::square)
        return width + spacing;
    // From the axis to the corner that the inner end's outer edge makes with the last diagonal.
    const std::int64_t needed = width + diagonalSteps(spacing);
    std::int64_t radius = needed;
    while (diagonalSteps(radius) - radius < needed)
        ++radius;
    return radius;
}

std::int64_t outerReach(const Dimensions& dimensions) {
    const std::int64_t pitch = dimensions.width + dimensions.spacing;
    return dimensions.innerRadius + (dimensions.turns + 1) * pitch + dimensions.width;
}

Drawing draw(const Dimensions& dimensions) {
    const Edges edges(dimensions);
    const std::int64_t width = dimensions.width;
    const std::int64_t reach = outerReach(dimensions);
    const std::vector<Point> inner = edges.corners(false);
    const std::vector<Point> outer = edges.corners(true);

    Drawing drawing;
    drawing.trace.push_back({edges.first(false), 0});
    drawing.trace.insert(drawing.trace.end(), inner.begin(), inner.end());
    drawing.trace.push_back({edges.last(false), width});
    drawing.trace.push_back({reach, width});
    drawing.trace.push_back({reach, 0});
    drawing.trace.push_back({edges.last(true), 0});
    drawing.trace.insert(drawing.trace.end(), outer.rbegin(), outer.rend());
    drawing.trace.push_back({edges.first(true), 0});
    drawing.via = {edges.first(false), 0, edges.first(true), width};
    drawing.underpass = {-reach, 0, edges.first(true), width};
    drawing.outerPin = {reach - width, 0, reach, width};
    drawing.innerPin = {-reach, 0, width - reach, width};
    return drawing;
}

} // namespace spiral
