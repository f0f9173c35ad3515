#include "component/outline.h"

#include <algorithm>
#include <iterator>
#include <tuple>

namespace component {
namespace {

/// A product of two coordinate differences: each has up to 32 bits beside its sign, so that the
/// magnitude just fits into 64 bits.
struct Product {
    bool negative;
    std::uint64_t magnitude;

    Product(std::int64_t a, std::int64_t b)
        : negative((a < 0) != (b < 0) && a != 0 && b != 0),
          magnitude(static_cast<std::uint64_t>(a < 0 ? -a : a) *
                    static_cast<std::uint64_t>(b < 0 ? -b : b)) {}

    friend bool operator==(const Product&, const Product&) = default;
};

bool onOneLine(const Point& a, const Point& b, const Point& c) {
    const std::int64_t firstX = std::int64_t{b.x} - a.x;
    const std::int64_t firstY = std::int64_t{b.y} - a.y;
    const std::int64_t secondX = std::int64_t{c.x} - b.x;
    const std::int64_t secondY = std::int64_t{c.y} - b.y;
    return Product(firstX, secondY) == Product(firstY, secondX);
}

void append(Outline& outline, const Point& point) {
    while (outline.size() >= 2 && onOneLine(outline[outline.size() - 2], outline.back(), point))
        outline.pop_back();
    if (outline.empty() || outline.back() != point)
        outline.push_back(point);
}

} // namespace

Outline cleanPolygon(const Outline& outline) {
    Outline points;
    points.reserve(outline.size());
    for (const Point& point : outline)
        append(points, point);

    // What is left to do lies around the seam between the last and the first point.
    std::size_t first = 0;
    while (points.size() - first >= 3) {
        const Point& last = points.back();
        if (last == points[first] || onOneLine(points[points.size() - 2], last, points[first]))
            points.pop_back();
        else if (onOneLine(last, points[first], points[first + 1]))
            ++first;
        else
            break;
    }
    points.erase(points.begin(), points.begin() + static_cast<std::ptrdiff_t>(first));
    return points;
}

Outline cleanLine(const Outline& line) {
    Outline points;
    std::unique_copy(line.begin(), line.end(), std::back_inserter(points));
    return points;
}

bool isRectangle(const Outline& outline) {
    if (outline.size() != 4)
        return false;
    const auto& [a, b, c, d] = std::tie(outline[0], outline[1], outline[2], outline[3]);
    const bool flatStart = a.y == b.y && b.x == c.x && c.y == d.y && d.x == a.x;
    const bool steepStart = a.x == b.x && b.y == c.y && c.x == d.x && d.y == a.y;
    return flatStart || steepStart;
}

} // namespace component
