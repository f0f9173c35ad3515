#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <vector>

namespace broker {

/// The bounds of one evaluation.
struct Settings {
    std::chrono::milliseconds deadline = std::chrono::seconds(300);
    std::uint64_t memory = std::uint64_t{4096} << 20; ///< bytes; 0 for no bound
};

/// The settings of the environment. A variable that says nothing usable leaves its default and a
/// line in `complaints`.
Settings readSettings(std::vector<std::string>& complaints);

} // namespace broker
