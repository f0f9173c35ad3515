#pragma once

#include <compare>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace drawing {

/// A place in database units; wide enough for instances that reach out of the coordinate range.
struct Point {
    std::int64_t x = 0;
    std::int64_t y = 0;

    friend bool operator==(const Point&, const Point&) = default;
};

using Points = std::vector<Point>;

struct LayerPurpose {
    std::uint32_t layer = 0;
    std::uint32_t purpose = 0;

    friend auto operator<=>(const LayerPurpose&, const LayerPurpose&) = default;
};

/// The figures of one layer-purpose pair.
struct LayerFigures {
    std::string layerName;
    std::string purposeName;
    std::vector<Points> closed;
    std::vector<Points> open;
    Points dots;
    std::size_t texts = 0;

    std::size_t count() const { return closed.size() + open.size() + dots.size() + texts; }
};

enum class Horizontal { left, center, right };
enum class Vertical { upper, center, lower };

/// A text as the design places it. The matrix turns and mirrors it, in a system with y upwards.
struct Text {
    std::string text;
    LayerPurpose layer;
    Point origin;
    double height = 0;
    Horizontal horizontal = Horizontal::left;
    Vertical vertical = Vertical::lower;
    double matrix[4] = {1, 0, 0, 1};
};

/// One pin: its figures and the direction, in degrees, in which it leaves the component.
struct Pin {
    std::string name;
    double angle = 0;
    std::vector<Points> figures;
};

struct Picture {
    std::string title;
    std::map<LayerPurpose, LayerFigures> layers;
    std::vector<Text> texts;
    std::vector<Pin> pins;
    double dbuPerUserUnit = 1;
    std::string userUnit;
    /// Remarks for the reader of the picture, for example an instance without a master.
    std::vector<std::string> notes;
};

} // namespace drawing
