#pragma once

#include <string>

namespace ovalis {

/// Returns the shortest text that reproduces `value` to about six places of its last digit, with
/// 17 significant digits at most; the same text on every system.
std::string realText(double value);

} // namespace ovalis
