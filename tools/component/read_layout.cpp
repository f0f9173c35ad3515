#include <algorithm>
#include <limits>
#include <set>

#include "component/read_component.h"

namespace component {
namespace {

constexpr std::uint32_t drawingPurpose = 0xFFFFFFFF;

bool fitsCoordinate(const nlohmann::json& value) {
    using Limits = std::numeric_limits<std::int32_t>;
    if (!value.is_number_integer())
        return false;
    if (value.is_number_unsigned())
        return value.get<std::uint64_t>() <= std::uint64_t{Limits::max()};
    const auto number = value.get<std::int64_t>();
    return number >= Limits::min() && number <= Limits::max();
}

/// Points are many: nodes with their pointers are made only to complain.
Outline readPoints(const JsonNode& node, std::size_t fewest) {
    const std::size_t count = node.size();
    if (count < fewest)
        node.fail("at least " + std::to_string(fewest) + " points");
    Outline outline;
    outline.reserve(count);
    for (std::size_t at = 0; at < count; ++at) {
        const nlohmann::json& point = node.raw()[at];
        if (!point.is_array() || point.size() != 2)
            node[at].fail("a point [x, y]");
        for (std::size_t axis = 0; axis < 2; ++axis)
            if (!fitsCoordinate(point[axis]))
                node[at][axis].int32();
        outline.push_back({point[0].get<std::int32_t>(), point[1].get<std::int32_t>()});
    }
    return outline;
}

std::vector<Outline> readOutlines(const JsonNode& node, std::size_t fewest) {
    std::vector<Outline> outlines;
    outlines.reserve(node.size());
    for (std::size_t at = 0; at < node.size(); ++at)
        outlines.push_back(readPoints(node[at], fewest));
    return outlines;
}

LayerFigures readFigures(const JsonNode& node, const Component& component) {
    const std::string key = node["name"].name() + ":" + node["purpose"].name();
    LayerFigures figures;
    figures.layer = component.findLayer(key);
    if (figures.layer == nullptr)
        node["name"].fail("a layer that the component declares, but \"" + key + "\" is not");
    figures.polygons = readOutlines(node["polygons"], 3);
    if (const JsonNode lines = node["lines"]; !lines.isAbsent())
        figures.lines = readOutlines(lines, 2);
    return figures;
}

/// Looks a name up among the declared pairs, then among those found for earlier labels.
template <class Matches>
const Layer* findAny(const Component& component, const Layout& layout, Matches matches) {
    for (const auto* layers : {&component.layers, &layout.labelLayers})
        if (const auto found = std::find_if(layers->begin(), layers->end(), matches);
            found != layers->end())
            return &*found;
    return nullptr;
}

/// The pair of a label. Labels often lie on pairs without figures, which components do not declare;
/// their numbers follow from the names known so far, else from the file's own layer and datatype.
Layer labelLayer(const JsonNode& node, const Component& component, const Layout& layout) {
    Layer label{node["name"].name(), node["layer"].uint32(), node["purpose"].name(),
                node["datatype"].uint32(), true};
    if (const Layer* same = component.findLayer(label.key()))
        return *same;
    const auto sameName = [&](const Layer& layer) { return layer.name == label.name; };
    const auto samePurpose = [&](const Layer& layer) { return layer.purpose == label.purpose; };
    if (const Layer* known = findAny(component, layout, sameName))
        label.number = known->number;
    if (label.purpose == "drawing")
        label.purposeNumber = drawingPurpose;
    else if (const Layer* known = findAny(component, layout, samePurpose))
        label.purposeNumber = known->purposeNumber;
    return label;
}

void addLabel(const JsonNode& node, const Component& component, Layout& layout) {
    const Layer layer = labelLayer(node, component, layout);
    const Label label{node["text"].freeText(),
                      {node["x"].int32(), node["y"].int32()},
                      layer.number,
                      layer.purposeNumber};
    if (!layer.draw)
        return;
    const auto samePair = [&](const Layer& other) { return other.key() == layer.key(); };
    if (findAny(component, layout, samePair) == nullptr)
        layout.labelLayers.push_back(layer);
    layout.labels.push_back(label);
}

/// Refuses geometry in other units than the component's: the drawing would have the wrong size.
void checkUnits(const JsonNode& root, const Component& component) {
    const JsonNode dbu = root["dbu_per_um"];
    if (component.userUnit != "micron" || dbu.isAbsent())
        return;
    if (dbu.real() != component.dbuPerUserUnit)
        dbu.fail("the component's " + std::to_string(component.dbuPerUserUnit) +
                 " database units for each micron");
}

/// A list is long, and its objects are alike: an unknown key is remarked on where it comes first.
void remarkUnknownKeysOfAll(const JsonNode& list, std::set<std::string> known,
                            std::vector<std::string>& remarks) {
    for (std::size_t at = 0; at < list.size(); ++at) {
        const JsonNode node = list[at];
        node.remarkUnknownKeys(known, remarks);
        for (std::string& key : node.keys())
            known.insert(std::move(key));
    }
}

} // namespace

Layout readLayout(const Component& component) {
    const JsonDocument document = readJson(component.layoutFile);
    const JsonNode root(document);
    if (const JsonNode format = root["format"]; !format.isAbsent())
        format.choice({"layout/1"});
    Layout layout;
    root.remarkUnknownKeys({"format", "cell", "source", "licence", "pdk", "database_unit_um",
                            "dbu_per_um", "bbox", "counts", "layers", "texts"},
                           layout.warnings);
    checkUnits(root, component);
    for (std::size_t at = 0; at < root["layers"].size(); ++at)
        layout.figures.push_back(readFigures(root["layers"][at], component));
    remarkUnknownKeysOfAll(root["layers"],
                           {"layer", "datatype", "name", "purpose", "polygons", "lines"},
                           layout.warnings);
    if (const JsonNode texts = root["texts"]; !texts.isAbsent()) {
        for (std::size_t at = 0; at < texts.size(); ++at)
            addLabel(texts[at], component, layout);
        remarkUnknownKeysOfAll(texts, {"text", "layer", "datatype", "name", "purpose", "x", "y"},
                               layout.warnings);
    }
    return layout;
}

} // namespace component
