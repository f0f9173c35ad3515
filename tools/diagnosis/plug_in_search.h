#pragma once

#include <string>
#include <vector>

#include "broker/connection.h"
#include "diagnosis/report.h"

namespace diagnosis {

/// Where one process looks for plug-ins.
struct PlugInPlaces {
    std::vector<std::string> directories; ///< of descriptions, in their order
    std::vector<std::string> libraries;   ///< where the system looks for modules
};

/// Those of this process.
PlugInPlaces ownPlugInPlaces();

/// Those of a broker, which is given variables of its own.
PlugInPlaces plugInPlacesOf(const pcellBrokerClient::BrokerConnection& connection);

/// Looks for the plug-in of a type where OpenAccess looks for it, and says what is wrong; nothing
/// when description and module are there. Loads nothing.
Faults faultsOfPlugIn(const std::string& type, const PlugInPlaces& places);

/// Whether one of the directories has a description of the plug-in.
bool isDescribed(const std::string& type, const PlugInPlaces& places);

} // namespace diagnosis
