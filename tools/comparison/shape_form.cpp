#include "comparison/shape_form.h"

#include <algorithm>
#include <bit>

#include "comparison/attachments.h"
#include "comparison/text.h"
#include "comparison/via_params.h"

namespace comparison {
namespace {

template <class Shape>
const Shape& as(const oa::oaPinFig& shape) {
    return static_cast<const Shape&>(shape);
}

std::uint64_t wordOf(const oa::oaPoint& point) {
    return std::uint64_t{std::uint32_t(point.x())} << 32 | std::uint32_t(point.y());
}

/// Takes what a shape is made of, by name. Places are told apart from what does not move.
class FormTaker {
public:
    FormTaker() = default;
    FormTaker(const FormTaker&) = delete;
    FormTaker& operator=(const FormTaker&) = delete;
    virtual ~FormTaker() = default;

    virtual void point(const char* name, const oa::oaPoint& point) = 0;
    virtual void box(const char* name, const oa::oaBox& box) = 0;
    virtual void points(const oa::oaPointArray& points) = 0;
    virtual void number(const char* name, std::uint64_t number) = 0;
    virtual void real(const char* name, double number) = 0;
    virtual void text(const char* name, const oa::oaString& text) = 0;
    virtual void choice(const char* name, std::uint64_t number, const oa::oaString& text) = 0;
    virtual void flag(const char* name, oa::oaBoolean value) = 0;
    virtual void object(const char* name, const oa::oaObject* object) = 0;
    virtual void fields(const Fields& fields) = 0;

    template <class Enum>
    void choice(const char* name, const Enum& value) {
        choice(name, std::uint64_t(value), value.getName());
    }
};

class DigestTaker : public FormTaker {
public:
    DigestTaker(Digest& digest, const oa::oaPoint& anchor, const Labels& labels)
        : digest_(digest), anchor_(anchor), labels_(labels) {}

    using FormTaker::choice;
    void point(const char*, const oa::oaPoint& point) override {
        digest_.add(wordOf(point - anchor_));
    }
    void box(const char*, const oa::oaBox& box) override {
        digest_.add(wordOf(box.lowerLeft() - anchor_));
        digest_.add(wordOf(box.upperRight() - anchor_));
    }
    void points(const oa::oaPointArray& points) override {
        digest_.add(points.getNumElements());
        for (oa::oaUInt4 at = 0; at < points.getNumElements(); ++at)
            digest_.add(wordOf(points[at] - anchor_));
    }
    void number(const char*, std::uint64_t number) override { digest_.add(number); }
    void real(const char*, double number) override {
        digest_.add(std::bit_cast<std::uint64_t>(number));
    }
    void text(const char*, const oa::oaString& text) override {
        digest_.add(std::string_view(static_cast<const oa::oaChar*>(text)));
    }
    void choice(const char*, std::uint64_t number, const oa::oaString&) override {
        digest_.add(number);
    }
    void flag(const char*, oa::oaBoolean value) override { digest_.add(value ? 1 : 0); }
    void object(const char*, const oa::oaObject* object) override {
        digest_.add(object == nullptr ? 0 : object->getType());
        digest_.add(labels_.numberOf(object));
    }
    void fields(const Fields& fields) override { digest_.add(comparison::textOf(fields)); }

private:
    Digest& digest_;
    oa::oaPoint anchor_;
    const Labels& labels_;
};

class FieldTaker : public FormTaker {
public:
    FieldTaker(Fields& fields, const Labels& labels) : fields_(fields), labels_(labels) {}

