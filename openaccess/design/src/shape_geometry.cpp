#include "design/src/shape_geometry.h"

#include "base/src/geometry.h"
#include "design/src/design_database.h"
#include "design/src/ellipse.h"
#include "design/src/path_outline.h"
#include "design/src/text_content.h"
#include "oa/oaDesignException.h"
#include "oa/oaTransform.h"

#include <algorithm>
#include <numbers>

namespace OpenAccess_4::impl {

namespace {

oaBox boxBetween(double left, double bottom, double right, double top) {
    return {nearestCoord(left), nearestCoord(bottom), nearestCoord(right), nearestCoord(top)};
}

/// The number of characters in the longest line of a UTF-8 text, and the number of lines.
struct TextExtent {
    std::size_t columns = 0;
    std::size_t lines = 0;
};

TextExtent extentOf(std::string_view text) {
    TextExtent extent;
    std::size_t columns = 0;
    extent.lines = text.empty() ? 0 : 1;
    for (const char c : text) {
        if (c == '\n') {
            ++extent.lines;
            columns = 0;
        } else if ((c & 0xC0) != 0x80) { // not a byte within a character
            extent.columns = std::max(extent.columns, ++columns);
        }
    }
    return extent;
}

/// The box of a text, in front of its origin: 0, 1 and 2 thirds of the alignments are left, center
/// and right; within each the order is upper, center, lower.
oaBox textBox(const TextStyle& style, std::string_view text) {
    const TextExtent extent = extentOf(text);
    const double width = double(extent.columns) * style.height * 3 / 5;
    const double height = double(extent.lines) * style.height;
    const double left = -width * (style.alignment / 3) / 2;
    const double top = height * (style.alignment % 3) / 2;
    oaBox box = boxBetween(left, top - height, left + width, top);
    box.transform(oaTransform(style.origin, oaOrientEnum(style.orient)));
    return box;
}

bool isMirrored(oaOrientEnum orient) {
    return orient >= oacMY;
}

bool swapsAxes(oaOrientEnum orient) {
    return orient % 2 == 1;
}

PointsRef movedPoints(const ShapeMove& move, PointsRef run) {
    std::vector<oaPoint> points;
    points.reserve(run.count);
    for (const oaPoint& point : move.from.points.get(run))
        points.emplace_back(point, move.xform);
    return move.to.points.add(points);
}

StringId movedText(const ShapeMove& move, StringId text) {
    return &move.from == &move.to ? text : move.to.strings.intern(move.from.strings.text(text));
}

TextStyle movedStyle(const ShapeMove& move, TextStyle style) {
    style.origin = oaPoint(style.origin, move.xform);
    style.orient = std::uint8_t(
        oaOrientEnum(oaOrient(oaOrientEnum(style.orient)).concat(move.xform.orient())));
    return style;
}

void requireSameDesign(const ShapeMove& move) {
    if (&move.from != &move.to)
        throw oaDesignError(oacDisplayCannotLeaveDesign, move.from.names().lib.c_str(),
                            move.from.names().cell.c_str(), move.from.names().view.c_str());
}

/// The angle at which a point of an ellipse lies after an orientation.
double turnedAngle(double angle, oaOrientEnum orient) {
    const double quarter = std::numbers::pi / 2;
    switch (orient) {
    case oacMY:
    case oacMYR90:
        angle = 2 * quarter - angle;
        break;
    case oacMX:
    case oacMXR90:
        angle = -angle;
        break;
    default:
        return angle + quarter * int(orient);
    }
    return swapsAxes(orient) ? angle + quarter : angle;
}

} // namespace

oaBox boxAround(std::span<const oaPoint> points) {
    oaBox box(points.front(), points.front());
    for (const oaPoint& point : points.subspan(1))
        enlarge(box, oaBox(point, point));
    return box;
}

oaBox squareAround(const oaPoint& center, oaDist radius) {
    const double x = center.x();
    const double y = center.y();
    return boxBetween(x - radius, y - radius, x + radius, y + radius);
}

oaBox boxOf(const DesignDatabase&, const RectRecord& rect) {
    return rect.box;
}

oaBox boxOf(const DesignDatabase& database, const PolygonRecord& polygon) {
    return boxAround(database.points.get(polygon.points));
}

oaBox boxOf(const DesignDatabase& database, const LineRecord& line) {
    return boxAround(database.points.get(line.points));
}

oaBox boxOf(const DesignDatabase& database, const PathRecord& path) {
    const auto points = database.points.get(path.points);
    const auto outline =
        pathOutline(points, path.width, oaPathStyleEnum(path.style), path.beginExt, path.endExt);
    return outline.empty() ? boxAround(points) : boxAround(outline);
}

oaBox boxOf(const DesignDatabase&, const PathSegRecord& segment) {
    const auto outline = pathSegOutline(segment);
    const std::array ends = {segment.begin, segment.end};
    return outline.empty() ? boxAround(ends) : boxAround(outline);
}

oaBox boxOf(const DesignDatabase&, const ArcRecord& arc) {
    return arcBox(arc.ellipse, sweepOf(arc.startAngle, arc.stopAngle));
}

oaBox boxOf(const DesignDatabase&, const EllipseRecord& ellipse) {
    return ellipse.box;
}

oaBox boxOf(const DesignDatabase&, const DonutRecord& donut) {
    return squareAround(donut.center, donut.radius);
}

oaBox boxOf(const DesignDatabase&, const DotRecord& dot) {
    const double left = dot.location.x() - double(dot.width / 2);
    const double bottom = dot.location.y() - double(dot.height / 2);
    return boxBetween(left, bottom, left + dot.width, bottom + dot.height);
}

oaBox boxOf(const DesignDatabase& database, const TextRecord& text) {
    return textBox(text.style, database.strings.chars(text.text));
}

oaBox boxOf(const DesignDatabase& database, const EvalTextRecord& text) {
    return textBox(text.style, static_cast<const oaChar*>(textOf(database, text)));
}

oaBox boxOf(const DesignDatabase& database, const PropDisplayRecord& display) {
    return textBox(display.style, static_cast<const oaChar*>(textOf(database, display)));
}

oaBox boxOf(const DesignDatabase& database, const AttrDisplayRecord& display) {
    return textBox(display.style, static_cast<const oaChar*>(textOf(database, display)));
}

RectRecord moved(const ShapeMove& move, RectRecord rect) {
    rect.box.transform(move.xform);
    return rect;
}

PolygonRecord moved(const ShapeMove& move, PolygonRecord polygon) {
    polygon.points = movedPoints(move, polygon.points);
    return polygon;
}

LineRecord moved(const ShapeMove& move, LineRecord line) {
    line.points = movedPoints(move, line.points);
    return line;
}

PathRecord moved(const ShapeMove& move, PathRecord path) {
    path.points = movedPoints(move, path.points);
    return path;
}

PathSegRecord moved(const ShapeMove& move, PathSegRecord segment) {
    segment.begin = oaPoint(segment.begin, move.xform);
    segment.end = oaPoint(segment.end, move.xform);
    if (isMirrored(move.xform.orient())) {
        for (SegEnd* end : {&segment.beginEnd, &segment.endEnd}) {
            std::swap(end->leftDiagExt, end->rightDiagExt);
            end->rightHalfWidth = segment.width - std::min(end->rightHalfWidth, segment.width);
        }
    }
    return segment;
}

ArcRecord moved(const ShapeMove& move, ArcRecord arc) {
    const oaOrientEnum orient = move.xform.orient();
    arc.ellipse.transform(move.xform);
    arc.startAngle = turnedAngle(arc.startAngle, orient);
    arc.stopAngle = turnedAngle(arc.stopAngle, orient);
    if (isMirrored(orient))
        std::swap(arc.startAngle, arc.stopAngle);
    return arc;
}

EllipseRecord moved(const ShapeMove& move, EllipseRecord ellipse) {
    ellipse.box.transform(move.xform);
    return ellipse;
}

DonutRecord moved(const ShapeMove& move, DonutRecord donut) {
    donut.center = oaPoint(donut.center, move.xform);
    return donut;
}

DotRecord moved(const ShapeMove& move, DotRecord dot) {
    dot.location = oaPoint(dot.location, move.xform);
    if (swapsAxes(move.xform.orient()))
        std::swap(dot.width, dot.height);
    return dot;
}

TextRecord moved(const ShapeMove& move, TextRecord text) {
    text.style = movedStyle(move, text.style);
    text.text = movedText(move, text.text);
    return text;
}

EvalTextRecord moved(const ShapeMove& move, EvalTextRecord text) {
    text.style = movedStyle(move, text.style);
    text.text = movedText(move, text.text);
    text.link = movedText(move, text.link);
    return text;
}

PropDisplayRecord moved(const ShapeMove& move, PropDisplayRecord display) {
    requireSameDesign(move);
    display.style = movedStyle(move, display.style);
    return display;
}

AttrDisplayRecord moved(const ShapeMove& move, AttrDisplayRecord display) {
    requireSameDesign(move);
    display.style = movedStyle(move, display.style);
    return display;
}

} // namespace OpenAccess_4::impl
