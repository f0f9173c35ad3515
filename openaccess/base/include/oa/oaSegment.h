#pragma once

#include "oaVector.h"

namespace OpenAccess_4 {

/// A straight piece between two points, its head and its tail. A default one lies at the origin.
class OA_API oaSegment {
public:
    oaSegment() = default;
    oaSegment(const oaPoint& head, const oaPoint& tail) : head_(head), tail_(tail) {}
    /// Starts with its tail at `ref` and ends where `vec` leads from there.
    oaSegment(const oaVector& vec, const oaPoint& ref) { set(vec, ref); }

    const oaPoint& head() const { return head_; }
    oaPoint& head() { return head_; }
    const oaPoint& tail() const { return tail_; }
    oaPoint& tail() { return tail_; }
    /// The coordinates of the head ...
    oaCoord x1() const { return head_.x(); }
    oaCoord& x1() { return head_.x(); }
    oaCoord y1() const { return head_.y(); }
    oaCoord& y1() { return head_.y(); }
    /// ... and those of the tail.
    oaCoord x2() const { return tail_.x(); }
    oaCoord& x2() { return tail_.x(); }
    oaCoord y2() const { return tail_.y(); }
    oaCoord& y2() { return tail_.y(); }
    void set(const oaPoint& head, const oaPoint& tail);
    void set(const oaVector& vec, const oaPoint& ref);

    /// The way from the tail to the head.
    oaOffset getDeltaX() const { return (head_ - tail_).x(); }
    oaOffset getDeltaY() const { return (head_ - tail_).y(); }
    oaBoolean isHorizontal() const { return y1() == y2(); }
    oaBoolean isVertical() const { return x1() == x2(); }
    oaBoolean isOrthogonal() const { return isHorizontal() || isVertical(); }

    /// Whether `point` lies on the segment; without `includeEnds`, between its ends.
    oaBoolean contains(const oaPoint& point, oaBoolean includeEnds = true) const;
    /// The same for a point that is known to lie on the line through the segment.
    oaBoolean collinearContains(const oaPoint& point, oaBoolean includeEnds = true) const;

    /// Whether they have a point in common. Without `includeEnds`, a point in which one of them
    /// ends does not count; without `includeOverlap`, a common piece of a line does not.
    oaBoolean intersects(const oaSegment& seg, oaBoolean includeEnds = true,
                         oaBoolean includeOverlap = true) const;
    /// Finds the common point, rounded to integers; with `mustIntersect` false that of the lines
    /// through both. False, and `iPt` untouched, when there is none or more than one, or when it
    /// lies outside the range of coordinates.
    oaBoolean intersects(const oaSegment& seg, oaPoint& iPt, oaBoolean mustIntersect = true) const;

    /// The square of the distance to `point`; `loc` becomes the nearest point of the segment,
    /// rounded to integers.
    oaDouble distanceFrom2(const oaPoint& point) const;
    oaDouble distanceFrom2(const oaPoint& point, oaPoint& loc) const;

    bool operator==(const oaSegment& other) const {
        return head_ == other.head_ && tail_ == other.tail_;
    }
    bool operator!=(const oaSegment& other) const { return !(*this == other); }

private:
    oaPoint head_;
    oaPoint tail_;
};

} // namespace OpenAccess_4
