#include "cli/artwork.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>
#include <set>

#include <ovalis/pcell.h>
#include <ovalis/ports.h>

#include "cli/library_access.h"
#include "component/outline.h"

namespace cli {
namespace {

using component::Label;
using component::LayerFigures;
using component::Outline;

oa::oaPointArray toOa(const Outline& outline) {
    oa::oaPointArray points(static_cast<oa::oaUInt4>(outline.size()));
    for (const component::Point& point : outline)
        points.append(oa::oaPoint(point.x, point.y));
    return points;
}

oa::oaBox boxOf(const Outline& rectangle) {
    const auto& [a, b] = std::tie(rectangle[0], rectangle[2]);
    return {std::min(a.x, b.x), std::min(a.y, b.y), std::max(a.x, b.x), std::max(a.y, b.y)};
}

void drawPolygon(oa::oaBlock* block, const component::Layer& layer, const Outline& raw,
                 ArtworkReport& report) {
    const Outline outline = component::cleanPolygon(raw);
    if (outline.size() < 3) {
        ++report.dropped;
    } else if (component::isRectangle(outline)) {
        oa::oaRect::create(block, layer.number, layer.purposeNumber, boxOf(outline));
        ++report.rectangles;
    } else {
        oa::oaPolygon::create(block, layer.number, layer.purposeNumber, toOa(outline));
        ++report.polygons;
    }
}

void drawLine(oa::oaBlock* block, const component::Layer& layer, const Outline& raw,
              ArtworkReport& report) {
    const Outline line = component::cleanLine(raw);
    if (line.size() < 2) {
        ++report.dropped;
        return;
    }
    oa::oaLine::create(block, layer.number, layer.purposeNumber, toOa(line));
    ++report.lines;
}

/// The longest side of everything in the layout, in database units.
double longestSide(const component::Layout& layout) {
    double left = std::numeric_limits<double>::max();
    double bottom = left;
    double right = std::numeric_limits<double>::lowest();
    double top = right;
    const auto add = [&](const component::Point& point) {
        left = std::min(left, double(point.x));
        right = std::max(right, double(point.x));
        bottom = std::min(bottom, double(point.y));
        top = std::max(top, double(point.y));
    };
    for (const LayerFigures& figures : layout.figures)
        for (const auto* outlines : {&figures.polygons, &figures.lines})
            for (const Outline& outline : *outlines)
                std::for_each(outline.begin(), outline.end(), add);
    for (const Label& label : layout.labels)
        add(label.origin);
    return std::max({right - left, top - bottom, 1.0});
}

double smallestDistance(const std::vector<Label>& labels) {
    constexpr std::size_t mostLabels = 2000;
    double smallest = std::numeric_limits<double>::max();
    const std::size_t count = std::min(labels.size(), mostLabels);
    for (std::size_t a = 0; a < count; ++a)
        for (std::size_t b = a + 1; b < count; ++b)
            if (labels[a].origin != labels[b].origin)
                smallest =
                    std::min(smallest, std::hypot(double(labels[a].origin.x) - labels[b].origin.x,
                                                  double(labels[a].origin.y) - labels[b].origin.y));
    return smallest;
}

/// Layout files give no height for their texts: small enough that neighbours stay apart, but never
/// out of proportion to the whole.
oa::oaDist textHeight(const component::Layout& layout) {
    const double whole = longestSide(layout);
    const double apart = 0.8 * smallestDistance(layout.labels);
    return static_cast<oa::oaDist>(std::max(1.0, std::clamp(apart, whole / 400, whole / 80)));
}

void drawLabels(oa::oaBlock* block, const component::Layout& layout, ArtworkReport& report) {
    if (layout.labels.empty())
        return;
    const oa::oaDist height = textHeight(layout);
    for (const Label& label : layout.labels) {
        if (label.text.empty()) {
            ++report.dropped;
            continue;
        }
        oa::oaText::create(block, label.layerNumber, label.purposeNumber, ovalis::toOa(label.text),
                           oa::oaPoint(label.origin.x, label.origin.y), oa::oacLowerLeftTextAlign,
                           oa::oacR0, oa::oacRomanFont, height);
        ++report.texts;
    }
}

/// An outline that the database takes as a pin figure: a polygon without extra points, else the
/// line or the dot that is left of it.
Outline pinOutline(const Outline& raw) {
    const Outline polygon = component::cleanPolygon(raw);
    if (polygon.size() >= 3)
        return polygon;
    const auto before = [](const component::Point& a, const component::Point& b) {
        return std::tie(a.x, a.y) < std::tie(b.x, b.y);
    };
    const auto [first, last] = std::minmax_element(raw.begin(), raw.end(), before);
    if (*first == *last)
        return {*first};
    if (raw.size() == 2)
        return raw;
    return {*first, *last};
}

ovalis::Port portOf(const component::Port& from) {
    ovalis::Port port;
    port.setName(from.name);
    port.setLayerNum(from.layerNumber);
    port.setPurposeNum(from.purposeNumber);
    port.setAngle(from.angle);
    port.setProperties(from.properties);
    port.setShapeOutline(toOa(pinOutline(from.outline)));
    return port;
}

struct ParameterOf {
    const std::string& name;

