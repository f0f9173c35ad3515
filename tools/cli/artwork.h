#pragma once

#include <string>
#include <vector>

#include <ovalis/library.h>

#include "component/component.h"

namespace cli {

/// What was drawn, for the closing words and the remarks.
struct ArtworkReport {
    std::size_t rectangles = 0;
    std::size_t polygons = 0;
    std::size_t lines = 0;
    std::size_t texts = 0;
    std::size_t layers = 0;
    /// Figures that enclose nothing, or lines without length, which no database takes.
    std::size_t dropped = 0;
};

/// Draws everything of the layout that is to be drawn into the top block of `design`, which it
/// makes. Axis-parallel rectangles become rectangles, everything else polygons.
ArtworkReport drawLayout(oa::oaDesign& design, const component::Layout& layout);

/// Adds the component's ports to `design`.
void addComponentPorts(oa::oaDesign& design, const component::Component& component);

/// Makes `design` the pcell master of the component and saves it.
void makeMaster(oa::oaDesign& design, const component::Component& component);

/// Draws the component's symbol into `design` and saves it; there must be one to draw.
void drawSymbol(oa::oaDesign& design, const component::Component& component);

} // namespace cli
