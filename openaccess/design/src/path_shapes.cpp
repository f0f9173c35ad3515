#include "design/src/path_outline.h"
#include "design/src/shape_edit.h"
#include "oa/oaDesignException.h"
#include "oa/oaPath.h"
#include "oa/oaPathSeg.h"
#include "oa/oaSegStyle.h"

namespace OpenAccess_4 {

using namespace impl;

namespace {

void requirePath(const oaPointArray& points) {
    const oaUInt4 count = countDifferent(points);
    if (count < 2)
        throw oaDesignError(oacPathTooFewPoints, count);
}

void requireSegment(const oaPoint& begin, const oaPoint& end) {
    if (begin == end)
        throw oaDesignError(oacPathSegTooShort, begin.x(), begin.y());
}

void assign(oaPointArray& target, const std::vector<oaPoint>& points) {
    target.set(points.data(), oaUInt4(points.size()));
}

PathSegRecord withStyle(PathSegRecord segment, const oaSegStyle& style) {
    segment.width = style.getWidth();
    segment.beginEnd.style = style.getBeginStyle();
    style.getBeginExt(segment.beginEnd.ext, segment.beginEnd.leftDiagExt,
                      segment.beginEnd.rightDiagExt, segment.beginEnd.rightHalfWidth);
    segment.endEnd.style = style.getEndStyle();
    style.getEndExt(segment.endEnd.ext, segment.endEnd.leftDiagExt, segment.endEnd.rightDiagExt,
                    segment.endEnd.rightHalfWidth);
    return segment;
}

} // namespace

oaPath* oaPath::create(oaBlock* block, oaLayerNum layerNum, oaPurposeNum purposeNum, oaDist width,
                       const oaPointArray& points, oaPathStyle style, oaDist beginExt,
                       oaDist endExt) {
    requirePath(points);
    return addOutline<PathRecord>(block, layerNum, purposeNum, points, width, std::uint32_t(style),
                                  beginExt, endExt);
}

oaDist oaPath::getWidth() const {
    return recordOf<PathRecord>(this).width;
}

oaPathStyle oaPath::getStyle() const {
    return oaPathStyleEnum(recordOf<PathRecord>(this).style);
}

oaDist oaPath::getBeginExt() const {
    return recordOf<PathRecord>(this).beginExt;
}

oaDist oaPath::getEndExt() const {
    return recordOf<PathRecord>(this).endExt;
}

oaUInt4 oaPath::getNumPoints() const {
    return recordOf<PathRecord>(this).points.count;
}

void oaPath::getPoints(oaPointArray& points) const {
    const auto span = databaseOf(this).points.get(recordOf<PathRecord>(this).points);
    points.set(span.data(), oaUInt4(span.size()));
}

void oaPath::getBoundary(oaPointArray& boundary) const {
    oaPointArray points;
    getPoints(points);
    genBoundary(points, getWidth(), getStyle(), getBeginExt(), getEndExt(), boundary);
}

oaBoolean oaPath::isOrthogonal() const {
    oaPointArray points;
    getPoints(points);
    return points.isOrthogonal(false);
}

void oaPath::setWidth(oaDist width) {
    changeShape<PathRecord>(this, [&](PathRecord& path) { path.width = width; });
}

void oaPath::setStyle(oaPathStyle style) {
    changeShape<PathRecord>(this, [&](PathRecord& path) { path.style = style; });
}

void oaPath::setBeginExt(oaDist beginExt) {
    changeShape<PathRecord>(this, [&](PathRecord& path) { path.beginExt = beginExt; });
}

void oaPath::setEndExt(oaDist endExt) {
    changeShape<PathRecord>(this, [&](PathRecord& path) { path.endExt = endExt; });
}

void oaPath::setPoints(const oaPointArray& points) {
    requirePath(points);
    DesignDatabase& database = designDatabaseOf(this);
    changeShape<PathRecord>(
        this, [&](PathRecord& path) { path.points = database.points.add(spanOf(points)); });
    database.noteGarbage();
}

void oaPath::genBoundary(const oaPointArray& points, oaDist width, oaPathStyle style,
                         oaDist beginExt, oaDist endExt, oaPointArray& boundary) {
    assign(boundary, pathOutline(spanOf(points), width, style, beginExt, endExt));
}

oaPathSeg* oaPathSeg::create(oaBlock* block, oaLayerNum layerNum, oaPurposeNum purposeNum,
                             const oaPoint& beginPoint, const oaPoint& endPoint,
                             const oaSegStyle& style) {
    requireSegment(beginPoint, endPoint);
    edited(block);
    PathSegRecord segment;
    segment.begin = beginPoint;
    segment.end = endPoint;
    return addShape(block, layerNum, purposeNum, withStyle(segment, style));
}

void oaPathSeg::getPoints(oaPoint& beginPoint, oaPoint& endPoint) const {
    const PathSegRecord& segment = recordOf<PathSegRecord>(this);
    beginPoint = segment.begin;
    endPoint = segment.end;
}

void oaPathSeg::getStyle(oaSegStyle& style) const {
    const PathSegRecord& segment = recordOf<PathSegRecord>(this);
    const SegEnd& begin = segment.beginEnd;
    const SegEnd& end = segment.endEnd;
    style = oaSegStyle();
    style.setWidth(segment.width);
    style.setBeginStyle(oaEndStyleEnum(begin.style), begin.ext, begin.leftDiagExt,
                        begin.rightDiagExt, begin.rightHalfWidth);
    style.setEndStyle(oaEndStyleEnum(end.style), end.ext, end.leftDiagExt, end.rightDiagExt,
                      end.rightHalfWidth);
}

void oaPathSeg::getBoundary(oaPointArray& boundary) const {
    assign(boundary, pathSegOutline(recordOf<PathSegRecord>(this)));
}

oaBoolean oaPathSeg::isOrthogonal() const {
    const PathSegRecord& segment = recordOf<PathSegRecord>(this);
    return segment.begin.x() == segment.end.x() || segment.begin.y() == segment.end.y();
}

void oaPathSeg::setPoints(const oaPoint& beginPoint, const oaPoint& endPoint) {
    requireSegment(beginPoint, endPoint);
    changeShape<PathSegRecord>(this, [&](PathSegRecord& segment) {
        segment.begin = beginPoint;
        segment.end = endPoint;
    });
}

void oaPathSeg::setStyle(const oaSegStyle& style) {
    changeShape<PathSegRecord>(
        this, [&](PathSegRecord& segment) { segment = withStyle(segment, style); });
}

void oaPathSeg::genBoundary(const oaPoint& beginPoint, const oaPoint& endPoint,
                            const oaSegStyle& style, oaPointArray& boundary) {
    PathSegRecord segment;
    segment.begin = beginPoint;
    segment.end = endPoint;
    assign(boundary, pathSegOutline(withStyle(segment, style)));
}

} // namespace OpenAccess_4
