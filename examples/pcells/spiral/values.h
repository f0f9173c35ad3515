#pragma once

#include <cstdint>
#include <string>

#include "geometry.h"

namespace spiral {

/// The values of the pcell's parameters, as they are given. Lengths are microns.
struct Values {
    std::string shape;
    std::int32_t turns = 0;
    double width = 0;
    double spacing = 0;
    double innerDiameter = 0;
    std::int32_t layer = 0;
    std::int32_t viaLayer = 0;
    std::int32_t underpassLayer = 0;
};

/// Steps of the grid in a micron: a step is 5 nm.
constexpr std::int64_t stepsPerMicron = 200;

/// The dimensions of the spiral that the values ask for.
/// @throws std::invalid_argument  there is no such spiral; the text says which value is wrong, and
///                                what it may be.
Dimensions dimensionsOf(const Values& values);

} // namespace spiral
