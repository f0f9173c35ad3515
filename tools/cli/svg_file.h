#pragma once

#include <string>

#include "drawing/picture.h"

namespace cli {

/// Writes the picture into a file, see `ResultFile`.
/// @throws platform::SystemFailure  the file cannot be written
void writeSvgFile(const std::string& path, const drawing::Picture& picture);

} // namespace cli
