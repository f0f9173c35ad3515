#pragma once

#include "oa/oaBox.h"

#include <vector>

namespace OpenAccess_4::impl {

/// The part of an ellipse from `start`, counter-clockwise over `sweep`, which is at most a whole
/// turn.
struct Sweep {
    double start = 0;
    double angle = 0;
};

/// The sweep from one angle to another; a whole turn when they are one.
Sweep sweepOf(double startAngle, double stopAngle);

/// `segments` + 1 points along a part of the ellipse in `box`.
std::vector<oaPoint> arcPoints(const oaBox& box, const Sweep& sweep, oaUInt4 segments);

/// `sides` points around the whole ellipse.
std::vector<oaPoint> ellipsePoints(const oaBox& box, oaUInt4 sides);

/// The smallest box around a part of the ellipse in `box`.
oaBox arcBox(const oaBox& box, const Sweep& sweep);

} // namespace OpenAccess_4::impl
