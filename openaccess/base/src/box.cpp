#include "oaBox.h"

#include "base/src/geometry.h"
#include "oaSegment.h"
#include "oaTransform.h"

#include <algorithm>

namespace OpenAccess_4 {

namespace {

oaDouble outside(oaCoord value, oaCoord low, oaCoord high) {
    if (value < low)
        return static_cast<oaDouble>(low) - value;
    if (value > high)
        return static_cast<oaDouble>(value) - high;
    return 0;
}

} // namespace

void oaBox::set(oaCoord left, oaCoord bottom, oaCoord right, oaCoord top) {
    lowerLeft_.set(left, bottom);
    upperRight_.set(right, top);
}

void oaBox::set(const oaPoint& lowerLeft, const oaPoint& upperRight) {
    *this = oaBox(lowerLeft, upperRight);
}

void oaBox::set(const oaPoint& center, oaUInt4 size) {
    const oaCoord half = static_cast<oaCoord>(size / 2);
    const oaCoord rest = static_cast<oaCoord>(size - size / 2);
    *this = oaBox(center - oaPoint(half, half), center + oaPoint(rest, rest));
}

void oaBox::set(const oaBox& box, const oaTransform& xform) {
    box.transform(xform, *this);
}

oaUInt4 oaBox::getWidth() const {
    return isInverted() ? 0 : static_cast<oaUInt4>(oaInt8(right()) - left());
}

oaUInt4 oaBox::getHeight() const {
    return isInverted() ? 0 : static_cast<oaUInt4>(oaInt8(top()) - bottom());
}

void oaBox::getCenter(oaPoint& result) const {
    result.set(static_cast<oaCoord>((oaInt8(left()) + right()) / 2),
               static_cast<oaCoord>((oaInt8(bottom()) + top()) / 2));
}

void oaBox::getLowerRight(oaPoint& result) const {
    result.set(right(), bottom());
}

void oaBox::getUpperLeft(oaPoint& result) const {
    result.set(left(), top());
}

void oaBox::toPoints(oaPoint* points) const {
    points[0] = lowerLeft_;
    points[1].set(right(), bottom());
    points[2] = upperRight_;
    points[3].set(left(), top());
}

oaBoolean oaBox::hasNoArea() const {
    return left() >= right() || bottom() >= top();
}

oaBoolean oaBox::overlaps(const oaBox& box, oaBoolean incEdges) const {
    if (isInverted() || box.isInverted())
        return false;
    if (incEdges) {
        return left() <= box.right() && box.left() <= right() && bottom() <= box.top() &&
               box.bottom() <= top();
    }
    return left() < box.right() && box.left() < right() && bottom() < box.top() &&
           box.bottom() < top();
}

oaBoolean oaBox::overlaps(const oaSegment& seg, oaBoolean incEdges) const {
    if (seg.head() == seg.tail())
        return contains(seg.head(), incEdges);
    oaBox around(seg.head(), seg.head());
    around.merge(seg.tail());
    if (!overlaps(around, incEdges))
        return false;
    // Beyond that, they are apart only when all corners lie on one side of the segment.
    oaPoint corners[4];
    toPoints(corners);
    int lowest = 1;
    int highest = -1;
    for (const oaPoint& corner : corners) {
        const int side = impl::sign(impl::area2(seg.head(), seg.tail(), corner));
        lowest = std::min(lowest, side);
        highest = std::max(highest, side);
    }
    return incEdges ? lowest <= 0 && highest >= 0 : lowest < 0 && highest > 0;
}

oaBoolean oaBox::contains(const oaBox& box, oaBoolean incEdges) const {
    return !box.isInverted() && contains(box.lowerLeft_, incEdges) &&
           contains(box.upperRight_, incEdges);
}

oaBoolean oaBox::contains(const oaPoint& point, oaBoolean incEdges) const {
    if (incEdges) {
        return left() <= point.x() && point.x() <= right() && bottom() <= point.y() &&
               point.y() <= top();
    }
    return left() < point.x() && point.x() < right() && bottom() < point.y() && point.y() < top();
}

oaDouble oaBox::distanceFrom2(const oaPoint& point) const {
    const oaDouble dx = outside(point.x(), left(), right());
    const oaDouble dy = outside(point.y(), bottom(), top());
    return dx * dx + dy * dy;
}

void oaBox::fix(oaBox& result) const {
    result = oaBox(std::min(left(), right()), std::min(bottom(), top()), std::max(left(), right()),
                   std::max(bottom(), top()));
}

void oaBox::fix() {
    fix(*this);
}

void oaBox::merge(const oaBox& box, oaBox& result) const {
    if (box.isInverted())
        result = *this;
    else if (isInverted())
        result = box;
    else
        result = oaBox(std::min(left(), box.left()), std::min(bottom(), box.bottom()),
                       std::max(right(), box.right()), std::max(top(), box.top()));
}

void oaBox::merge(const oaBox& box) {
    merge(box, *this);
}

void oaBox::merge(const oaPoint& point, oaBox& result) const {
    merge(oaBox(point, point), result);
}

void oaBox::merge(const oaPoint& point) {
    merge(point, *this);
}

void oaBox::intersection(const oaBox& box, oaBox& result) const {
    result = oaBox(std::max(left(), box.left()), std::max(bottom(), box.bottom()),
                   std::min(right(), box.right()), std::min(top(), box.top()));
}

void oaBox::intersection(const oaBox& box) {
    intersection(box, *this);
}

void oaBox::transform(const oaTransform& xform, oaBox& result) const {
    if (isInverted()) {
        result = *this;
        return;
    }
    const oaBox corners(oaPoint(lowerLeft_, xform), oaPoint(upperRight_, xform));
    corners.fix(result);
}

void oaBox::transform(const oaTransform& xform) {
    transform(xform, *this);
}

void oaBox::transform(const oaPoint& offset, oaBox& result) const {
    transform(oaTransform(offset), result);
}

void oaBox::transform(const oaPoint& offset) {
    transform(offset, *this);
}

void oaBox::transform(oaDouble scale, oaDouble angle, oaBox& result) const {
    if (isInverted()) {
        result = *this;
        return;
    }
    oaPoint corners[4];
    toPoints(corners);
    result.init();
    for (oaPoint& corner : corners) {
        corner.transform(scale, angle);
        result.merge(corner);
    }
}

void oaBox::transform(oaDouble scale, oaDouble angle) {
    transform(scale, angle, *this);
}

void oaBox::scale(oaFloat scale) {
    for (oaPoint* corner : {&lowerLeft_, &upperRight_})
        corner->set(impl::nearestCoord(oaDouble(corner->x()) * scale),
                    impl::nearestCoord(oaDouble(corner->y()) * scale));
}

} // namespace OpenAccess_4
