#include "oaPointArray.h"

#include "base/src/geometry.h"
#include "base/src/point_sequence.h"
#include "oaSegment.h"

#include <algorithm>

namespace OpenAccess_4 {

namespace {

std::span<const oaPoint> pointsOf(const oaPointArray& array) {
    return {array.getElements(), array.getNumElements()};
}

// Even-odd rule, with all coordinates doubled so that the center of every box can be asked for.
bool isInsideDoubled(std::span<const oaPoint> points, oaInt8 doubledX, oaInt8 doubledY) {
    bool inside = false;
    for (std::size_t i = 0; i < points.size(); ++i) {
        const oaPoint& from = points[i];
        const oaPoint& to = points[i + 1 == points.size() ? 0 : i + 1];
        const bool fromAbove = 2 * oaInt8(from.y()) > doubledY;
        const bool toAbove = 2 * oaInt8(to.y()) > doubledY;
        if (fromAbove == toAbove)
            continue;
        const impl::Wide side =
            (impl::Wide(to.x()) - from.x()) * (doubledY - 2 * oaInt8(from.y())) -
            (impl::Wide(to.y()) - from.y()) * (doubledX - 2 * oaInt8(from.x()));
        if (toAbove ? side < 0 : side > 0)
            inside = !inside;
    }
    return inside;
}

} // namespace

oaPointArray::oaPointArray(const oaPointArray& points, const oaTransform& xform) {
    points.transform(xform, *this);
}

oaPointArray::oaPointArray(const oaPointArray& points, const oaPoint& offset) {
    points.transform(offset, *this);
}

oaPointArray::oaPointArray(const oaBox& box) {
    setNumElements(4);
    box.toPoints(getElements());
}

oaBoolean oaPointArray::isSelfIntersecting(oaBoolean isClosed) const {
    return impl::isSelfIntersecting(pointsOf(*this), isClosed);
}

oaBoolean oaPointArray::isOrthogonal(oaBoolean isClosed) const {
    return impl::allEdges(pointsOf(*this), isClosed,
                          [](const oaSegment& edge) { return edge.isOrthogonal(); });
}

oaBoolean oaPointArray::hasExtraPoints(oaBoolean isClosed) const {
    return impl::hasExtraPoints(pointsOf(*this), isClosed);
}

oaBoolean oaPointArray::isRectangle() const {
    const std::vector<oaPoint> corners = impl::compressed(pointsOf(*this), true);
    if (corners.size() != 4)
        return false;
    return impl::allEdges(corners, true, [](const oaSegment& edge) { return edge.isOrthogonal(); });
}

oaBoolean oaPointArray::onEdge(const oaPoint& point, oaBoolean isClosed) const {
    return !impl::allEdges(pointsOf(*this), isClosed,
                           [&](const oaSegment& edge) { return !edge.contains(point); });
}

oaBoolean oaPointArray::contains(const oaPoint& point, oaBoolean includeEdges) const {
    if (onEdge(point))
        return includeEdges;
    return isInsideDoubled(pointsOf(*this), 2 * oaInt8(point.x()), 2 * oaInt8(point.y()));
}

oaBoolean oaPointArray::contains(const oaBox& box) const {
    if (box.isInverted())
        return false;
    oaPoint corners[4];
    box.toPoints(corners);
    if (!std::all_of(corners, corners + 4, [&](const oaPoint& c) { return contains(c); }))
        return false;
    if (!impl::allEdges(pointsOf(*this), true,
                        [&](const oaSegment& edge) { return !box.overlaps(edge, false); }))
        return false;
    if (box.hasNoArea())
        return true;
    // No edge cuts the box, so its center speaks for all of it.
    return isInsideDoubled(pointsOf(*this), oaInt8(box.left()) + box.right(),
                           oaInt8(box.bottom()) + box.top());
}

oaBoolean oaPointArray::overlaps(const oaBox& box, oaBoolean closed) const {
    if (box.isInverted())
        return false;
    if (!impl::allEdges(pointsOf(*this), closed,
                        [&](const oaSegment& edge) { return !box.overlaps(edge); }))
        return true;
    return closed && contains(box.lowerLeft());
}

oaDouble oaPointArray::distanceFrom2(const oaPoint& point) const {
    if (contains(point))
        return 0;
    oaDouble nearest = getNumElements() ? get(0).distanceFrom2(point) : 0;
    impl::allEdges(pointsOf(*this), true, [&](const oaSegment& edge) {
        nearest = std::min(nearest, edge.distanceFrom2(point));
        return true;
    });
    return nearest;
}

oaDouble oaPointArray::getArea() const {
    impl::Wide twice = 0;
    for (oaUInt4 i = 2; i < getNumElements(); ++i)
        twice += impl::area2(get(0), get(i - 1), get(i));
    return static_cast<oaDouble>(twice < 0 ? -twice : twice) / 2;
}

void oaPointArray::getBBox(oaBox& bBox) const {
    bBox.init();
    for (const oaPoint& point : pointsOf(*this))
        bBox.merge(point);
}

void oaPointArray::compress(oaPointArray& pointsOut, oaBoolean isClosed) const {
    const std::vector<oaPoint> kept = impl::compressed(pointsOf(*this), isClosed);
    pointsOut.set(kept.data(), static_cast<oaUInt4>(kept.size()));
}

void oaPointArray::compress(oaBoolean isClosed) {
    compress(*this, isClosed);
}

void oaPointArray::transform(const oaTransform& xform, oaPointArray& result) const {
    result.setNumElements(getNumElements());
    for (oaUInt4 i = 0; i < getNumElements(); ++i)
        get(i).transform(xform, result[i]);
}

void oaPointArray::transform(const oaTransform& xform) {
    transform(xform, *this);
}

void oaPointArray::transform(const oaPoint& offset, oaPointArray& result) const {
    transform(oaTransform(offset), result);
}

void oaPointArray::transform(const oaPoint& offset) {
    transform(offset, *this);
}

void oaPointArray::transform(oaDouble scale, oaDouble angle, oaPointArray& result) const {
    result.setNumElements(getNumElements());
    for (oaUInt4 i = 0; i < getNumElements(); ++i)
        get(i).transform(scale, angle, result[i]);
}

void oaPointArray::transform(oaDouble scale, oaDouble angle) {
    transform(scale, angle, *this);
}

bool oaPointArray::operator==(const oaPointArray& other) const {
    const std::span<const oaPoint> own = pointsOf(*this);
    const std::span<const oaPoint> others = pointsOf(other);
    return std::equal(own.begin(), own.end(), others.begin(), others.end());
}

} // namespace OpenAccess_4
