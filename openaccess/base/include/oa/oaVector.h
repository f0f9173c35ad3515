#pragma once

#include "oaPoint.h"

namespace OpenAccess_4 {

/// A direction with a length, in database units. A default one has the length 0.
class OA_API oaVector {
public:
    oaVector() : x_(0), y_(0) {}
    oaVector(oaOffset x, oaOffset y) : x_(x), y_(y) {}
    /// The way from the origin to `head`.
    oaVector(const oaPoint& head) : x_(head.x()), y_(head.y()) {}
    oaVector(const oaPoint& tail, const oaPoint& head) { set(tail, head); }

    oaOffset x() const { return x_; }
    oaOffset& x() { return x_; }
    oaOffset y() const { return y_; }
    oaOffset& y() { return y_; }
    /// The way from `tail` to `head`.
    void set(const oaPoint& tail, const oaPoint& head);

    /// The length, rounded to the nearest integer.
    oaInt4 getLength() const;
    /// Keeps the direction, as well as integers can; a vector of length 0 stays as it is.
    void setLength(oaInt4 length);
    /// Makes it the shortest vector with integer coordinates in the same direction.
    void normalize();

    /// Turn counter-clockwise.
    void rotate90();
    void rotate180();
    void rotate270();

    /// Whether it points to the left (right) of the direction of `ref`.
    oaBoolean leftOf(const oaVector& ref) const;
    oaBoolean rightOf(const oaVector& ref) const;
    /// The cosine of the angle to `v`; 0 when one of them has the length 0.
    oaDouble getCosAngle(const oaVector& v) const;

    /// Finds where the line through `ref` in this direction meets the line through `otherRef` in
    /// the direction of `other`. False, and `iPt` untouched, when they are parallel or meet
    /// outside the range of coordinates.
    oaBoolean intersects(const oaPoint& ref, const oaVector& other, const oaPoint& otherRef,
                         oaPoint& iPt) const;

    void addToPoint(const oaPoint& start, oaPoint& result) const;
    void subFromPoint(const oaPoint& start, oaPoint& result) const;

    bool operator==(const oaVector& other) const { return x_ == other.x_ && y_ == other.y_; }
    bool operator!=(const oaVector& other) const { return !(*this == other); }

private:
    oaOffset x_;
    oaOffset y_;
};

} // namespace OpenAccess_4
