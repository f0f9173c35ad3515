#include "design/src/path_outline.h"

#include "base/src/geometry.h"

#include <algorithm>
#include <cmath>

namespace OpenAccess_4::impl {

namespace {

/// A vector of the plane, in fractions of database units.
struct Vec {
    double x = 0;
    double y = 0;

    friend Vec operator+(Vec a, Vec b) { return {a.x + b.x, a.y + b.y}; }
    friend Vec operator-(Vec a, Vec b) { return {a.x - b.x, a.y - b.y}; }
    friend Vec operator*(Vec a, double factor) { return {a.x * factor, a.y * factor}; }
    friend double dot(Vec a, Vec b) { return a.x * b.x + a.y * b.y; }
    Vec left() const { return {-y, x}; }
};

Vec vec(const oaPoint& point) {
    return {double(point.x()), double(point.y())};
}

Vec direction(Vec from, Vec to) {
    const Vec way = to - from;
    return way * (1 / std::hypot(way.x, way.y));
}

std::vector<oaPoint> rounded(const std::vector<Vec>& outline) {
    std::vector<oaPoint> points;
    for (const Vec& at : outline) {
        const oaPoint point(nearestCoord(at.x), nearestCoord(at.y));
        if (points.empty() || points.back() != point)
            points.push_back(point);
    }
    while (points.size() > 1 && points.back() == points.front())
        points.pop_back();
    return points;
}

// The half side of a regular octagon, in units of the distance of its sides from the middle.
const double kHalfOctagonSide = std::sqrt(2.0) - 1;

// A corner is cut off when its tip would lie further away than this many half widths.
constexpr double kLongestMiter = 4;

/// Follows a path and collects the points on its left and on its right.
class PathWalk {
public:
    PathWalk(std::vector<Vec> points, double halfWidth)
        : points_(std::move(points)), half_(halfWidth) {}

    std::vector<oaPoint> outline(oaPathStyleEnum style, double beginExt, double endExt) {
        const Vec first = direction(points_[0], points_[1]);
        const Vec last = direction(points_[points_.size() - 2], points_.back());
        const bool round = style == oacRoundPathStyle;
        // The begin cap is an end cap seen from the other side: its left is our right.
        addCap(right_, left_, points_.front(), first * -1, beginExt, round, true);
        for (std::size_t i = 1; i + 1 < points_.size(); ++i)
            addCorner(direction(points_[i - 1], points_[i]), points_[i],
                      direction(points_[i], points_[i + 1]));
        addCap(left_, right_, points_.back(), last, endExt, round, false);
        std::vector<Vec> all = right_;
        all.insert(all.end(), left_.rbegin(), left_.rend());
        return rounded(all);
    }

private:
    /// The points at one end, `out` being the direction out of the path.
    void addCap(std::vector<Vec>& left, std::vector<Vec>& right, Vec at, Vec out, double ext,
                bool round, bool outermostFirst) {
        const Vec side = out.left() * half_;
        if (!round) {
            left.push_back(at + out * ext + side);
            right.push_back(at + out * ext - side);
            return;
        }
        const double k = kHalfOctagonSide;
        Vec near = out * (half_ * k);
        Vec far = out * half_;
        Vec nearSide = side;
        Vec farSide = side * k;
        if (outermostFirst) {
            std::swap(near, far);
            std::swap(nearSide, farSide);
        }
        left.push_back(at + near + nearSide);
        left.push_back(at + far + farSide);
        right.push_back(at + near - nearSide);
        right.push_back(at + far - farSide);
    }

    void addCorner(Vec before, Vec at, Vec after) {
        const Vec n1 = before.left();
        const Vec n2 = after.left();
        const double spread = 1 + dot(n1, n2);
        if (spread * kLongestMiter * kLongestMiter < 2) {
            left_.push_back(at + n1 * half_);
            left_.push_back(at + n2 * half_);
            right_.push_back(at - n1 * half_);
            right_.push_back(at - n2 * half_);
            return;
        }
        const Vec miter = (n1 + n2) * (half_ / spread);
        left_.push_back(at + miter);
        right_.push_back(at - miter);
    }

