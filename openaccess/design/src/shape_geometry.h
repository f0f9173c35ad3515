#pragma once

#include "design/src/shape_records.h"

#include <span>

namespace OpenAccess_4 {
class oaTransform;
}

namespace OpenAccess_4::impl {

class DesignDatabase;

// The smallest box around a shape.
oaBox boxOf(const DesignDatabase& database, const RectRecord& rect);
oaBox boxOf(const DesignDatabase& database, const PolygonRecord& polygon);
oaBox boxOf(const DesignDatabase& database, const LineRecord& line);
oaBox boxOf(const DesignDatabase& database, const PathRecord& path);
oaBox boxOf(const DesignDatabase& database, const PathSegRecord& segment);
oaBox boxOf(const DesignDatabase& database, const ArcRecord& arc);
oaBox boxOf(const DesignDatabase& database, const EllipseRecord& ellipse);
oaBox boxOf(const DesignDatabase& database, const DonutRecord& donut);
oaBox boxOf(const DesignDatabase& database, const DotRecord& dot);
oaBox boxOf(const DesignDatabase& database, const TextRecord& text);
oaBox boxOf(const DesignDatabase& database, const EvalTextRecord& text);
oaBox boxOf(const DesignDatabase& database, const PropDisplayRecord& display);
oaBox boxOf(const DesignDatabase& database, const AttrDisplayRecord& display);

/// Where a shape of `from` goes: its points and texts are added to `to`, which may be `from`.
struct ShapeMove {
    const DesignDatabase& from;
    DesignDatabase& to;
    const oaTransform& xform;
};

// A shape as it looks at its new place.
RectRecord moved(const ShapeMove& move, RectRecord rect);
PolygonRecord moved(const ShapeMove& move, PolygonRecord polygon);
LineRecord moved(const ShapeMove& move, LineRecord line);
PathRecord moved(const ShapeMove& move, PathRecord path);
PathSegRecord moved(const ShapeMove& move, PathSegRecord segment);
ArcRecord moved(const ShapeMove& move, ArcRecord arc);
EllipseRecord moved(const ShapeMove& move, EllipseRecord ellipse);
DonutRecord moved(const ShapeMove& move, DonutRecord donut);
DotRecord moved(const ShapeMove& move, DotRecord dot);
TextRecord moved(const ShapeMove& move, TextRecord text);
EvalTextRecord moved(const ShapeMove& move, EvalTextRecord text);
PropDisplayRecord moved(const ShapeMove& move, PropDisplayRecord display);
AttrDisplayRecord moved(const ShapeMove& move, AttrDisplayRecord display);

/// The smallest box around points; there is at least one.
oaBox boxAround(std::span<const oaPoint> points);

/// The smallest box around a circle.
oaBox squareAround(const oaPoint& center, oaDist radius);

} // namespace OpenAccess_4::impl
