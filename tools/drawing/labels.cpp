#include "drawing/labels.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace drawing {
namespace {

constexpr double arrowLength = 22;
constexpr double gap = 4;
constexpr double characterWidth = 0.62;
constexpr double capitalHeight = 0.73;
constexpr int mostSteps = 24;

struct Direction {
    double x;
    double y;
};

Direction towards(double degrees) {
    const double angle = degrees * std::numbers::pi / 180;
    return {std::cos(angle), -std::sin(angle)};
}

PinLabel arrowOf(const Pin& pin, const Scale& scale) {
    const Extent extent = extentOf(pin.figures);
    const Direction out = towards(pin.angle);
    const double half = (std::abs(out.x) * extent.width() + std::abs(out.y) * extent.height()) / 2;
    PinLabel label;
    label.pin = &pin;
    label.startX = scale.x((extent.left + extent.right) / 2) + out.x * half * scale.pixels;
    label.startY = scale.y((extent.bottom + extent.top) / 2) + out.y * half * scale.pixels;
    label.tipX = label.startX + out.x * arrowLength;
    label.tipY = label.startY + out.y * arrowLength;
    return label;
}

void putText(PinLabel& label, double outward, double sideways) {
    const Direction out = towards(label.pin->angle);
    const double width = textWidth(label.pin->name, pinFontSize);
    const double x = label.tipX + out.x * (gap + outward) - out.y * sideways;
    const double y = label.tipY + out.y * (gap + outward) + out.x * sideways;
    const bool level = std::abs(out.x) > 0.5;
    label.anchor = !level ? Anchor::middle : out.x > 0 ? Anchor::start : Anchor::end;
    label.textX = x;
    const double middle = level ? y : y + (out.y < 0 ? -1 : 1) * pinFontSize / 2;
    label.textY = middle + capitalHeight * pinFontSize / 2;

    const double left = !level ? x - width / 2 : out.x > 0 ? x : x - width;
    label.box = {};
    label.box.add(left, middle - pinFontSize / 2);
    label.box.add(left + width, middle + pinFontSize / 2);
}

Extent arrowBox(const PinLabel& label) {
    Extent box;
    box.add(label.startX - 3, label.startY - 3);
    box.add(label.startX + 3, label.startY + 3);
    box.add(label.tipX - 3, label.tipY - 3);
    box.add(label.tipX + 3, label.tipY + 3);
    return box;
}

/// True when the name at `index` covers neither an arrow nor a name that has its place already.
bool isFree(const std::vector<PinLabel>& labels, std::size_t index) {
    const Extent& box = labels[index].box;
    for (std::size_t at = 0; at < labels.size(); ++at) {
        if (at != index && box.overlaps(arrowBox(labels[at])))
            return false;
        if (at < index && box.overlaps(labels[at].box))
            return false;
    }
    return true;
}

/// Tries places further and further away: to both sides of the arrow as well as outwards.
void placeText(std::vector<PinLabel>& labels, std::size_t index) {
    constexpr double step = pinFontSize + 3;
    PinLabel& label = labels[index];
    for (int distance = 0; distance <= mostSteps; ++distance)
        for (int side = 0; side <= distance; ++side)
            for (const int sign : {1, -1}) {
                putText(label, (distance - side + (side > 0 ? 1 : 0)) * step, sign * side * step);
                label.moved = distance > 0;
                if (isFree(labels, index))
                    return;
            }
    putText(label, 0, 0);
    label.moved = false;
}

} // namespace

double textWidth(const std::string& text, double fontSize) {
    const auto characters = std::count_if(text.begin(), text.end(),
                                          [](unsigned char byte) { return (byte & 0xC0) != 0x80; });
    return static_cast<double>(characters) * characterWidth * fontSize;
}

std::vector<PinLabel> placePinLabels(const std::vector<Pin>& pins, const Scale& scale) {
    std::vector<PinLabel> labels;
    for (const Pin& pin : pins)
        labels.push_back(arrowOf(pin, scale));
    for (std::size_t at = 0; at < labels.size(); ++at)
        placeText(labels, at);
    return labels;
}

double baseLineShift(const Text& text, const Scale& scale) {
    const double capitals = capitalHeight * text.height * scale.pixels;
    switch (text.vertical) {
    case Vertical::upper:
        return capitals;
    case Vertical::center:
        return capitals / 2;
    default:
        return 0;
    }
}

Extent extentOf(const Text& text, const Scale& scale) {
    const double size = text.height * scale.pixels;
    const double width = textWidth(text.text, size);
    const double shift = text.horizontal == Horizontal::left     ? 0
                         : text.horizontal == Horizontal::center ? -width / 2
                                                                 : -width;
    const double bottom = -baseLineShift(text, scale);
    Extent extent;
    for (const double u : {shift, shift + width})
        for (const double v : {bottom, bottom + size})
            extent.add(scale.x(static_cast<double>(text.origin.x)) + text.matrix[0] * u +
                           text.matrix[2] * v,
                       scale.y(static_cast<double>(text.origin.y)) - text.matrix[1] * u -
                           text.matrix[3] * v);
    return extent;
}

} // namespace drawing
