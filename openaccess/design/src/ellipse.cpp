#include "design/src/ellipse.h"

#include "base/src/geometry.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace OpenAccess_4::impl {

namespace {

constexpr double kTurn = 2 * std::numbers::pi;

oaPoint pointAt(const oaBox& box, double angle) {
    const double x = (double(box.left()) + box.right()) / 2;
    const double y = (double(box.bottom()) + box.top()) / 2;
    const double a = (double(box.right()) - box.left()) / 2;
    const double b = (double(box.top()) - box.bottom()) / 2;
    return {nearestCoord(x + a * std::cos(angle)), nearestCoord(y + b * std::sin(angle))};
}

} // namespace

Sweep sweepOf(double startAngle, double stopAngle) {
    double angle = std::fmod(stopAngle - startAngle, kTurn);
    if (angle <= 0)
        angle += kTurn;
    return {std::fmod(startAngle, kTurn), angle};
}

std::vector<oaPoint> arcPoints(const oaBox& box, const Sweep& sweep, oaUInt4 segments) {
    std::vector<oaPoint> points;
    for (oaUInt4 i = 0; i <= segments; ++i)
        points.push_back(pointAt(box, sweep.start + sweep.angle * i / std::max(segments, 1u)));
    return points;
}

std::vector<oaPoint> ellipsePoints(const oaBox& box, oaUInt4 sides) {
    std::vector<oaPoint> points = arcPoints(box, {0, kTurn}, sides);
    points.pop_back();
    return points;
}

oaBox arcBox(const oaBox& box, const Sweep& sweep) {
    const oaPoint first = pointAt(box, sweep.start);
    const oaPoint last = pointAt(box, sweep.start + sweep.angle);
    oaBox result(std::min(first.x(), last.x()), std::min(first.y(), last.y()),
                 std::max(first.x(), last.x()), std::max(first.y(), last.y()));
    // The ends of the axes that lie within the arc.
    const double quarter = kTurn / 4;
    const double end = sweep.start + sweep.angle;
    for (double k = std::ceil(sweep.start / quarter); k * quarter <= end; ++k) {
        switch ((int(k) % 4 + 4) % 4) {
        case 0:
            result.right() = box.right();
            break;
        case 1:
            result.top() = box.top();
            break;
        case 2:
            result.left() = box.left();
            break;
        default:
            result.bottom() = box.bottom();
        }
    }
    return result;
}

} // namespace OpenAccess_4::impl
