#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <variant>
#include <vector>

namespace component {

/// A place in database units.
struct Point {
    std::int32_t x = 0;
    std::int32_t y = 0;

    friend bool operator==(const Point&, const Point&) = default;
};

using Outline = std::vector<Point>;

/// How the component's artwork comes about.
enum class Kind { sParameter, scriptMacro };

/// One layer-purpose pair. Its key "name:purpose" is what ports and geometry refer to.
struct Layer {
    std::string name;
    std::uint32_t number = 0;
    std::string purpose;
    std::uint32_t purposeNumber = 0;
    bool draw = true;

    std::string key() const { return name + ":" + purpose; }
};

/// One external connection. An outline of one point is a dot, of two a line, of more a polygon.
struct Port {
    std::string name;
    std::uint32_t layerNumber = 0;
    std::uint32_t purposeNumber = 0;
    Outline outline;
    double angle = 0;
    std::map<std::string, std::string> properties;
};

/// The value of a parameter of kind "layer".
struct LayerValue {
    std::int32_t number = 0;
    std::string text;
};

/// The value of a parameter of kind "real".
struct RealValue {
    double number = 0;
    std::string withUnit;
    std::int32_t unitType = -1;
};

using ParameterValue = std::variant<bool, std::int32_t, RealValue, std::string, LayerValue>;

struct Parameter {
    std::string name;
    std::string description;
    ParameterValue value;
    bool displayOnSchematic = true;
    bool notEdited = false;
    bool notNetlisted = false;
    bool evaluated = false;
};

enum class SymbolKind { none, differential, differentialForks };

struct Symbol {
    SymbolKind kind = SymbolKind::none;
    std::uint32_t ports = 0;
};

/// The one name of a layer or purpose number in a technology, and the other way round.
struct NamedNumber {
    std::string name;
    std::uint32_t number = 0;
};

/// Everything that component.json says; `layoutFile` is resolved against its directory.
struct Component {
    std::string file;
    std::string name;
    Kind kind = Kind::sParameter;
    std::string userUnit;
    std::uint32_t dbuPerUserUnit = 0;
    std::string layoutFile;
    std::vector<Layer> layers;
    /// What a technology has to know. A name that the layers give two numbers, or a number with two
    /// names, stands here as it came first.
    std::vector<NamedNumber> layerNames;
    std::vector<NamedNumber> purposeNames;
    bool sharedNet = false;
    std::vector<Port> ports;
    std::vector<Parameter> parameters;
    std::string itemPrefix;
    std::string macroBody;
    Symbol symbol;
    /// The Touchstone file, resolved as `layoutFile`; empty without one.
    std::string touchstoneFile;
    /// How many ports the description gives it; 0 when it does not say.
    std::uint32_t touchstonePorts = 0;
    /// Things that are allowed but look like mistakes, one line each.
    std::vector<std::string> warnings;

    /// Finds the layer-purpose pair "name:purpose"; null when the component does not declare it.
    const Layer* findLayer(const std::string& key) const;
};

/// The figures of one declared layer-purpose pair.
struct LayerFigures {
    const Layer* layer = nullptr;
    std::vector<Outline> polygons;
    std::vector<Outline> lines;
};

/// A text of the layout. Its layer need not be among those that the component declares.
struct Label {
    std::string text;
    Point origin;
    std::uint32_t layerNumber = 0;
    std::uint32_t purposeNumber = 0;
};

/// Everything that layout.json says. Points into the `Component` it was read for.
struct Layout {
    std::vector<LayerFigures> figures;
    std::vector<Label> labels;
    /// Names for the layer-purpose pairs that only labels use.
    std::vector<Layer> labelLayers;
    /// Things that are allowed but look like mistakes, one line each.
    std::vector<std::string> warnings;
};

} // namespace component
