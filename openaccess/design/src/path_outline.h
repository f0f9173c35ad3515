#pragma once

#include "design/src/shape_records.h"

#include <span>
#include <vector>

namespace OpenAccess_4::impl {

/// The outline of a path, counter-clockwise around its inside for a straight one; empty when it has
/// no width or no two different points.
std::vector<oaPoint> pathOutline(std::span<const oaPoint> points, oaDist width,
                                 oaPathStyleEnum style, oaDist beginExt, oaDist endExt);

/// The outline of a path segment; empty when it has no width or no length.
std::vector<oaPoint> pathSegOutline(const PathSegRecord& segment);

} // namespace OpenAccess_4::impl
