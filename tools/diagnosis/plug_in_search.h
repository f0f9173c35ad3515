#pragma once

#include <string>
#include <vector>

#include "diagnosis/report.h"

namespace diagnosis {

/// The directories that a variable's value lists, without empty ones.
std::vector<std::string> directoriesIn(const std::string& list);

/// Looks for the plug-in of a type where OpenAccess looks for it when OA_PLUGIN_PATH lists
/// `directories`, and says what is wrong; nothing when description and module are there. Loads
/// nothing.
Faults faultsOfPlugIn(const std::string& type, const std::vector<std::string>& directories);

/// Whether one of the directories has a description of the plug-in.
bool isDescribed(const std::string& type, const std::vector<std::string>& directories);

} // namespace diagnosis
