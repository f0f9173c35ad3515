#pragma once

#include <string>
#include <vector>

namespace OpenAccess_4::impl {

/// Where a plug-in is to be found: what its description, a file NAME.plg, says.
struct PlugInDescription {
    std::string classId; // the name of the class in the module
    std::string file;    // of the description
    std::string module;  // its name without directory and ending
};

/// The directory above the one that holds this library.
/// @throws std::runtime_error
std::string installationDirectory();

/// The directories that hold descriptions, those that are searched first in front.
std::vector<std::string> plugInDirectories();

/// The description of the plug-in `name`, or of the one that it is to be treated as.
/// @throws std::runtime_error  there is none, or it cannot be used; the text says why
PlugInDescription findPlugIn(const std::string& name);

} // namespace OpenAccess_4::impl
