#include "drawing/geometry.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace drawing {

void Extent::add(double x, double y) {
    left = isEmpty ? x : std::min(left, x);
    right = isEmpty ? x : std::max(right, x);
    bottom = isEmpty ? y : std::min(bottom, y);
    top = isEmpty ? y : std::max(top, y);
    isEmpty = false;
}

void Extent::add(const Extent& other) {
    if (other.isEmpty)
        return;
    add(other.left, other.bottom);
    add(other.right, other.top);
}

bool Extent::overlaps(const Extent& other) const {
    return left < other.right && other.left < right && bottom < other.top && other.bottom < top;
}

double doubleArea(const Points& outline) {
    double sum = 0;
    for (std::size_t at = 0; at < outline.size(); ++at) {
        const Point& here = outline[at];
        const Point& next = outline[(at + 1) % outline.size()];
        // Measured from the first point, so that far-away outlines keep their precision.
        const Point& zero = outline.front();
        sum += static_cast<double>(here.x - zero.x) * static_cast<double>(next.y - zero.y) -
               static_cast<double>(next.x - zero.x) * static_cast<double>(here.y - zero.y);
    }
    return sum;
}

Extent extentOf(const std::vector<Points>& figures) {
    Extent extent;
    for (const Points& figure : figures)
        for (const Point& point : figure)
            extent.add(static_cast<double>(point.x), static_cast<double>(point.y));
    return extent;
}

Extent extentOf(const Picture& picture) {
    Extent extent;
    for (const auto& [layer, figures] : picture.layers) {
        extent.add(extentOf(figures.closed));
        extent.add(extentOf(figures.open));
        extent.add(extentOf({figures.dots}));
    }
    for (const Pin& pin : picture.pins)
        extent.add(extentOf(pin.figures));
    for (const Text& text : picture.texts)
        extent.add(static_cast<double>(text.origin.x), static_cast<double>(text.origin.y));
    return extent;
}

std::string decimal(double value, int decimals) {
    char buffer[400];
    const auto end = std::to_chars(std::begin(buffer), std::end(buffer), value,
                                   std::chars_format::fixed, decimals)
                         .ptr;
    std::string text(buffer, end);
    if (text.find('.') != std::string::npos) {
        text.erase(text.find_last_not_of('0') + 1);
        if (text.back() == '.')
            text.pop_back();
    }
    return text == "-0" ? "0" : text;
}

double roundLength(double limit) {
    const double power = std::pow(10.0, std::floor(std::log10(limit)));
    for (const double factor : {5.0, 2.0})
        if (factor * power <= limit)
            return factor * power;
    return power;
}

} // namespace drawing
