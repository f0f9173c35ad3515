#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace component {

/// What a Touchstone file tells of its ports.
struct Touchstone {
    int version = 1;
    std::uint32_t ports = 0;
    /// In ohm, one for each port.
    std::vector<double> impedances;
    /// One for each port; empty where the file gives none.
    std::vector<std::string> portNames;
};

/// Reads a Touchstone file of version 1 or 2, all of its numbers included: how many ports it has
/// must be the same by its name (".s3p"), by `[Number of Ports]` and by its data, as far as each of
/// them tells.
/// @throws InputError  the file cannot be read, or is no such file; the text names the line.
Touchstone readTouchstone(const std::string& file);

} // namespace component
