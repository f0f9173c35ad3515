#include "design/src/ellipse.h"
#include "design/src/shape_edit.h"
#include "oa/oaArc.h"
#include "oa/oaDesignException.h"
#include "oa/oaDonut.h"
#include "oa/oaDot.h"
#include "oa/oaEllipse.h"
#include "oa/oaLine.h"
#include "oa/oaPolygon.h"

#include <cmath>

namespace OpenAccess_4 {

using namespace impl;

namespace {

void requireArc(const ArcRecord& arc) {
    if (!hasArea(arc.ellipse) || !std::isfinite(arc.startAngle) || !std::isfinite(arc.stopAngle) ||
        arc.startAngle == arc.stopAngle)
        throw oaDesignError(oacArcInvalid, arc.ellipse.left(), arc.ellipse.bottom(),
                            arc.ellipse.right(), arc.ellipse.top(), arc.startAngle, arc.stopAngle);
}

void requireEllipse(const oaBox& box) {
    if (!hasArea(box))
        throw oaDesignError(oacEllipseBBoxInvalid, box.left(), box.bottom(), box.right(),
                            box.top());
}

void requireRadii(oaDist radius, oaDist holeRadius) {
    if (holeRadius >= radius)
        throw oaDesignError(oacDonutRadiiInvalid, radius, holeRadius);
}

void assign(oaPointArray& target, const std::vector<oaPoint>& points) {
    target.set(points.data(), oaUInt4(points.size()));
}

oaPolygon* replaceByPolygon(oaObject* shape, const oaPointArray& points) {
    if (points.getNumElements() < 3)
        throw oaDesignError(oacPolygonTooFewPoints, points.getNumElements());
    if (points.hasExtraPoints())
        throw oaDesignError(oacPolygonHasExtraPoints);
    return replaceShape(shape, PolygonRecord{edited(shape).points.add(spanOf(points))});
}

} // namespace

oaArc* oaArc::create(oaBlock* block, oaLayerNum layerNum, oaPurposeNum purposeNum,
                     const oaBox& ellipseBBox, oaDouble startAngle, oaDouble stopAngle) {
    const ArcRecord arc{ellipseBBox, startAngle, stopAngle};
    requireArc(arc);
    edited(block);
    return addShape(block, layerNum, purposeNum, arc);
}

void oaArc::getEllipseBBox(oaBox& bBox) const {
    bBox = recordOf<ArcRecord>(this).ellipse;
}

oaDouble oaArc::getStartAngle() const {
    return recordOf<ArcRecord>(this).startAngle;
}

oaDouble oaArc::getStopAngle() const {
    return recordOf<ArcRecord>(this).stopAngle;
}

void oaArc::getPoints(oaPointArray& points, oaUInt4 numSegs) const {
    const ArcRecord& arc = recordOf<ArcRecord>(this);
    genPoints(arc.ellipse, arc.startAngle, arc.stopAngle, numSegs, points);
}

void oaArc::set(const oaBox& ellipseBBox, oaDouble startAngle, oaDouble stopAngle) {
    const ArcRecord changed{ellipseBBox, startAngle, stopAngle};
    requireArc(changed);
    changeShape<ArcRecord>(this, [&](ArcRecord& arc) { arc = changed; });
}

oaLine* oaArc::convertToLine(oaUInt4 numSides) {
    oaPointArray points;
    getPoints(points, numSides);
    const oaUInt4 count = countDifferent(points);
    if (count < 2)
        throw oaDesignError(oacLineTooFewPoints, count);
    return replaceShape(this, LineRecord{edited(this).points.add(spanOf(points))});
}

void oaArc::genPoints(const oaBox& ellipseBBox, oaDouble startAngle, oaDouble stopAngle,
                      oaUInt4 numEdges, oaPointArray& points) {
    assign(points, arcPoints(ellipseBBox, sweepOf(startAngle, stopAngle), numEdges));
}

void oaArc::calcBBox(const oaBox& ellipseBBox, oaDouble startAngle, oaDouble stopAngle,
                     oaBox& bBox) {
    bBox = arcBox(ellipseBBox, sweepOf(startAngle, stopAngle));
}

oaEllipse* oaEllipse::create(oaBlock* block, oaLayerNum layerNum, oaPurposeNum purposeNum,
                             const oaBox& bBox) {
    requireEllipse(bBox);
    edited(block);
    return addShape(block, layerNum, purposeNum, EllipseRecord{bBox});
}

void oaEllipse::setBBox(const oaBox& bBox) {
    requireEllipse(bBox);
    changeShape<EllipseRecord>(this, [&](EllipseRecord& ellipse) { ellipse.box = bBox; });
}

void oaEllipse::getBoundary(oaPointArray& points, oaUInt4 numSides) const {
    genBoundary(recordOf<EllipseRecord>(this).box, numSides, points);
}

oaPolygon* oaEllipse::convertToPolygon(oaUInt4 numSides) {
    oaPointArray points;
    getBoundary(points, numSides);
    return replaceByPolygon(this, points);
}

void oaEllipse::genBoundary(const oaBox& ellipseBBox, oaUInt4 numSides, oaPointArray& boundary) {
    assign(boundary, ellipsePoints(ellipseBBox, numSides));
}

oaDonut* oaDonut::create(oaBlock* block, oaLayerNum layerNum, oaPurposeNum purposeNum,
                         const oaPoint& center, oaDist radius, oaDist holeRadius) {
    requireRadii(radius, holeRadius);
    edited(block);
    return addShape(block, layerNum, purposeNum, DonutRecord{center, radius, holeRadius});
}

void oaDonut::getCenter(oaPoint& point) const {
    point = recordOf<DonutRecord>(this).center;
}

oaDist oaDonut::getRadius() const {
    return recordOf<DonutRecord>(this).radius;
}

oaDist oaDonut::getHoleRadius() const {
    return recordOf<DonutRecord>(this).holeRadius;
}

void oaDonut::getHoleBBox(oaBox& bBox) const {
    const DonutRecord& donut = recordOf<DonutRecord>(this);
    bBox = squareAround(donut.center, donut.holeRadius);
}

void oaDonut::setCenter(const oaPoint& center) {
    changeShape<DonutRecord>(this, [&](DonutRecord& donut) { donut.center = center; });
}

void oaDonut::setRadius(oaDist radius) {
    setRadii(radius, getHoleRadius());
}

void oaDonut::setHoleRadius(oaDist holeRadius) {
    setRadii(getRadius(), holeRadius);
}

void oaDonut::setRadii(oaDist radius, oaDist holeRadius) {
    requireRadii(radius, holeRadius);
    changeShape<DonutRecord>(this, [&](DonutRecord& donut) {
        donut.radius = radius;
        donut.holeRadius = holeRadius;
    });
}

void oaDonut::getBoundary(oaPointArray& points, oaUInt4 numSides) const {
    const DonutRecord& donut = recordOf<DonutRecord>(this);
    genBoundary(donut.center, donut.radius, donut.holeRadius, numSides, points);
}

oaPolygon* oaDonut::convertToPolygon(oaUInt4 numSides) {
    oaPointArray points;
    getBoundary(points, numSides);
    return replaceByPolygon(this, points);
}

void oaDonut::genBoundary(const oaPoint& center, oaDist radius, oaDist holeRadius, oaUInt4 numSides,
                          oaPointArray& boundary) {
    std::vector<oaPoint> points = ellipsePoints(squareAround(center, radius), numSides);
    if (holeRadius > 0 && !points.empty()) {
        // Around the disc and back to its first point, then the other way around the hole.
        points.push_back(points.front());
        const auto hole = ellipsePoints(squareAround(center, holeRadius), numSides);
        points.push_back(hole.front());
        points.insert(points.end(), hole.rbegin(), hole.rend());
    }
    assign(boundary, points);
}

oaDot* oaDot::create(oaBlock* block, oaLayerNum layerNum, oaPurposeNum purposeNum,
                     const oaPoint& location, oaDist width, oaDist height) {
    edited(block);
    return addShape(block, layerNum, purposeNum, DotRecord{location, width, height});
}

void oaDot::getLocation(oaPoint& point) const {
    point = recordOf<DotRecord>(this).location;
}

oaDist oaDot::getWidth() const {
    return recordOf<DotRecord>(this).width;
}

oaDist oaDot::getHeight() const {
    return recordOf<DotRecord>(this).height;
}

void oaDot::setLocation(const oaPoint& location) {
    changeShape<DotRecord>(this, [&](DotRecord& dot) { dot.location = location; });
}

void oaDot::setWidth(oaDist width) {
    changeShape<DotRecord>(this, [&](DotRecord& dot) { dot.width = width; });
}

void oaDot::setHeight(oaDist height) {
    changeShape<DotRecord>(this, [&](DotRecord& dot) { dot.height = height; });
}

} // namespace OpenAccess_4
