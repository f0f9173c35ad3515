#pragma once

#include <string>

/// Makes a library with every kind of definition of vias, and a design "vias" in which they are
/// used with all that vias can have. Its name is "exchange".
void makeViaLibrary(const std::string& path);

/// Everything that such a library holds about vias, as text: what two libraries differ in shows as
/// a line. The library is opened under the name "exchange", for reading.
std::string describeViaLibrary(const std::string& path);