    std::unique_ptr<ovalis::Param> operator()(bool value) const {
        return std::make_unique<ovalis::BoolParam>(name, value);
    }
    std::unique_ptr<ovalis::Param> operator()(std::int32_t value) const {
        return std::make_unique<ovalis::IntParam>(name, value);
    }
    std::unique_ptr<ovalis::Param> operator()(const component::RealValue& value) const {
        auto parameter = std::make_unique<ovalis::RealParam>(name, value.number);
        parameter->setValueWithUnit(value.withUnit);
        parameter->setUnitType(value.unitType);
        return parameter;
    }
    std::unique_ptr<ovalis::Param> operator()(const std::string& value) const {
        return std::make_unique<ovalis::StringParam>(name, value);
    }
    std::unique_ptr<ovalis::Param> operator()(const component::LayerValue& value) const {
        auto parameter = std::make_unique<ovalis::LayerParam>(name, value.number);
        parameter->setValueStr(value.text);
        return parameter;
    }
};

std::vector<std::unique_ptr<ovalis::Param>> parametersOf(const component::Component& component) {
    std::vector<std::unique_ptr<ovalis::Param>> parameters;
    for (const component::Parameter& from : component.parameters) {
        auto parameter = std::visit(ParameterOf{from.name}, from.value);
        parameter->setDescription(from.description);
        parameter->setDisplayOnSchematic(from.displayOnSchematic);
        parameter->setNotEdited(from.notEdited);
        parameter->setNotNetListed(from.notNetlisted);
        parameter->setEvaluated(from.evaluated);
        parameters.push_back(std::move(parameter));
    }
    return parameters;
}

} // namespace

ArtworkReport drawLayout(oa::oaDesign& design, const component::Layout& layout) {
    return calling([&] {
        ArtworkReport report;
        std::set<const component::Layer*> layers;
        oa::oaBlock* block = oa::oaBlock::create(&design);
        for (const LayerFigures& figures : layout.figures) {
            if (!figures.layer->draw)
                continue;
            for (const Outline& polygon : figures.polygons)
                drawPolygon(block, *figures.layer, polygon, report);
            for (const Outline& line : figures.lines)
                drawLine(block, *figures.layer, line, report);
            if (!figures.polygons.empty() || !figures.lines.empty())
                layers.insert(figures.layer);
        }
        drawLabels(block, layout, report);
        report.layers = layers.size();
        return report;
    });
}

void addComponentPorts(oa::oaDesign& design, const component::Component& component) {
    std::vector<ovalis::Port> ports;
    std::transform(component.ports.begin(), component.ports.end(), std::back_inserter(ports),
                   portOf);
    ovalis::addPorts(design, ports, component.sharedNet);
}

void makeMaster(oa::oaDesign& design, const component::Component& component) {
    const auto owned = parametersOf(component);
    std::vector<ovalis::Param*> parameters;
    for (const auto& parameter : owned)
        parameters.push_back(parameter.get());
    const ovalis::CellOptions options{component.itemPrefix};
    if (component.kind == component::Kind::scriptMacro)
        ovalis::makeSKRPcell(design, parameters, options, component.macroBody);
    else
        ovalis::makePSNPcell(design, parameters, options);
}

void drawSymbol(oa::oaDesign& design, const component::Component& component) {
    if (component.symbol.kind == component::SymbolKind::differential)
        ovalis::vexSymbolSnPDifferential(design, component.symbol.ports);
    else
        ovalis::vexSymbolSnPDifferentialForks(design, component.symbol.ports);
    calling([&] { design.save(); });
}

} // namespace cli
