#pragma once

#include <string>
#include <vector>

#include "drawing/geometry.h"
#include "drawing/picture.h"

namespace drawing {

/// Maps database units to pixels: x to the right, y downwards, the upper left corner at (0, 0).
struct Scale {
    double left = 0;
    double top = 0;
    double pixels = 1;

    double x(double dbu) const { return (dbu - left) * pixels; }
    double y(double dbu) const { return (top - dbu) * pixels; }
};

enum class Anchor { start, middle, end };

/// Where the mark and the name of one pin go, in pixels.
struct PinLabel {
    const Pin* pin = nullptr;
    double startX = 0;
    double startY = 0;
    double tipX = 0;
    double tipY = 0;
    double textX = 0;
    double textY = 0;
    Anchor anchor = Anchor::start;
    Extent box;
    /// The name had to move away from the arrow, so that a line has to lead to it.
    bool moved = false;
};

constexpr double pinFontSize = 13;

/// An estimate that is good enough to keep texts apart; counts characters, not bytes.
double textWidth(const std::string& text, double fontSize);

/// Puts each name beyond the arrow of its pin, and moves it on where it would cover another one.
std::vector<PinLabel> placePinLabels(const std::vector<Pin>& pins, const Scale& scale);

/// The room a design's text takes, in pixels.
Extent extentOf(const Text& text, const Scale& scale);

/// How far below the text's origin, in pixels, its base line lies before it is turned.
double baseLineShift(const Text& text, const Scale& scale);

} // namespace drawing
