#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include <ovalis/core.h>

namespace ovalis::test {

inline std::string textOf(const oa::oaPoint& point) {
    return "(" + std::to_string(point.x()) + "," + std::to_string(point.y()) + ")";
}

inline std::string textOf(const oa::oaPointArray& points) {
    std::string text;
    for (oa::oaUInt4 i = 0; i < points.getNumElements(); ++i) {
        text += textOf(points[i]);
    }
    return text;
}

inline std::string textOf(const oa::oaText& shape) {
    oa::oaString content;
    oa::oaPoint origin;
    shape.getText(content);
    shape.getOrigin(origin);
    return "'" + fromOa(content) + "' " + textOf(origin) + " " +
           fromOa(shape.getAlignment().getName()) + " " + fromOa(shape.getOrient().getName()) +
           " font " + std::to_string(static_cast<int>(shape.getFont())) + " height " +
           std::to_string(shape.getHeight()) + (shape.hasOverbar() ? " overbar" : "") +
           (shape.isVisible() ? " visible" : "") + (shape.isDrafting() ? " drafting" : "");
}

/// Everything that makes up one shape of the kinds that ports and symbols consist of.
inline std::string textOf(const oa::oaShape& shape) {
    const std::string on =
        std::to_string(shape.getLayerNum()) + ":" + std::to_string(shape.getPurposeNum()) + " ";
    oa::oaPointArray points;
    if (const auto* line = dynamic_cast<const oa::oaLine*>(&shape)) {
        line->getPoints(points);
        return "line " + on + textOf(points);
    }
    if (const auto* polygon = dynamic_cast<const oa::oaPolygon*>(&shape)) {
        polygon->getPoints(points);
        return "polygon " + on + textOf(points);
    }
    if (const auto* dot = dynamic_cast<const oa::oaDot*>(&shape)) {
        oa::oaPoint location;
        dot->getLocation(location);
        return "dot " + on + textOf(location) + " " + std::to_string(dot->getWidth()) + "x" +
               std::to_string(dot->getHeight());
    }
    if (const auto* text = dynamic_cast<const oa::oaText*>(&shape)) {
        return "text " + on + textOf(*text);
    }
    oa::oaBox box;
    shape.getBBox(box);
    return std::string(dynamic_cast<const oa::oaRect*>(&shape) ? "rect " : "other ") + on +
           textOf(box.lowerLeft()) + textOf(box.upperRight());
}

/// All shapes of a block as text, sorted, so that the order of the database does not matter.
inline std::vector<std::string> shapesOf(const oa::oaBlock& block) {
    std::vector<std::string> texts;
    oa::oaIter<oa::oaShape> shapes(block.getShapes());
    while (const oa::oaShape* shape = shapes.getNext()) {
        texts.push_back(textOf(*shape));
    }
    std::sort(texts.begin(), texts.end());
    return texts;
}

/// The text properties of an object, " key=value" each, sorted by key.
inline std::string propertiesOf(const oa::oaObject& object) {
    std::vector<std::string> texts;
    oa::oaIter<oa::oaProp> props(object.getProps());
    while (const oa::oaProp* prop = props.getNext()) {
        oa::oaString name;
        oa::oaString value;
        prop->getName(name);
        prop->getValue(value);
        texts.push_back(" " + fromOa(name) + "=" + fromOa(value));
    }
    std::sort(texts.begin(), texts.end());
    std::string all;
    for (const std::string& text : texts) {
        all += text;
    }
    return all;
}

inline std::string textOf(const oa::oaPin& pin) {
    oa::oaString name;
    pin.getName(name);
    std::string text = " pin " + fromOa(name) + " access " + std::to_string(pin.getAccessDir()) +
                       " angle " + std::to_string(vexPinAngle->get(&pin)) + propertiesOf(pin);
    oa::oaIter<oa::oaPinFig> figures(pin.getFigs());
    while (const oa::oaPinFig* figure = figures.getNext()) {
        text += " [" + textOf(dynamic_cast<const oa::oaShape&>(*figure)) + "]";
    }
    return text;
}

template <class Object>
std::string nativeNameOf(const Object& object) {
    oa::oaString name;
    object.getName(oa::oaNativeNS(), name);
    return fromOa(name);
}

inline std::string textOf(const oa::oaTerm& term) {
    std::string text = nativeNameOf(term) + " on " + nativeNameOf(*term.getNet()) + " at " +
                       std::to_string(term.getPosition()) + " " +
                       fromOa(term.getTermType().getName()) +
                       (term.isInterface() ? " interface" : "") + propertiesOf(term);
    oa::oaIter<oa::oaPin> pins(term.getPins());
    while (const oa::oaPin* pin = pins.getNext()) {
        text += ";" + textOf(*pin);
    }
    return text;
}

/// All terminals of a block with their pins and figures as text, sorted by name.
inline std::vector<std::string> portsOf(const oa::oaBlock& block) {
    std::vector<std::string> texts;
    oa::oaIter<oa::oaTerm> terms(block.getTerms());
    while (const oa::oaTerm* term = terms.getNext()) {
        texts.push_back(textOf(*term));
    }
    std::sort(texts.begin(), texts.end());
    return texts;
}

/// The names of all nets of a block, sorted.
inline std::vector<std::string> netsOf(const oa::oaBlock& block) {
    std::vector<std::string> names;
    oa::oaIter<oa::oaNet> nets(block.getNets());
    while (const oa::oaNet* net = nets.getNext()) {
        names.push_back(nativeNameOf(*net));
    }
    std::sort(names.begin(), names.end());
    return names;
}

} // namespace ovalis::test
