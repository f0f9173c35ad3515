#pragma once

#include "oaPoint.h"

namespace OpenAccess_4 {

class oaSegment;

/// An upright rectangle, edges included. One whose left lies right of its right, or whose bottom
/// lies above its top, is inverted: it has no extent. A default one is at the origin, without
/// area.
class OA_API oaBox {
public:
    oaBox() = default;
    oaBox(oaCoord left, oaCoord bottom, oaCoord right, oaCoord top)
        : lowerLeft_(left, bottom), upperRight_(right, top) {}
    oaBox(const oaPoint& lowerLeft, const oaPoint& upperRight)
        : lowerLeft_(lowerLeft), upperRight_(upperRight) {}
    /// The square around `center` with edges of length `size`.
    oaBox(const oaPoint& center, oaUInt4 size) { set(center, size); }
    oaBox(const oaBox& box, const oaTransform& xform) { set(box, xform); }

    oaCoord left() const { return lowerLeft_.x(); }
    oaCoord& left() { return lowerLeft_.x(); }
    oaCoord bottom() const { return lowerLeft_.y(); }
    oaCoord& bottom() { return lowerLeft_.y(); }
    oaCoord right() const { return upperRight_.x(); }
    oaCoord& right() { return upperRight_.x(); }
    oaCoord top() const { return upperRight_.y(); }
    oaCoord& top() { return upperRight_.y(); }
    const oaPoint& lowerLeft() const { return lowerLeft_; }
    oaPoint& lowerLeft() { return lowerLeft_; }
    const oaPoint& upperRight() const { return upperRight_; }
    oaPoint& upperRight() { return upperRight_; }

    /// Without arguments, makes the inverted box that merge() grows from.
    void set(oaCoord left = INT_MAX, oaCoord bottom = INT_MAX, oaCoord right = INT_MIN,
             oaCoord top = INT_MIN);
    void set(const oaPoint& lowerLeft, const oaPoint& upperRight);
    void set(const oaPoint& center, oaUInt4 size);
    void set(const oaBox& box, const oaTransform& xform);
    /// Makes the inverted box that merge() grows from.
    void init() { set(); }
    void makeInvertedZero() { set(); }
    /// Makes the box of the origin alone.
    void makeZero() { set(0, 0, 0, 0); }

    /// 0 for an inverted box.
    oaUInt4 getWidth() const;
    oaUInt4 getHeight() const;
    /// Halves are rounded towards 0.
    void getCenter(oaPoint& result) const;
    void getLowerRight(oaPoint& result) const;
    void getUpperLeft(oaPoint& result) const;
    /// Fills in the four corners, counter-clockwise from the lower left one.
    void toPoints(oaPoint* points) const;

    oaBoolean hasNoArea() const;
    oaBoolean isInverted() const { return left() > right() || bottom() > top(); }

    /// Whether they have a point in common; without `incEdges`, one inside of both.
    oaBoolean overlaps(const oaBox& box, oaBoolean incEdges = true) const;
    oaBoolean overlaps(const oaSegment& seg, oaBoolean incEdges = true) const;
    /// Whether all of it lies in this box; without `incEdges`, clear of the edges.
    oaBoolean contains(const oaBox& box, oaBoolean incEdges = true) const;
    oaBoolean contains(const oaPoint& point, oaBoolean incEdges = true) const;
    /// The square of the distance to `point`; 0 inside.
    oaDouble distanceFrom2(const oaPoint& point) const;

    /// Swaps sides so that the box is not inverted.
    void fix(oaBox& result) const;
    void fix();
    /// The smallest box around both. An inverted box adds nothing.
    void merge(const oaBox& box, oaBox& result) const;
    void merge(const oaBox& box);
    void merge(const oaPoint& point, oaBox& result) const;
    void merge(const oaPoint& point);
    /// What both have in common; inverted when that is nothing.
    void intersection(const oaBox& box, oaBox& result) const;
    void intersection(const oaBox& box);

    /// The smallest box around the moved corners. An inverted box stays as it is.
    void transform(const oaTransform& xform, oaBox& result) const;
    void transform(const oaTransform& xform);
    void transform(const oaPoint& offset, oaBox& result) const;
    void transform(const oaPoint& offset);
    /// See oaPoint::transform; `angle` in radians.
    void transform(oaDouble scale, oaDouble angle, oaBox& result) const;
    void transform(oaDouble scale, oaDouble angle);
    /// Multiplies every coordinate; rounds to the nearest integer.
    void scale(oaFloat scale);

    bool operator==(const oaBox& other) const {
        return lowerLeft_ == other.lowerLeft_ && upperRight_ == other.upperRight_;
    }
    bool operator!=(const oaBox& other) const { return !(*this == other); }

private:
    oaPoint lowerLeft_;
    oaPoint upperRight_;
};

} // namespace OpenAccess_4
