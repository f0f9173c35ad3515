#include "base/src/point_pool.h"

#include "oa/oaBaseMsgIds.h"
#include "oa/oaException.h"

#include <limits>

namespace OpenAccess_4::impl {

PointsRef PointPool::add(std::span<const oaPoint> points) {
    if (points_.size() + points.size() > std::numeric_limits<std::uint32_t>::max())
        throw oaError(oacPointPoolFull);
    const PointsRef run{std::uint32_t(points_.size()), std::uint32_t(points.size())};
    points_.insert(points_.end(), points.begin(), points.end());
    return run;
}

} // namespace OpenAccess_4::impl
