#include "visit_shapes.h"

#include "definitions.h"

#include <vector>

namespace fuzz {

namespace {

void visit(const oa::oaRect* rect, Digest& digest) {
    digest.add(definitions().size->get(rect));
    digest.add(definitions().weight->get(rect));
    digest.add(definitions().time->get(rect));
}

void visit(const oa::oaPolygon* polygon, Digest& digest) {
    oa::oaPointArray points;
    polygon->getPoints(points);
    digest.add(points);
    digest.add(polygon->isOrthogonal());
}

void visit(const oa::oaLine* line, Digest& digest) {
    oa::oaPointArray points;
    line->getPoints(points);
    digest.add(points);
}

void visit(const oa::oaPath* path, Digest& digest) {
    oa::oaPointArray points;
    path->getPoints(points);
    digest.add(points);
    path->getBoundary(points);
    digest.add(points);
    digest.add(path->getWidth());
    digest.add(path->getStyle());
    digest.add(path->getBeginExt());
    digest.add(path->getEndExt());
}

void visit(const oa::oaPathSeg* segment, Digest& digest) {
    oa::oaPoint begin;
    oa::oaPoint end;
    oa::oaSegStyle style;
    oa::oaPointArray boundary;
    segment->getPoints(begin, end);
    segment->getStyle(style);
    segment->getBoundary(boundary);
    digest.add(begin);
    digest.add(end);
    digest.add(style.getWidth());
    digest.add(style.getBeginStyle());
    digest.add(style.getEndStyle());
    digest.add(boundary);
}

void visit(const oa::oaArc* arc, Digest& digest) {
    oa::oaBox box;
    oa::oaPointArray points;
    arc->getEllipseBBox(box);
    arc->getPoints(points);
    digest.add(box);
    digest.add(arc->getStartAngle());
    digest.add(arc->getStopAngle());
    digest.add(points);
}

void visit(const oa::oaEllipse* ellipse, Digest& digest) {
    oa::oaPointArray points;
    ellipse->getBoundary(points, 16);
    digest.add(points);
}

void visit(const oa::oaDonut* donut, Digest& digest) {
    oa::oaPoint center;
    oa::oaBox hole;
    oa::oaPointArray points;
    donut->getCenter(center);
    donut->getHoleBBox(hole);
    donut->getBoundary(points);
    digest.add(center);
    digest.add(donut->getRadius());
    digest.add(donut->getHoleRadius());
    digest.add(hole);
    digest.add(points);
}

void visit(const oa::oaDot* dot, Digest& digest) {
    oa::oaPoint location;
    dot->getLocation(location);
    digest.add(location);
    digest.add(dot->getWidth());
    digest.add(dot->getHeight());
}

template <class Text>
void visitText(const Text* text, Digest& digest) {
    oa::oaString shown;
    oa::oaPoint origin;
    text->getText(shown);
    text->getOrigin(origin);
    digest.add(shown);
    digest.add(origin);
    digest.add(text->getHeight());
    digest.add(text->getAlignment());
    digest.add(text->getOrient());
    digest.add(text->getFont());
    digest.add(text->isVisible());
}

void visit(const oa::oaEvalText* text, Digest& digest) {
    oa::oaString part;
    visitText(text, digest);
    text->getExpression(part);
    digest.add(part);
    text->getEvaluatorName(part);
    digest.add(part);
}

void visit(const oa::oaPropDisplay* display, Digest& digest) {
    visitText(display, digest);
    digest.add(display->getFormat());
    digest.add(display->getProp()->getType());
}

void visit(const oa::oaAttrDisplay* display, Digest& digest) {
    visitText(display, digest);
    digest.add(display->getFormat());
    digest.add(display->getObject()->getType());
    digest.add(oa::oaUInt4(display->getAttribute()));
}

/// Visits `shape` as the class that its type names.
template <class Shape>
void visitAs(const oa::oaShape* shape, Digest& digest) {
    visit(static_cast<const Shape*>(shape), digest);
}

void visitKind(const oa::oaShape* shape, Digest& digest) {
    switch (shape->getType()) {
    case oa::oacRectType:
        return visitAs<oa::oaRect>(shape, digest);
    case oa::oacPolygonType:
        return visitAs<oa::oaPolygon>(shape, digest);
    case oa::oacLineType:
        return visitAs<oa::oaLine>(shape, digest);
    case oa::oacPathType:
        return visitAs<oa::oaPath>(shape, digest);
    case oa::oacPathSegType:
        return visitAs<oa::oaPathSeg>(shape, digest);
    case oa::oacArcType:
        return visitAs<oa::oaArc>(shape, digest);
    case oa::oacEllipseType:
        return visitAs<oa::oaEllipse>(shape, digest);
    case oa::oacDonutType:
        return visitAs<oa::oaDonut>(shape, digest);
    case oa::oacDotType:
        return visitAs<oa::oaDot>(shape, digest);
    case oa::oacTextType:
        return visitText(static_cast<const oa::oaText*>(shape), digest);
    case oa::oacEvalTextType:
        return visitAs<oa::oaEvalText>(shape, digest);
    case oa::oacPropDisplayType:
        return visitAs<oa::oaPropDisplay>(shape, digest);
    case oa::oacAttrDisplayType:
        return visitAs<oa::oaAttrDisplay>(shape, digest);
    default:
        digest.add(shape->getType());
    }
}

} // namespace

void visitShape(const oa::oaShape* shape, Digest& digest) {
    oa::oaBox box;
    shape->getBBox(box);
    digest.add(box);
    digest.add(shape->getLayerNum());
    digest.add(shape->getPurposeNum());
    digest.add(shape->hasNet());
    digest.add(shape->hasPin());
    visitObject(shape, digest);
    visitKind(shape, digest);
}

} // namespace fuzz
