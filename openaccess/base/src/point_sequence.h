#pragma once

#include "oaSegment.h"

#include <span>
#include <vector>

namespace OpenAccess_4::impl {

/// Asks `test` for every edge, in order, until it answers false. Answers whether it never did.
template <class Test>
bool allEdges(std::span<const oaPoint> points, bool isClosed, Test test) {
    for (std::size_t i = 1; i < points.size(); ++i) {
        if (!test(oaSegment(points[i], points[i - 1])))
            return false;
    }
    if (!isClosed || points.size() < 3)
        return true;
    return test(oaSegment(points.front(), points.back()));
}

/// See oaPointArray::compress.
std::vector<oaPoint> compressed(std::span<const oaPoint> points, bool isClosed);
bool hasExtraPoints(std::span<const oaPoint> points, bool isClosed);

/// See oaPointArray::isSelfIntersecting.
bool isSelfIntersecting(std::span<const oaPoint> points, bool isClosed);

} // namespace OpenAccess_4::impl
