#pragma once

#include <string>

#include "drawing/picture.h"

namespace drawing {

/// A rectangle in any unit; empty until something was added.
struct Extent {
    double left = 0;
    double bottom = 0;
    double right = 0;
    double top = 0;
    bool isEmpty = true;

    void add(double x, double y);
    void add(const Extent& other);
    double width() const { return right - left; }
    double height() const { return top - bottom; }
    bool overlaps(const Extent& other) const;
};

/// Twice the signed area of a closed outline; positive when it runs counter-clockwise.
double doubleArea(const Points& outline);

/// The middle of the bounding box of all figures.
Extent extentOf(const std::vector<Points>& figures);

/// Everything that a picture shows, figures and text origins, in database units.
Extent extentOf(const Picture& picture);

/// Writes a number with at most `decimals` places, without trailing zeros, the same everywhere.
std::string decimal(double value, int decimals = 2);

/// The largest of 1, 2 or 5 times a power of ten that is not above `limit`.
double roundLength(double limit);

} // namespace drawing
