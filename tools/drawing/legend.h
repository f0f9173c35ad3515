#pragma once

#include <map>
#include <ostream>
#include <string>

#include "drawing/geometry.h"
#include "drawing/picture.h"

namespace drawing {

/// How the figures of one layer-purpose pair look. Layers differ in colour; of one layer the
/// purpose "drawing" is filled, pins are filled more, every other purpose is a dashed outline.
/// A layer that covers most of the picture is filled faintly, so that it does not hide the others.
struct Style {
    std::string colour;
    double fillOpacity = 0;
    bool dashed = false;
    bool covers = false;
};

std::map<LayerPurpose, Style> stylesOf(const Picture& picture);

/// What the table of layers needs beside the picture, in pixels.
struct LegendPlace {
    double x = 0;
    double y = 0;
    double height = 0;
};

/// Writes the table of layers in as many columns as the height asks for.
/// @returns the room it takes.
Extent writeLegend(std::ostream& out, const Picture& picture,
                   const std::map<LayerPurpose, Style>& styles, const LegendPlace& place);

} // namespace drawing
