#pragma once

#include "oaOrient.h"
#include "oaPoint.h"

namespace OpenAccess_4::impl {

/// Holds products of differences of coordinates without loss.
__extension__ typedef __int128 Wide;

/// `-value`, where the smallest coordinate stays as it is.
inline oaCoord negated(oaCoord value) {
    return static_cast<oaCoord>(-oaInt8(value));
}

/// `point` turned about the origin.
oaPoint turned(const oaPoint& point, oaOrientEnum orient);

/// The coordinate nearest to `value`; halves go away from zero, values beyond the range to its end.
oaCoord nearestCoord(oaDouble value);

/// Twice the signed area of the triangle: positive when `c` lies to the left of the way a to b.
inline Wide area2(const oaPoint& a, const oaPoint& b, const oaPoint& c) {
    return (Wide(b.x()) - a.x()) * (Wide(c.y()) - a.y()) -
           (Wide(b.y()) - a.y()) * (Wide(c.x()) - a.x());
}

inline int sign(Wide value) {
    return value > 0 ? 1 : value < 0 ? -1 : 0;
}

} // namespace OpenAccess_4::impl
