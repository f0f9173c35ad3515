#include "design/src/shape_edit.h"
#include "oa/oaDesignException.h"
#include "oa/oaLine.h"
#include "oa/oaPolygon.h"
#include "oa/oaRect.h"

namespace OpenAccess_4 {

using namespace impl;

namespace {

void requireRect(const oaBox& box) {
    if (!hasArea(box))
        throw oaDesignError(oacRectBBoxInvalid, box.left(), box.bottom(), box.right(), box.top());
}

void requirePolygon(const oaPointArray& points) {
    if (points.getNumElements() < 3)
        throw oaDesignError(oacPolygonTooFewPoints, points.getNumElements());
    if (points.hasExtraPoints())
        throw oaDesignError(oacPolygonHasExtraPoints);
}

void requireLine(const oaPointArray& points) {
    const oaUInt4 count = countDifferent(points);
    if (count < 2)
        throw oaDesignError(oacLineTooFewPoints, count);
}

template <class Record>
void copyPoints(const oaObject* shape, oaPointArray& points) {
    const auto span = databaseOf(shape).points.get(recordOf<Record>(shape).points);
    points.set(span.data(), oaUInt4(span.size()));
}

template <class Record>
void changePoints(oaObject* shape, const oaPointArray& points) {
    DesignDatabase& database = designDatabaseOf(shape);
    changeShape<Record>(
        shape, [&](Record& record) { record.points = database.points.add(spanOf(points)); });
    database.noteGarbage();
}

} // namespace

oaRect* oaRect::create(oaBlock* block, oaLayerNum layerNum, oaPurposeNum purposeNum,
                       const oaBox& bBox) {
    requireRect(bBox);
    edited(block);
    return addShape(block, layerNum, purposeNum, RectRecord{bBox});
}

void oaRect::setBBox(const oaBox& bBox) {
    requireRect(bBox);
    changeShape<RectRecord>(this, [&](RectRecord& rect) { rect.box = bBox; });
}

oaPolygon* oaRect::convertToPolygon() {
    DesignDatabase& database = edited(this);
    const oaPointArray corners(recordOf<RectRecord>(this).box);
    return replaceShape(this, PolygonRecord{database.points.add(spanOf(corners))});
}

oaPolygon* oaPolygon::create(oaBlock* block, oaLayerNum layerNum, oaPurposeNum purposeNum,
                             const oaPointArray& points) {
    requirePolygon(points);
    return addOutline<PolygonRecord>(block, layerNum, purposeNum, points);
}

oaUInt4 oaPolygon::getNumPoints() const {
    return recordOf<PolygonRecord>(this).points.count;
}

void oaPolygon::getPoints(oaPointArray& points) const {
    copyPoints<PolygonRecord>(this, points);
}

void oaPolygon::setPoints(const oaPointArray& points) {
    requirePolygon(points);
    changePoints<PolygonRecord>(this, points);
}

oaBoolean oaPolygon::isOrthogonal() const {
    oaPointArray points;
    getPoints(points);
    return points.isOrthogonal();
}

oaRect* oaPolygon::convertToRect() {
    oaPointArray points;
    getPoints(points);
    if (!points.isRectangle())
        return nullptr;
    oaBox box;
    points.getBBox(box);
    return replaceShape(this, RectRecord{box});
}

oaLine* oaLine::create(oaBlock* block, oaLayerNum layerNum, oaPurposeNum purposeNum,
                       const oaPointArray& points) {
    requireLine(points);
    return addOutline<LineRecord>(block, layerNum, purposeNum, points);
}

oaUInt4 oaLine::getNumPoints() const {
    return recordOf<LineRecord>(this).points.count;
}

void oaLine::getPoints(oaPointArray& points) const {
    copyPoints<LineRecord>(this, points);
}

void oaLine::setPoints(const oaPointArray& points) {
    requireLine(points);
    changePoints<LineRecord>(this, points);
}

} // namespace OpenAccess_4
