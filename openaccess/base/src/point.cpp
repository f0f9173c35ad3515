#include "oaPoint.h"

#include "base/src/geometry.h"
#include "oaTransform.h"

#include <algorithm>
#include <cmath>

namespace OpenAccess_4 {

namespace impl {

oaPoint turned(const oaPoint& point, oaOrientEnum orient) {
    const oaCoord x = point.x();
    const oaCoord y = point.y();
    switch (orient) {
    case oacR0:
        return {x, y};
    case oacR90:
        return {negated(y), x};
    case oacR180:
        return {negated(x), negated(y)};
    case oacR270:
        return {y, negated(x)};
    case oacMY:
        return {negated(x), y};
    case oacMYR90:
        return {negated(y), negated(x)};
    case oacMX:
        return {x, negated(y)};
    case oacMXR90:
        return {y, x};
    }
    return point;
}

oaCoord nearestCoord(oaDouble value) {
    return static_cast<oaCoord>(std::clamp<oaDouble>(std::round(value), INT_MIN, INT_MAX));
}

} // namespace impl

oaPoint::oaPoint(const oaPoint& point, const oaTransform& xform) {
    point.transform(xform, *this);
}

void oaPoint::transform(const oaTransform& xform, oaPoint& result) const {
    result = impl::turned(*this, xform.orient()) + xform.offset();
}

void oaPoint::transform(const oaTransform& xform) {
    transform(xform, *this);
}

void oaPoint::transform(oaDouble scale, oaDouble angle, oaPoint& result) const {
    const oaDouble cosine = scale * std::cos(angle);
    const oaDouble sine = scale * std::sin(angle);
    const oaDouble x = x_ * cosine - y_ * sine;
    const oaDouble y = x_ * sine + y_ * cosine;
    result.set(impl::nearestCoord(x), impl::nearestCoord(y));
}

void oaPoint::transform(oaDouble scale, oaDouble angle) {
    transform(scale, angle, *this);
}

oaDouble oaPoint::distanceFrom2(const oaPoint& point) const {
    const oaDouble dx = static_cast<oaDouble>(x_) - point.x_;
    const oaDouble dy = static_cast<oaDouble>(y_) - point.y_;
    return dx * dx + dy * dy;
}

} // namespace OpenAccess_4
