#pragma once

#include "component/component.h"

namespace component {

/// Removes repeated, closing and collinear points, spikes included, from a closed outline; the
/// enclosed area stays the same. Fewer than three points are left when nothing was enclosed.
Outline cleanPolygon(const Outline& outline);

/// Removes repeated neighbours from an open line; one point is left when the line has no length.
Outline cleanLine(const Outline& line);

/// True for four points, already clean, whose sides are parallel to the axes.
bool isRectangle(const Outline& outline);

} // namespace component
