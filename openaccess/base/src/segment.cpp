#include "oaSegment.h"

#include "base/src/geometry.h"
#include "oaBox.h"

#include <algorithm>

namespace OpenAccess_4 {

namespace {

oaBox boxOf(const oaSegment& seg) {
    oaBox box(seg.head(), seg.tail());
    box.fix();
    return box;
}

// The common piece of two segments of one line, as the box that it is the diagonal of.
oaBox commonPiece(const oaSegment& a, const oaSegment& b) {
    oaBox common;
    boxOf(a).intersection(boxOf(b), common);
    return common;
}

int sideOf(const oaSegment& seg, const oaPoint& point) {
    return impl::sign(impl::area2(seg.head(), seg.tail(), point));
}

} // namespace

void oaSegment::set(const oaPoint& head, const oaPoint& tail) {
    head_ = head;
    tail_ = tail;
}

void oaSegment::set(const oaVector& vec, const oaPoint& ref) {
    tail_ = ref;
    vec.addToPoint(ref, head_);
}

oaBoolean oaSegment::contains(const oaPoint& point, oaBoolean includeEnds) const {
    return impl::area2(head_, tail_, point) == 0 && collinearContains(point, includeEnds);
}

oaBoolean oaSegment::collinearContains(const oaPoint& point, oaBoolean includeEnds) const {
    if (!includeEnds && (point == head_ || point == tail_))
        return false;
    return boxOf(*this).contains(point);
}

oaBoolean oaSegment::intersects(const oaSegment& seg, oaBoolean includeEnds,
                                oaBoolean includeOverlap) const {
    const int headSide = sideOf(*this, seg.head_);
    const int tailSide = sideOf(*this, seg.tail_);
    if (headSide == 0 && tailSide == 0 && sideOf(seg, head_) == 0) {
        const oaBox common = commonPiece(*this, seg);
        if (common.isInverted())
            return false;
        return common.lowerLeft() == common.upperRight() ? includeEnds : includeOverlap;
    }
    const int ownHeadSide = sideOf(seg, head_);
    const int ownTailSide = sideOf(seg, tail_);
    const bool crosses = headSide * tailSide < 0 && ownHeadSide * ownTailSide < 0;
    if (crosses || !includeEnds)
        return crosses;
    return contains(seg.head_) || contains(seg.tail_) || seg.contains(head_) || seg.contains(tail_);
}

oaBoolean oaSegment::intersects(const oaSegment& seg, oaPoint& iPt, oaBoolean mustIntersect) const {
    if (mustIntersect && !intersects(seg, true, false))
        return false;
    const oaVector own(tail_, head_);
    const oaVector other(seg.tail_, seg.head_);
    if (own.intersects(tail_, other, seg.tail_, iPt))
        return true;
    const oaBox common = commonPiece(*this, seg);
    if (!mustIntersect || common.lowerLeft() != common.upperRight())
        return false;
    iPt = common.lowerLeft(); // two segments of one line that touch with their ends
    return true;
}

oaDouble oaSegment::distanceFrom2(const oaPoint& point) const {
    oaPoint loc;
    return distanceFrom2(point, loc);
}

oaDouble oaSegment::distanceFrom2(const oaPoint& point, oaPoint& loc) const {
    const oaDouble dx = oaDouble(x1()) - x2();
    const oaDouble dy = oaDouble(y1()) - y2();
    const oaDouble px = oaDouble(point.x()) - x2();
    const oaDouble py = oaDouble(point.y()) - y2();
    const oaDouble length2 = dx * dx + dy * dy;
    const oaDouble part = length2 == 0 ? 0 : std::clamp((px * dx + py * dy) / length2, 0.0, 1.0);
    loc.set(impl::nearestCoord(x2() + part * dx), impl::nearestCoord(y2() + part * dy));
    const oaDouble restX = px - part * dx;
    const oaDouble restY = py - part * dy;
    return restX * restX + restY * restY;
}

} // namespace OpenAccess_4
