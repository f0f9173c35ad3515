#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

/// The layout that the benchmarks save, open and evaluate: pseudo-random rectangles and octagons on
/// a grid of 5 nm (one database unit is 1 nm) in a field of 10 mm, no two of them alike. Drawn the
/// same by every side.
namespace bench {

inline constexpr std::size_t kLayers = 8;
inline constexpr std::size_t kRectangles = 1'000'000;
inline constexpr std::size_t kOctagons = 100'000;
inline constexpr std::size_t kShapes = kRectangles + kOctagons; // unless another number is given

struct Point {
    std::int32_t x = 0;
    std::int32_t y = 0;
};

struct Box {
    Point low;
    Point high;
};

using Octagon = std::array<Point, 8>;

/// Numbers that are the same in every run.
class Random {
public:
    /// A number from 0 to `bound` - 1.
    std::uint32_t below(std::uint32_t bound) {
        state_ = state_ * 6364136223846793005u + 1442695040888963407u;
        return std::uint32_t(((state_ >> 32) * bound) >> 32);
    }

private:
    std::uint64_t state_ = 2024;
};

inline constexpr std::int32_t kGrid = 5;
inline constexpr std::int32_t kField = 10'000'000;

inline std::int32_t onGrid(Random& random, std::int32_t least, std::int32_t most) {
    const auto steps = std::uint32_t((most - least) / kGrid + 1);
    return least + kGrid * std::int32_t(random.below(steps));
}

inline Octagon octagonAround(Point center, std::int32_t outer, std::int32_t inner) {
    const auto at = [&](std::int32_t dx, std::int32_t dy) {
        return Point{center.x + dx, center.y + dy};
    };
    return {at(-inner, -outer), at(inner, -outer), at(outer, -inner), at(outer, inner),
            at(inner, outer),   at(-inner, outer), at(-outer, inner), at(-outer, -inner)};
}

/// Calls `rectangle(layer, box)` and `octagon(layer, points)` for every shape, in one order in
/// which layers and kinds are mixed.
template <class Rectangle, class OctagonVisit>
void draw(std::size_t shapes, Rectangle rectangle, OctagonVisit octagon) {
    Random random;
    for (std::size_t i = 0; i < shapes; ++i) {
        const std::uint32_t layer = random.below(kLayers);
        const Point center{onGrid(random, 0, kField), onGrid(random, 0, kField)};
        const std::int32_t first = onGrid(random, kGrid, 5'000);
        const std::int32_t second = onGrid(random, kGrid, 5'000);
        if (i % (kShapes / kOctagons) == 0)
            octagon(layer, octagonAround(center, first + second, first));
        else
            rectangle(layer, Box{{center.x - first, center.y - second},
                                 {center.x + first, center.y + second}});
    }
}

/// What a visit of boxes adds up; every side must arrive at the same.
struct BoxSum {
    std::uint64_t count = 0;
    std::int64_t sum = 0;

    void add(std::int32_t left, std::int32_t bottom, std::int32_t right, std::int32_t top) {
        ++count;
        sum += std::int64_t(left) + 3 * std::int64_t(bottom) + 5 * std::int64_t(right) +
               7 * std::int64_t(top);
    }
    friend bool operator==(const BoxSum&, const BoxSum&) = default;
};

/// The box around an octagon made by octagonAround().
inline Box boxOf(const Octagon& points) {
    return {{points[7].x, points[0].y}, {points[2].x, points[4].y}};
}

/// The sum over a content of that many shapes.
BoxSum expectedSum(std::size_t shapes = kShapes);

} // namespace bench
