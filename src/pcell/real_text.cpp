#include "pcell/real_text.h"

#include <array>
#include <charconv>
#include <cmath>

namespace ovalis {

namespace {

constexpr int mostDigits = 17;

// Correctly rounded, which std::pow is not on every system; 0 when the power is too small.
double powerOfTen(int exponent) {
    const std::string text = "1e" + std::to_string(exponent);
    double power = 0.0;
    std::from_chars(text.data(), text.data() + text.size(), power);
    return power;
}

double roundedTo(double unit, double value) {
    return std::copysign(std::floor(std::abs(value) / unit + 0.5) * unit, value);
}

// Taken in long double: the systems' log10 of a double differ just below a power of ten.
int decimalExponent(double value) {
    const long double logarithm = std::log10(static_cast<long double>(std::abs(value)));
    return static_cast<int>(std::floor(static_cast<double>(logarithm)));
}

std::string written(double value, std::chars_format notation, int precision) {
    std::array<char, 64> text;
    const auto end =
        std::to_chars(text.data(), text.data() + text.size(), value, notation, precision).ptr;
    return std::string(text.data(), end);
}

} // namespace

std::string realText(double value) {
    if (value == 0.0) {
        return "0"; // of either sign
    }
    if (!std::isfinite(value)) {
        return written(value, std::chars_format::general, 6);
    }
    const int exponent = decimalExponent(value);
    double unit = powerOfTen(exponent);
    double rounded = roundedTo(unit, value);
    int digits = 1;
    // Negated, so that a unit that underflows to 0 runs up to all digits.
    while (!(std::abs(value - rounded) < unit * 1e-6) && digits < mostDigits) {
        ++digits;
        unit = powerOfTen(exponent - digits + 1);
        rounded = unit == 0.0 ? value : roundedTo(unit, value);
    }
    if (exponent >= 6) {
        return written(value, std::chars_format::scientific, digits - 1);
    }
    if (exponent > 0) {
        return written(value, std::chars_format::fixed, unit >= 1.0 ? 0 : digits - exponent - 1);
    }
    return written(value, std::chars_format::general, digits);
}

} // namespace ovalis
