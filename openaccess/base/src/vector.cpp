#include "oaVector.h"

#include "base/src/geometry.h"

#include <cmath>
#include <cstdlib>
#include <numeric>

namespace OpenAccess_4 {

namespace {

impl::Wide cross(const oaVector& a, const oaVector& b) {
    return impl::Wide(a.x()) * b.y() - impl::Wide(a.y()) * b.x();
}

} // namespace

void oaVector::set(const oaPoint& tail, const oaPoint& head) {
    const oaPoint way = head - tail;
    x_ = way.x();
    y_ = way.y();
}

oaInt4 oaVector::getLength() const {
    return impl::nearestCoord(std::hypot(static_cast<oaDouble>(x_), static_cast<oaDouble>(y_)));
}

void oaVector::setLength(oaInt4 length) {
    const oaDouble current = std::hypot(static_cast<oaDouble>(x_), static_cast<oaDouble>(y_));
    if (current == 0)
        return;
    x_ = impl::nearestCoord(x_ * (length / current));
    y_ = impl::nearestCoord(y_ * (length / current));
}

void oaVector::normalize() {
    const oaInt8 divisor = std::gcd(oaInt8(x_), oaInt8(y_));
    if (divisor == 0)
        return;
    x_ = static_cast<oaOffset>(x_ / divisor);
    y_ = static_cast<oaOffset>(y_ / divisor);
}

void oaVector::rotate90() {
    *this = oaVector(impl::negated(y_), x_);
}

void oaVector::rotate180() {
    *this = oaVector(impl::negated(x_), impl::negated(y_));
}

void oaVector::rotate270() {
    *this = oaVector(y_, impl::negated(x_));
}

oaBoolean oaVector::leftOf(const oaVector& ref) const {
    return cross(ref, *this) > 0;
}

oaBoolean oaVector::rightOf(const oaVector& ref) const {
    return cross(ref, *this) < 0;
}

oaDouble oaVector::getCosAngle(const oaVector& v) const {
    const oaDouble lengths = std::hypot(static_cast<oaDouble>(x_), static_cast<oaDouble>(y_)) *
                             std::hypot(static_cast<oaDouble>(v.x_), static_cast<oaDouble>(v.y_));
    if (lengths == 0)
        return 0;
    return (static_cast<oaDouble>(x_) * v.x_ + static_cast<oaDouble>(y_) * v.y_) / lengths;
}

oaBoolean oaVector::intersects(const oaPoint& ref, const oaVector& other, const oaPoint& otherRef,
                               oaPoint& iPt) const {
    const impl::Wide denominator = cross(*this, other);
    if (denominator == 0)
        return false;
    const impl::Wide numerator = (impl::Wide(otherRef.x()) - ref.x()) * other.y() -
                                 (impl::Wide(otherRef.y()) - ref.y()) * other.x();
    const oaDouble part = static_cast<oaDouble>(numerator) / static_cast<oaDouble>(denominator);
    const oaDouble x = std::round(ref.x() + part * x_);
    const oaDouble y = std::round(ref.y() + part * y_);
    if (std::abs(x) > INT_MAX || std::abs(y) > INT_MAX)
        return false;
    iPt.set(impl::nearestCoord(x), impl::nearestCoord(y));
    return true;
}

void oaVector::addToPoint(const oaPoint& start, oaPoint& result) const {
    result = start + oaPoint(x_, y_);
}

void oaVector::subFromPoint(const oaPoint& start, oaPoint& result) const {
    result = start - oaPoint(x_, y_);
}

} // namespace OpenAccess_4
