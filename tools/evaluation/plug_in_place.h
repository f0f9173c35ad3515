#pragma once

#include <string>
#include <vector>

namespace evaluation {

/// The directories that a variable's value lists, without empty ones.
std::vector<std::string> directoriesIn(const std::string& list);

/// The directory that an installation of the database searches for plug-ins after the listed ones:
/// `data/plugins` in the directory above the one that holds its libraries.
std::string installedPlugIns(const std::string& libraryDirectory);

/// Where the database in this process looks for descriptions of plug-ins, the first place in front.
std::vector<std::string> plugInDirectories();

/// The description of the plug-in of that name in the first directory that has one; empty when none
/// has.
std::string plugInFile(const std::string& name, const std::vector<std::string>& directories);

} // namespace evaluation