    using FormTaker::choice;
    void point(const char* name, const oa::oaPoint& point) override {
        fields_.set(name, textOf(point));
    }
    void box(const char* name, const oa::oaBox& box) override { fields_.set(name, textOf(box)); }
    void points(const oa::oaPointArray&) override {} // told by compareOutlines()
    void number(const char* name, std::uint64_t number) override {
        fields_.set(name, numberText(number));
    }
    void real(const char* name, double number) override { fields_.set(name, numberText(number)); }
    void text(const char* name, const oa::oaString& text) override {
        fields_.set(name, quoted(text));
    }
    void choice(const char* name, std::uint64_t, const oa::oaString& text) override {
        fields_.set(name, ovalis::fromOa(text));
    }
    void flag(const char* name, oa::oaBoolean value) override { fields_.set(name, yesOrNo(value)); }
    void object(const char* name, const oa::oaObject* object) override {
        // A shape is not told here: its place may have changed, which is told of the shape.
        if (object != nullptr && !isDrawn(*object))
            fields_.set(name, labels_.labelOf(*object));
    }
    void fields(const Fields& fields) override { fields_.take(fields); }

private:
    Fields& fields_;
    const Labels& labels_;
};

void takePath(const oa::oaPath& path, FormTaker& taker) {
    oa::oaPointArray points;
    path.getPoints(points);
    taker.points(points);
    taker.number("width", path.getWidth());
    taker.choice("style", path.getStyle());
    taker.number("extension at the begin", path.getBeginExt());
    taker.number("extension at the end", path.getEndExt());
}

void takePathSeg(const oa::oaPathSeg& segment, FormTaker& taker) {
    oa::oaPoint begin;
    oa::oaPoint end;
    oa::oaSegStyle style;
    oa::oaDist ext[4] = {};
    segment.getPoints(begin, end);
    segment.getStyle(style);
    taker.point("begin", begin);
    taker.point("end", end);
    taker.number("width", style.getWidth());
    taker.choice("style of the begin", style.getBeginStyle());
    taker.choice("style of the end", style.getEndStyle());
    style.getBeginExt(ext[0], ext[1], ext[2], ext[3]);
    taker.number("extension at the begin", ext[0]);
    taker.number("left diagonal extension at the begin", ext[1]);
    taker.number("right diagonal extension at the begin", ext[2]);
    taker.number("right half width at the begin", ext[3]);
    style.getEndExt(ext[0], ext[1], ext[2], ext[3]);
    taker.number("extension at the end", ext[0]);
    taker.number("left diagonal extension at the end", ext[1]);
    taker.number("right diagonal extension at the end", ext[2]);
    taker.number("right half width at the end", ext[3]);
}

void takeArc(const oa::oaArc& arc, FormTaker& taker) {
    oa::oaBox box;
    arc.getEllipseBBox(box);
    taker.box("box of the ellipse", box);
    taker.real("start angle", arc.getStartAngle());
    taker.real("stop angle", arc.getStopAngle());
}

void takeDonut(const oa::oaDonut& donut, FormTaker& taker) {
    oa::oaPoint center;
    donut.getCenter(center);
    taker.point("center", center);
    taker.number("radius", donut.getRadius());
    taker.number("radius of the hole", donut.getHoleRadius());
}

void takeDot(const oa::oaDot& dot, FormTaker& taker) {
    oa::oaPoint location;
    dot.getLocation(location);
    taker.point("location", location);
    taker.number("width", dot.getWidth());
    taker.number("height", dot.getHeight());
}

template <class Text>
void takeStyle(const Text& text, FormTaker& taker) {
    oa::oaPoint origin;
    text.getOrigin(origin);
    taker.point("origin", origin);
    taker.choice("alignment", text.getAlignment());
    taker.choice("orientation", text.getOrient());
    taker.choice("font", text.getFont());
    taker.number("height", text.getHeight());
    taker.flag("overbar", text.hasOverbar());
    taker.flag("visible", text.isVisible());
    taker.flag("drafting", text.isDrafting());
}

void takeText(const oa::oaText& text, FormTaker& taker) {
    oa::oaString shown;
    text.getText(shown);
    taker.text("text", shown);
    takeStyle(text, taker);
}

void takeEvalText(const oa::oaEvalText& text, FormTaker& taker) {
    oa::oaString part;
    text.getExpression(part);
    taker.text("expression", part);
    text.getEvaluatorName(part);
    taker.text("evaluator", part);
    takeStyle(text, taker);
}

/// Not the text: it follows from what is shown, and is told there when it differs.
void takeAttrDisplay(const oa::oaAttrDisplay& display, FormTaker& taker) {
    taker.object("shows", display.getObject());
    taker.number("attribute", display.getAttribute());
    taker.choice("format", display.getFormat());
    takeStyle(display, taker);
}

void takePropDisplay(const oa::oaPropDisplay& display, FormTaker& taker) {
    const oa::oaProp* const prop = display.getProp();
    taker.text("property", plainNameOf(*prop).c_str());
    taker.object("shows", prop->getOwner());
    taker.choice("format", display.getFormat());
    takeStyle(display, taker);
}

void takeVia(const oa::oaVia& via, FormTaker& taker) {
    oa::oaString name;
    oa::oaPoint origin;
    oa::oaViaParam params;
    oa::oaParamArray ownParams;
    Fields fields;
    via.getViaDefName(name);
    via.getOrigin(origin);
    taker.text("definition", name);
    taker.point("origin", origin);
    taker.choice("orientation", via.getOrient());
    if (via.getType() == oa::oacStdViaType) {
        static_cast<const oa::oaStdVia&>(via).getViaParams(params);
        addViaParams(fields, params);
    } else {
        static_cast<const oa::oaCustomVia&>(via).getParams(ownParams);
        addParams(fields, ownParams);
    }
    taker.fields(fields);
}

template <class Shape>
void takePoints(const oa::oaPinFig& shape, FormTaker& taker) {
    oa::oaPointArray points;
    as<Shape>(shape).getPoints(points);
    taker.points(points);
}

void takeForm(const oa::oaPinFig& shape, FormTaker& taker) {
    oa::oaBox box;
    switch (shape.getType()) {
    case oa::oacRectType:
    case oa::oacEllipseType:
        shape.getBBox(box);
        return taker.box("box", box);
    case oa::oacPolygonType:
        return takePoints<oa::oaPolygon>(shape, taker);
    case oa::oacLineType:
        return takePoints<oa::oaLine>(shape, taker);
    case oa::oacPathType:
        return takePath(as<oa::oaPath>(shape), taker);
    case oa::oacPathSegType:
        return takePathSeg(as<oa::oaPathSeg>(shape), taker);
    case oa::oacArcType:
        return takeArc(as<oa::oaArc>(shape), taker);
    case oa::oacDonutType:
        return takeDonut(as<oa::oaDonut>(shape), taker);
    case oa::oacDotType:
        return takeDot(as<oa::oaDot>(shape), taker);
    case oa::oacTextType:
        return takeText(as<oa::oaText>(shape), taker);
    case oa::oacEvalTextType:
        return takeEvalText(as<oa::oaEvalText>(shape), taker);
    case oa::oacAttrDisplayType:
        return takeAttrDisplay(as<oa::oaAttrDisplay>(shape), taker);
    case oa::oacPropDisplayType:
        return takePropDisplay(as<oa::oaPropDisplay>(shape), taker);
    case oa::oacStdViaType:
    case oa::oacCustomViaType:
        return takeVia(as<oa::oaVia>(shape), taker);
    default:
        shape.getBBox(box);
        taker.box("box", box);
    }
}

/// False for a kind that is not made of a list of points.
bool getOutline(const oa::oaPinFig& shape, oa::oaPointArray& points) {
    switch (shape.getType()) {
    case oa::oacPolygonType:
        as<oa::oaPolygon>(shape).getPoints(points);
        return true;
    case oa::oacLineType:
        as<oa::oaLine>(shape).getPoints(points);
        return true;
    case oa::oacPathType:
        as<oa::oaPath>(shape).getPoints(points);
        return true;
    default:
        return false;
    }
}

std::string outlineText(const oa::oaPointArray& points, oa::oaUInt4 at) {
    const oa::oaUInt4 count = points.getNumElements();
    return numberText(count) + " points" +
           (at < count ? ", number " + numberText(at + 1) + " at " + textOf(points[at]) : "");
}

bool isText(oa::oaTypeEnum kind) {
    return kind == oa::oacTextType || kind == oa::oacEvalTextType ||
           kind == oa::oacAttrDisplayType || kind == oa::oacPropDisplayType;
}

bool isVia(oa::oaTypeEnum kind) {
    return kind == oa::oacStdViaType || kind == oa::oacCustomViaType;
}

std::string kindOf(const oa::oaPinFig& shape, const Labels& labels) {
    switch (shape.getType()) {
    case oa::oacRectType:
        return "rectangle";
    case oa::oacPathSegType:
        return "path segment";
    case oa::oacTextType: {
        oa::oaString text;
        as<oa::oaText>(shape).getText(text);
        return "text " + quoted(text);
    }
    case oa::oacStdViaType:
    case oa::oacCustomViaType: {
        oa::oaString name;
        as<oa::oaVia>(shape).getViaDefName(name);
        return "via " + quoted(name);
    }
    case oa::oacEvalTextType: {
        oa::oaString text;
        as<oa::oaEvalText>(shape).getExpression(text);
        return "evaluated text " + quoted(text);
    }
    case oa::oacAttrDisplayType:
        return "display of an attribute of " +
               labels.labelOf(*as<oa::oaAttrDisplay>(shape).getObject());
    case oa::oacPropDisplayType:
        return "display of " + labels.labelOf(*as<oa::oaPropDisplay>(shape).getProp());
    default: {
        oa::oaString kind = shape.getType().getName();
        kind.toLower();
        return ovalis::fromOa(kind);
    }
    }
}

} // namespace

bool isDrawn(const oa::oaObject& object) {
    return dynamic_cast<const oa::oaShape*>(&object) != nullptr ||
           dynamic_cast<const oa::oaVia*>(&object) != nullptr;
}

std::uint64_t layerOf(const oa::oaPinFig& shape) {
    if (isVia(shape.getType()))
        return 0;
    const auto& layered = as<oa::oaShape>(shape);
    return std::uint64_t{layered.getLayerNum()} << 32 | layered.getPurposeNum();
}

oa::oaPoint anchorOf(const oa::oaPinFig& shape) {
    oa::oaPointArray points;
    oa::oaPoint point;
    oa::oaPoint end;
    oa::oaBox box;
    if (getOutline(shape, points))
        return points.getNumElements() == 0 ? oa::oaPoint() : points[0];
    switch (shape.getType()) {
    case oa::oacPathSegType:
        as<oa::oaPathSeg>(shape).getPoints(point, end);
        return point;
    case oa::oacArcType:
        as<oa::oaArc>(shape).getEllipseBBox(box);
        return box.lowerLeft();
    case oa::oacDotType:
        as<oa::oaDot>(shape).getLocation(point);
        return point;
    case oa::oacTextType:
    case oa::oacEvalTextType:
        as<oa::oaText>(shape).getOrigin(point);
        return point;
    case oa::oacAttrDisplayType:
    case oa::oacPropDisplayType:
        as<oa::oaTextDisplay>(shape).getOrigin(point);
        return point;
    case oa::oacStdViaType:
    case oa::oacCustomViaType:
        as<oa::oaVia>(shape).getOrigin(point);
        return point;
    default:
        shape.getBBox(box);
        return box.lowerLeft();
    }
}

oa::oaBox extentOf(const oa::oaPinFig& shape) {
    if (isText(shape.getType()) || isVia(shape.getType())) {
        const oa::oaPoint origin = anchorOf(shape);
        return {origin, origin};
    }
    oa::oaBox box;
    shape.getBBox(box);
    return box;
}

void addForm(Digest& digest, const oa::oaPinFig& shape, const oa::oaPoint& anchor,
             const Labels& labels) {
    const oa::oaTypeEnum kind = shape.getType();
    digest.add(std::uint64_t(kind));
    DigestTaker taker(digest, anchor, labels);
    takeForm(shape, taker);
}

Fields formOf(const oa::oaPinFig& shape, const Labels& labels) {
    Fields fields;
    FieldTaker taker(fields, labels);
    takeForm(shape, taker);
    return fields;
}

void compareOutlines(const Place& place, const std::string& object, const oa::oaPinFig& was,
                     const oa::oaPinFig& is) {
    oa::oaPointArray left;
    oa::oaPointArray right;
    if (!getOutline(was, left) || !getOutline(is, right) || left == right)
        return;
    const oa::oaUInt4 shared = std::min(left.getNumElements(), right.getNumElements());
    oa::oaUInt4 at = 0;
    while (at < shared && left[at] == right[at])
        ++at;
    place.tell({Difference::Kind::changed, "", object, "outline", outlineText(left, at),
                outlineText(right, at)});
}

std::string describe(const oa::oaPinFig& shape, const Labels& labels) {
    const oa::oaTypeEnum kind = shape.getType();
    const std::string what = kindOf(shape, labels);
    if (isVia(kind))
        return what + " at " + textOf(anchorOf(shape));
    const auto& layered = as<oa::oaShape>(shape);
    return what + " on " + labels.layerText(layered.getLayerNum(), layered.getPurposeNum()) + " " +
           (isText(kind) ? "at " + textOf(anchorOf(shape)) : textOf(extentOf(shape)));
}

} // namespace comparison
