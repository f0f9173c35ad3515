#include "drawing/legend.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <set>

#include "drawing/labels.h"
#include "drawing/svg_text.h"

namespace drawing {
namespace {

constexpr double rowHeight = 16;
constexpr double fontSize = 12;
constexpr double swatchWidth = 18;
constexpr double numberWidth = 90;
constexpr double countWidth = 60;

constexpr std::array colours = {"#c62828", "#1565c0", "#2e7d32", "#ef6c00", "#6a1b9a", "#00838f",
                                "#ad1457", "#827717", "#4e342e", "#283593", "#00695c", "#455a64"};

/// Beyond the fixed colours: hues at the golden angle, which never come close to their neighbours.
std::string colour(std::size_t index) {
    if (index < colours.size())
        return colours[index];
    const double hue = std::fmod(static_cast<double>(index) * 137.508, 360.0);
    const double light = index % 3 == 0 ? 0.30 : index % 3 == 1 ? 0.42 : 0.52;
    const double chroma = 0.7 * (1 - std::abs(2 * light - 1));
    const auto channel = [&](double shift) {
        const double place = std::fmod(hue / 60 + shift, 6.0);
        const double ramp = std::clamp(std::abs(place - 3) - 1, 0.0, 1.0);
        return static_cast<unsigned>(std::lround(255 * (light - chroma / 2 + chroma * ramp)));
    };
    char text[8];
    std::snprintf(text, sizeof text, "#%02x%02x%02x", channel(0) & 255u, channel(4) & 255u,
                  channel(2) & 255u);
    return text;
}

struct Row {
    std::string name;
    std::string number;
    std::string count;
    Style style;
};

std::vector<Row> rowsOf(const Picture& picture, const std::map<LayerPurpose, Style>& styles) {
    std::vector<Row> rows;
    for (const auto& [key, figures] : picture.layers)
        rows.push_back({figures.layerName + ":" + figures.purposeName, std::to_string(key.layer),
                        std::to_string(figures.count()), styles.at(key)});
    return rows;
}

void writeCell(std::ostream& out, double x, double y, const char* anchor, const std::string& text) {
    out << "<text x=\"" << decimal(x) << "\" y=\"" << decimal(y) << "\" text-anchor=\"" << anchor
        << "\">" << xmlText(text) << "</text>\n";
}

void writeSwatch(std::ostream& out, double x, double y, const Style& style) {
    out << "<rect x=\"" << decimal(x) << "\" y=\"" << decimal(y - 9) << "\" width=\""
        << decimal(swatchWidth) << "\" height=\"10\" fill=\"" << style.colour
        << "\" fill-opacity=\"" << decimal(style.fillOpacity) << "\" stroke=\"" << style.colour
        << "\"" << (style.dashed ? " stroke-dasharray=\"4 2\"" : "") << "/>\n";
}

/// True when the layer would hide what lies below or above it: it is dense all over the picture, or
/// has large areas of it in compact outlines, as ground planes and markers have.
bool coversPicture(const LayerFigures& figures, double total) {
    double whole = 0;
    double compact = 0;
    for (const Points& outline : figures.closed) {
        const double area = std::abs(doubleArea(outline)) / 2;
        const Extent box = extentOf(std::vector<Points>{outline});
        whole += area;
        if (area > 0.03 * total && area > 0.6 * box.width() * box.height())
            compact += area;
    }
    return whole > 0.4 * total || compact > 0.15 * total;
}

} // namespace

std::map<LayerPurpose, Style> stylesOf(const Picture& picture) {
    std::set<std::uint32_t> layers;
    for (const auto& [key, figures] : picture.layers)
        layers.insert(key.layer);
    const Extent extent = extentOf(picture);
    const double total = extent.width() * extent.height();
    std::map<LayerPurpose, Style> styles;
    for (const auto& [key, figures] : picture.layers) {
        const auto index = std::distance(layers.begin(), layers.find(key.layer));
        Style style{colour(static_cast<std::size_t>(index)), 0, false, false};
        style.covers = total > 0 && coversPicture(figures, total);
        if (figures.purposeName == "drawing")
            style.fillOpacity = style.covers ? 0.12 : 0.4;
        else if (figures.purposeName == "pin")
            style.fillOpacity = 0.6;
        else
            style.dashed = true;
        styles[key] = style;
    }
    return styles;
}

Extent writeLegend(std::ostream& out, const Picture& picture,
                   const std::map<LayerPurpose, Style>& styles, const LegendPlace& place) {
    const std::vector<Row> rows = rowsOf(picture, styles);
    double nameWidth = textWidth("layer:purpose", fontSize);
    for (const Row& row : rows)
        nameWidth = std::max(nameWidth, textWidth(row.name, fontSize));
    const double width = swatchWidth + 8 + nameWidth + numberWidth + countWidth;
    const auto fitting = static_cast<std::size_t>(std::max(place.height / rowHeight - 1, 12.0));

    Extent extent;
    extent.add(place.x, place.y);
    out << "<g font-size=\"" << decimal(fontSize) << "\" fill=\"#222\">\n";
    for (std::size_t at = 0; at < rows.size(); ++at) {
        const double x = place.x + static_cast<double>(at / fitting) * (width + 24);
        const double y = place.y + static_cast<double>(at % fitting + 2) * rowHeight;
        const double name = x + swatchWidth + 8;
        const double number = name + nameWidth + numberWidth;
        if (at % fitting == 0) {
            out << "<g font-weight=\"bold\">\n";
            writeCell(out, name, y - rowHeight, "start", "layer:purpose");
            writeCell(out, number, y - rowHeight, "end", "number");
            writeCell(out, number + countWidth, y - rowHeight, "end", "shapes");
            out << "</g>\n";
        }
        writeSwatch(out, x, y, rows[at].style);
        writeCell(out, name, y, "start", rows[at].name);
        writeCell(out, number, y, "end", rows[at].number);
        writeCell(out, number + countWidth, y, "end", rows[at].count);
        extent.add(x + width, y + rowHeight / 2);
    }
    out << "</g>\n";
    return extent;
}

} // namespace drawing
