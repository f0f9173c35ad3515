#include "values.h"

#include <charconv>
#include <cmath>
#include <stdexcept>

namespace spiral {
namespace {

constexpr int mostTurns = 100;
constexpr double longest = 10000;

[[noreturn]] void refuse(const std::string& text) {
    throw std::invalid_argument(text);
}

std::string textOf(double value) {
    char text[32];
    const std::to_chars_result result = std::to_chars(text, text + sizeof text, value);
    return {text, result.ptr};
}

std::string micronsOf(std::int64_t steps) {
    return textOf(static_cast<double>(steps) / double(stepsPerMicron)) + " microns";
}

Shape shapeOf(const std::string& name) {
    if (name == "square")
        return Shape::square;
    if (name == "octagon")
        return Shape::octagon;
    refuse("shape is \"" + name + "\": it must be \"octagon\" or \"square\"");
}

/// A length as a number of steps of `grid` steps each.
std::int64_t stepsOf(const std::string& name, double microns, std::int64_t grid) {
    // Written so that what is no number fails too.
    if (!(microns > 0 && microns <= longest))
        refuse(name + " is " + textOf(microns) + " microns: it must be above 0 and at most " +
               textOf(longest));
    const double steps = microns * double(stepsPerMicron) / double(grid);
    const double whole = std::round(steps);
    // A decimal fraction has no exact form; what is off by this little was meant to be whole.
    if (std::abs(steps - whole) > 1e-6 || whole < 1)
        refuse(name + " is " + textOf(microns) + " microns: it must be a multiple of " +
               textOf(double(grid) / double(stepsPerMicron)));
    return static_cast<std::int64_t>(whole) * grid;
}

void checkLayers(const Values& values) {
    const struct {
        const char* name;
        std::int32_t number;
    } layers[] = {{"layer", values.layer},
                  {"viaLayer", values.viaLayer},
                  {"underpassLayer", values.underpassLayer}};
    for (const auto& layer : layers)
        if (layer.number < 0)
            refuse(std::string(layer.name) + " is " + std::to_string(layer.number) +
                   ": a layer number is 0 or more");
    for (int at = 0; at < 3; ++at) {
        const auto& [name, number] = layers[at];
        const auto& [other, otherNumber] = layers[(at + 1) % 3];
        if (number == otherNumber)
            refuse(std::string(name) + " and " + other + " are both " + std::to_string(number) +
                   ": they must differ");
    }
}

} // namespace

Dimensions dimensionsOf(const Values& values) {
    Dimensions dimensions;
    dimensions.shape = shapeOf(values.shape);
    if (values.turns < 1 || values.turns > mostTurns)
        refuse("turns is " + std::to_string(values.turns) + ": it must be 1 to " +
               std::to_string(mostTurns));
    dimensions.turns = values.turns;
    dimensions.width = stepsOf("width", values.width, 1);
    dimensions.spacing = stepsOf("spacing", values.spacing, 1);
    // Its half lies on the grid.
    dimensions.innerRadius = stepsOf("innerDiameter", values.innerDiameter, 2) / 2;
    const std::int64_t least =
        leastInnerRadius(dimensions.shape, dimensions.width, dimensions.spacing);
    if (dimensions.innerRadius < least)
        refuse("innerDiameter is " + textOf(values.innerDiameter) + " microns: the inner end of " +
               "such a trace needs " + micronsOf(2 * least));
    const std::int64_t size = 2 * outerReach(dimensions);
    if (size > static_cast<std::int64_t>(longest) * stepsPerMicron)
        refuse("the spiral would be " + micronsOf(size) + " wide: it may be at most " +
               textOf(longest));
    checkLayers(values);
    return dimensions;
}

} // namespace spiral
