#pragma once

#include <string>

#include <ovalis/library.h>

#include "cli/commands.h"
#include "evaluation/open_design.h"

namespace cli {

using evaluation::calling;
using evaluation::OpenDesign;

/// The directory without separators at its end.
std::string directoryOf(const LibraryOptions& library);

/// The given name, else the last part of the directory's absolute path.
std::string nameOf(const LibraryOptions& library);

/// Opens a library for reading.
/// @throws std::runtime_error  there is none, or its access was refused.
ovalis::LibPtr openForReading(const LibraryOptions& library);

/// Throws the library's own text when the path has blanks or tabs.
void requireUsablePath(const std::string& path);

} // namespace cli
