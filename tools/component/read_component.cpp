#include "component/read_component.h"

#include <algorithm>
#include <set>

#include "platform/path.h"

namespace component {
namespace {

constexpr std::uint32_t mostSymbolPorts = 10000;

/// A text that ends up between double quotes in the item definition script, which has no escapes.
std::string scriptText(const JsonNode& node) {
    std::string text = node.text();
    if (text.find('"') != std::string::npos)
        node.fail("a text without double quotes");
    return text;
}

std::string scriptName(const JsonNode& node) {
    node.name();
    return scriptText(node);
}

void requireFormat(const JsonNode& root, const std::string& format) {
    const JsonNode node = root["format"];
    if (!node.isAbsent())
        node.choice({format});
}

/// Notes a name and its number unless it contradicts an earlier one, which the node's remark says.
void noteName(const JsonNode& node, const std::string& what, const NamedNumber& added,
              std::vector<NamedNumber>& names, std::vector<std::string>& warnings) {
    for (const NamedNumber& known : names) {
        const bool sameName = known.name == added.name;
        if (sameName && known.number == added.number)
            return;
        if (sameName || known.number == added.number) {
            warnings.push_back(node.remark("the technology keeps " + what + " \"" + known.name +
                                           "\" with number " + std::to_string(known.number)));
            return;
        }
    }
    names.push_back(added);
}

void addLayer(const JsonNode& node, Component& component) {
    node.remarkUnknownKeys({"name", "number", "purpose", "purpose_number", "gds", "draw"},
                           component.warnings);
    Layer layer{node["name"].name(), node["number"].uint32(), node["purpose"].name(),
                node["purpose_number"].uint32(), node["draw"].booleanOr(true)};
    if (component.findLayer(layer.key()) != nullptr)
        node.fail("a pair of layer and purpose not declared before, but \"" + layer.key() +
                  "\" is");
    noteName(node["number"], "layer", {layer.name, layer.number}, component.layerNames,
             component.warnings);
    noteName(node["purpose_number"], "purpose", {layer.purpose, layer.purposeNumber},
             component.purposeNames, component.warnings);
    component.layers.push_back(std::move(layer));
}

Outline readOutline(const JsonNode& node) {
    if (node.size() < 1)
        node.fail("at least 1 point");
    Outline outline;
    for (std::size_t at = 0; at < node.size(); ++at) {
        const JsonNode point = node[at];
        if (point.size() != 2)
            point.fail("a point [x, y]");
        outline.push_back({point[std::size_t{0}].int32(), point[std::size_t{1}].int32()});
    }
    return outline;
}

void addPort(const JsonNode& node, Component& component) {
    node.remarkUnknownKeys({"name", "layer", "purpose", "outline", "angle", "properties"},
                           component.warnings);
    Port port;
    port.name = node["name"].name();
    for (const Port& other : component.ports)
        if (other.name == port.name)
            node["name"].fail("a port name not used before");
    const std::string key = node["layer"].name() + ":" + node["purpose"].name();
    const Layer* layer = component.findLayer(key);
    if (layer == nullptr)
        node["layer"].fail("one of the component's layers, but \"" + key + "\" is not");
    port.layerNumber = layer->number;
    port.purposeNumber = layer->purposeNumber;
    port.outline = readOutline(node["outline"]);
    port.angle = node["angle"].real();
    if (const JsonNode properties = node["properties"]; !properties.isAbsent())
        for (const std::string& name : properties.keys()) {
            const JsonNode value = properties[name.c_str()];
            if (name.empty())
                properties.fail("property names that are not empty");
            port.properties[name] = value.freeText();
        }
    component.ports.push_back(std::move(port));
}

const std::vector<std::string> parameterKinds = {"bool", "int", "real", "string", "layer"};

ParameterValue readValue(const JsonNode& node, const std::string& kind) {
    const JsonNode value = node["value"];
    if (kind == "bool")
        return value.boolean();
    if (kind == "int")
        return value.int32();
    if (kind == "string")
        return scriptText(value);
    if (kind == "layer") {
        const JsonNode text = node["value_text"];
        return LayerValue{value.int32(), text.isAbsent() ? "" : scriptText(text)};
    }
    const JsonNode withUnit = node["value_with_unit"];
    const JsonNode unitType = node["unit_type"];
    return RealValue{value.real(), withUnit.isAbsent() ? "" : scriptText(withUnit),
                     unitType.isAbsent() ? -1 : unitType.int32()};
}

void addParameter(const JsonNode& node, Component& component) {
    const std::string kind = parameterKinds[node["kind"].choice(parameterKinds)];
    std::set<std::string> known = {"kind",       "name",         "value",
                                   "evaluated",  "description",  "display_on_schematic",
                                   "not_edited", "not_netlisted"};
    if (kind == "real")
        known.insert({"value_with_unit", "unit_type"});
    if (kind == "layer")
        known.insert("value_text");
    node.remarkUnknownKeys(known, component.warnings);

    Parameter parameter;
    parameter.name = scriptName(node["name"]);
    for (const Parameter& other : component.parameters)
        if (other.name == parameter.name)
            node["name"].fail("a parameter name not used before");
    const JsonNode description = node["description"];
    parameter.description = description.isAbsent() ? "" : scriptText(description);
    parameter.value = readValue(node, kind);
    parameter.displayOnSchematic = node["display_on_schematic"].booleanOr(true);
    parameter.notEdited = node["not_edited"].booleanOr(false);
    parameter.notNetlisted = node["not_netlisted"].booleanOr(false);
    parameter.evaluated = node["evaluated"].booleanOr(false);
    component.parameters.push_back(std::move(parameter));
}

void readUnits(const JsonNode& node, Component& component) {
    node.remarkUnknownKeys({"user_unit", "dbu_per_uu"}, component.warnings);
    const std::vector<std::string> units = {"micron", "millimeter", "centimeter", "meter",
                                            "mil",    "inch",       "nanometer"};
    component.userUnit = units[node["user_unit"].choice(units)];
    component.dbuPerUserUnit = node["dbu_per_uu"].uint32();
    if (component.dbuPerUserUnit == 0)
        node["dbu_per_uu"].fail("at least 1 database unit for each user unit");
}

void readSymbol(const JsonNode& node, Component& component) {
    node.remarkUnknownKeys({"kind", "ports"}, component.warnings);
    const std::size_t kind = node["kind"].choice({"none", "differential", "differential_forks"});
    component.symbol.kind = static_cast<SymbolKind>(kind);
    if (component.symbol.kind == SymbolKind::none)
        return;
    const JsonNode ports = node["ports"];
    component.symbol.ports = ports.uint32();
    if (component.symbol.ports < 1 || component.symbol.ports > mostSymbolPorts)
        ports.fail("an integer from 1 to " + std::to_string(mostSymbolPorts));
    const bool twoPins = component.symbol.kind == SymbolKind::differential;
    const std::size_t needed = std::size_t{component.symbol.ports} * (twoPins ? 2 : 1);
    if (needed != component.ports.size())
        component.warnings.push_back(ports.remark("the symbol gets " + std::to_string(needed) +
                                                  " pins, the layout has " +
                                                  std::to_string(component.ports.size())));
}

std::string besideFile(const std::string& file, const std::string& name) {
    const bool drive = name.size() > 1 && name[1] == ':';
    if (drive || platform::isPathSeparator(name.front()))
        return name;
    // What stands before the file's own name is kept as the caller spelt it.
    const std::size_t ownName = platform::fileName(file).size();
    return file.substr(0, file.size() - ownName) + name;
}

void readTouchstoneName(const JsonNode& node, Component& component) {
    node.remarkUnknownKeys({"file", "ports", "matches_layout"}, component.warnings);
    component.touchstoneFile = besideFile(component.file, scriptName(node["file"]));
    if (const JsonNode ports = node["ports"]; !ports.isAbsent())
        component.touchstonePorts = ports.uint32();
}

} // namespace

const Layer* Component::findLayer(const std::string& key) const {
    const auto found = std::find_if(layers.begin(), layers.end(),
                                    [&](const Layer& layer) { return layer.key() == key; });
    return found == layers.end() ? nullptr : &*found;
}

Component readComponent(const std::string& file) {
    const JsonDocument document = readJson(file);
    const JsonNode root(document);
    Component component;
    component.file = file;
    requireFormat(root, "component/1");
    root.remarkUnknownKeys({"format", "name", "description", "kind", "units", "layout", "layers",
                            "shared_net", "ports", "parameters", "options", "touchstone",
                            "macro_body", "symbol", "note"},
                           component.warnings);
    component.name = scriptName(root["name"]);
    component.kind = root["kind"].choice({"s_parameter", "script_macro"}) == 0 ? Kind::sParameter
                                                                               : Kind::scriptMacro;
    readUnits(root["units"], component);
    component.layoutFile = besideFile(file, root["layout"].name());
    for (std::size_t at = 0; at < root["layers"].size(); ++at)
        addLayer(root["layers"][at], component);
    component.sharedNet = root["shared_net"].booleanOr(false);
    for (std::size_t at = 0; at < root["ports"].size(); ++at)
        addPort(root["ports"][at], component);
    for (std::size_t at = 0; at < root["parameters"].size(); ++at)
        addParameter(root["parameters"][at], component);
    component.itemPrefix = "X";
    if (const JsonNode options = root["options"]; !options.isAbsent()) {
        options.remarkUnknownKeys({"item_prefix"}, component.warnings);
        if (const JsonNode prefix = options["item_prefix"]; !prefix.isAbsent())
            component.itemPrefix = scriptText(prefix);
    }
    if (component.kind == Kind::scriptMacro)
        component.macroBody = root["macro_body"].freeText();
    readSymbol(root["symbol"], component);
    if (const JsonNode touchstone = root["touchstone"]; !touchstone.isAbsent())
        readTouchstoneName(touchstone, component);
    return component;
}

} // namespace component
