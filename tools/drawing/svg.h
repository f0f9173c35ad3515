#pragma once

#include <ostream>

#include "drawing/picture.h"

namespace drawing {

/// Writes the picture as an SVG document of its own: figures, texts, pins with their directions, a
/// scale bar and a table of layers. The longest side of the figures takes about 900 pixels.
void writeSvg(std::ostream& out, const Picture& picture);

} // namespace drawing
