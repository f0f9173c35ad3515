#pragma once

#include "base/src/refs.h"
#include "oa/oaPoint.h"

#include <span>
#include <vector>

namespace OpenAccess_4::impl {

/// The points of the outlines of one database. A run is never changed once it is added: a shape
/// that gets other points gets another run, and saving drops what no shape names any more.
class PointPool {
public:
    PointPool() = default;
    explicit PointPool(std::vector<oaPoint> points) : points_(std::move(points)) {}

    /// @throws oaError  oacPointPoolFull: the pool would pass 2^32 points.
    PointsRef add(std::span<const oaPoint> points);

    std::span<const oaPoint> get(PointsRef run) const {
        return std::span(points_).subspan(run.first, run.count);
    }
    const std::vector<oaPoint>& all() const { return points_; }

private:
    std::vector<oaPoint> points_;
};

} // namespace OpenAccess_4::impl
