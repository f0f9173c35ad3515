// Boxes and shapes.

#include "xml/describe.h"

namespace ovalis {

namespace {

template <class Kind>
const Kind& as(const oa::oaShape& shape) {
    return static_cast<const Kind&>(shape);
}

void describeBox(XmlText& text, const oa::oaShape& shape) {
    oa::oaBox box;
    shape.getBBox(box);
    describeInLine(text, box);
}

void describePlace(XmlText& text, std::string_view element, const oa::oaPoint& point) {
    text.put(element);
    text.attribute(" x=\"", point.x());
    text.attribute(" y=\"", point.y());
    text.put("/>");
}

void describePolygon(XmlText& text, const oa::oaPolygon& polygon) {
    oa::oaPointArray points;
    polygon.getPoints(points);
    text.put("<polygon>\n");
    for (oa::oaUInt4 i = 0; i < points.getNumElements(); ++i) {
        describePlace(text, "<vertex", points[i]);
        text.put("\n");
    }
    text.put("</polygon>\n");
}

void describeLine(XmlText& text, const oa::oaLine& line) {
    oa::oaPointArray points;
    line.getPoints(points);
    text.put("<line points=\"");
    for (oa::oaUInt4 i = 0; i < points.getNumElements(); ++i) {
        text.put(i == 0 ? "" : " ");
        text.put(points[i]);
    }
    text.put("\"></line>\n");
}

void describeText(XmlText& text, const oa::oaText& shape) {
    oa::oaPoint origin;
    oa::oaString content;
    shape.getOrigin(origin);
    shape.getText(content);
    text.put("<text>");
    describePlace(text, "<origin", origin);
    text.put(content);
    text.put("</text>\n");
}

void describeDot(XmlText& text, const oa::oaDot& dot) {
    oa::oaPoint location;
    dot.getLocation(location);
    text.put("<dot>");
    text.put(location);
    text.put("</dot>\n");
}

/// Puts what shapes of the kind look like; nothing for kinds that have no description.
void describeGeometry(XmlText& text, const oa::oaShape& shape, oa::oaTypeEnum type) {
    switch (type) {
    case oa::oacRectType:
        text.put("<rect>");
        describeBox(text, shape);
        text.put("</rect>\n");
        break;
    case oa::oacPolygonType:
        describePolygon(text, as<oa::oaPolygon>(shape));
        break;
    case oa::oacEllipseType:
        text.put("<ellipse>");
        describeBox(text, shape);
        text.put("</ellipse>\n");
        break;
    case oa::oacDotType:
        describeDot(text, as<oa::oaDot>(shape));
        break;
    case oa::oacTextType:
        describeText(text, as<oa::oaText>(shape));
        break;
    case oa::oacLineType:
        describeLine(text, as<oa::oaLine>(shape));
        break;
    default:
        break;
    }
}

} // namespace

void describeInLine(XmlText& text, const oa::oaBox& box) {
    text.put("<box upperLeft=\"");
    text.put(oa::oaPoint(box.left(), box.top()));
    text.put("\" lowerRight=\"");
    text.put(oa::oaPoint(box.right(), box.bottom()));
    text.put("\"/>");
}

void describe(XmlText& text, const oa::oaBox& box) {
    describeInLine(text, box);
    text.put("\n");
}

void describe(XmlText& text, const oa::oaShape& shape) {
    const oa::oaType type = shape.getType();
    const bool hasAppDef = shape.hasAppDef() != 0;
    text.put("<shape ");
    text.lineAttribute("    layerNum=\"", shape.getLayerNum());
    text.lineAttribute("    purposeNum=\"", shape.getPurposeNum());
    text.lineAttribute("    type=\"", type.getName());
    text.lineAttribute("    hasAppDef=\"", hasAppDef);
    text.put(">\n");
    if (hasAppDef) {
        describeAppDefs(text, shape);
    }
    describeGeometry(text, shape, type);
    text.put("</shape>\n");
}

} // namespace ovalis