    std::vector<Vec> points_;
    double half_;
    std::vector<Vec> left_;
    std::vector<Vec> right_;
};

/// Keeps the part of a convex outline with dot(normal, point) <= limit.
std::vector<Vec> clipped(const std::vector<Vec>& outline, Vec normal, double limit) {
    std::vector<Vec> kept;
    for (std::size_t i = 0; i < outline.size(); ++i) {
        const Vec a = outline[i];
        const Vec b = outline[(i + 1) % outline.size()];
        const double overA = dot(normal, a) - limit;
        const double overB = dot(normal, b) - limit;
        if (overA <= 0)
            kept.push_back(a);
        if ((overA < 0 && overB > 0) || (overA > 0 && overB < 0))
            kept.push_back(a + (b - a) * (overA / (overA - overB)));
    }
    return kept;
}

double extension(const SegEnd& end, double width) {
    switch (oaEndStyleEnum(end.style)) {
    case oacTruncateEndStyle:
        return 0;
    case oacExtendEndStyle:
    case oacChamferEndStyle:
        return width / 2;
    default:
        return end.ext;
    }
}

/// Cuts the two corners of an end off that reach further along the diagonals than they may; `out`
/// is the direction out of the segment, left and right are as seen along it.
std::vector<Vec> withEnd(const std::vector<Vec>& outline, Vec at, Vec out, const SegEnd& end,
                         double width, bool isBegin) {
    const bool chamfer = end.style == oacChamferEndStyle;
    if (!chamfer && end.style != oacCustomEndStyle)
        return outline;
    // Left and right of the segment are those of its direction, against which its begin looks.
    double left = chamfer ? width / 2 : isBegin ? end.rightDiagExt : end.leftDiagExt;
    double right = chamfer ? width / 2 : isBegin ? end.leftDiagExt : end.rightDiagExt;
    const double scale = 1 / std::sqrt(2.0);
    const Vec leftDiagonal = (out + out.left()) * scale;
    const Vec rightDiagonal = (out - out.left()) * scale;
    return clipped(clipped(outline, leftDiagonal, dot(leftDiagonal, at) + left), rightDiagonal,
                   dot(rightDiagonal, at) + right);
}

} // namespace

std::vector<oaPoint> pathOutline(std::span<const oaPoint> points, oaDist width,
                                 oaPathStyleEnum style, oaDist beginExt, oaDist endExt) {
    std::vector<Vec> different;
    for (std::size_t i = 0; i < points.size(); ++i)
        if (i == 0 || points[i] != points[i - 1])
            different.push_back(vec(points[i]));
    if (width == 0 || different.size() < 2)
        return {};
    const double half = width / 2.0;
    const bool variable = style == oacVariablePathStyle;
    const double extend = style == oacExtendPathStyle ? half : 0;
    return PathWalk(std::move(different), half)
        .outline(style, variable ? beginExt : extend, variable ? endExt : extend);
}

std::vector<oaPoint> pathSegOutline(const PathSegRecord& segment) {
    if (segment.width == 0 || segment.begin == segment.end)
        return {};
    const double width = segment.width;
    const Vec begin = vec(segment.begin);
    const Vec end = vec(segment.end);
    const Vec way = direction(begin, end);
    double right = width / 2;
    if (segment.beginEnd.style == oacCustomEndStyle)
        right = segment.beginEnd.rightHalfWidth;
    else if (segment.endEnd.style == oacCustomEndStyle)
        right = segment.endEnd.rightHalfWidth;
    const Vec toRight = way.left() * -right;
    const Vec toLeft = way.left() * (width - right);
    const Vec first = begin - way * extension(segment.beginEnd, width);
    const Vec last = end + way * extension(segment.endEnd, width);
    std::vector<Vec> outline = {first + toRight, last + toRight, last + toLeft, first + toLeft};
    outline = withEnd(outline, begin, way * -1, segment.beginEnd, width, true);
    outline = withEnd(outline, end, way, segment.endEnd, width, false);
    return rounded(outline);
}

} // namespace OpenAccess_4::impl
