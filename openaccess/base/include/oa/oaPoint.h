#pragma once

#include "oaBaseTypes.h"

namespace OpenAccess_4 {

class oaTransform;

/// A place in the plane, in database units. A default one is the origin.
///
/// Sums and movements that leave the range of coordinates wrap around.
class OA_API oaPoint {
public:
    oaPoint() : x_(0), y_(0) {}
    oaPoint(oaCoord x, oaCoord y) : x_(x), y_(y) {}
    /// `point` moved by `xform`.
    oaPoint(const oaPoint& point, const oaTransform& xform);

    oaCoord x() const { return x_; }
    oaCoord& x() { return x_; }
    oaCoord y() const { return y_; }
    oaCoord& y() { return y_; }
    void set(oaCoord x, oaCoord y) {
        x_ = x;
        y_ = y;
    }

    void transform(const oaTransform& xform, oaPoint& result) const;
    void transform(const oaTransform& xform);
    /// Multiplies the distance from the origin by `scale` and turns by `angle` radians,
    /// counter-clockwise; coordinates are rounded to the nearest integer.
    void transform(oaDouble scale, oaDouble angle, oaPoint& result) const;
    void transform(oaDouble scale, oaDouble angle);

    /// The square of the distance to `point`.
    oaDouble distanceFrom2(const oaPoint& point) const;

    oaPoint& operator+=(const oaPoint& other) {
        x_ = static_cast<oaCoord>(oaInt8(x_) + other.x_);
        y_ = static_cast<oaCoord>(oaInt8(y_) + other.y_);
        return *this;
    }
    oaPoint& operator-=(const oaPoint& other) {
        x_ = static_cast<oaCoord>(oaInt8(x_) - other.x_);
        y_ = static_cast<oaCoord>(oaInt8(y_) - other.y_);
        return *this;
    }
    oaPoint operator+(const oaPoint& other) const { return oaPoint(*this) += other; }
    oaPoint operator-(const oaPoint& other) const { return oaPoint(*this) -= other; }
    bool operator==(const oaPoint& other) const { return x_ == other.x_ && y_ == other.y_; }
    bool operator!=(const oaPoint& other) const { return !(*this == other); }

private:
    oaCoord x_;
    oaCoord y_;
};

} // namespace OpenAccess_4
