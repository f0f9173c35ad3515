#pragma once

#include "component/component.h"

namespace component {

/// A port of a Touchstone file and what it is in the component: the place of one port, or of two
/// for a differential one, plus in front of minus.
struct FilePort {
    std::string name;
    double impedance = 0;
    std::vector<std::size_t> pins;
};

/// Reads the component's Touchstone file and finds out which of its ports is which of the
/// component's; the ports get `touchstone_port`, `touchstone_name` and `reference_impedance` as
/// properties where they have none of these, and what looks like a mistake becomes a warning.
/// @returns the ports of the file in their order.
/// @throws InputError  the file cannot be used, or has another number of ports.
std::vector<FilePort> connectTouchstone(Component& component);

/// A number with the digits that it needs.
std::string shortText(double number);

} // namespace component
