#include "oaTransform.h"

#include "base/src/geometry.h"

namespace OpenAccess_4 {

oaTransform::oaTransform(const oaTransform& xform1, const oaTransform& xform2) {
    set(xform1, xform2);
}

void oaTransform::set(const oaPoint& offset, oaOrient orient) {
    offset_ = offset;
    orient_ = orient;
}

void oaTransform::set(oaOffset xOffset, oaOffset yOffset, oaOrient orient) {
    set(oaPoint(xOffset, yOffset), orient);
}

void oaTransform::set(oaOrient orient) {
    set(oaPoint(), orient);
}

void oaTransform::set(const oaTransform& xform1, const oaTransform& xform2) {
    const oaPoint moved(xform1.offset_, xform2);
    set(moved, xform1.orient_.concat(xform2.orient_));
}

void oaTransform::invert(oaTransform& result) const {
    const oaOrient back = orient_.getRelativeOrient(oacR0);
    result.set(oaPoint() - impl::turned(offset_, back), back);
}

void oaTransform::invert() {
    invert(*this);
}

void oaTransform::concat(const oaTransform& xform, oaTransform& result) const {
    result.set(*this, xform);
}

void oaTransform::concat(const oaTransform& xform) {
    set(*this, xform);
}

} // namespace OpenAccess_4
