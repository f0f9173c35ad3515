#pragma once

#include <string>

namespace diagnosis {

/// Why the system cannot run a file as a program, by its first bytes: "is not a program", "is a
/// program for another processor"; empty when it can. What cannot be read is not judged.
std::string unsuitability(const std::string& path);

} // namespace diagnosis
