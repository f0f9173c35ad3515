#pragma once

#include <string>

/// Everything that a library holds, as text: what two libraries differ in shows as a line.
/// The library is opened under the name "exchange", for reading.
std::string describeLibrary(const std::string& path);
