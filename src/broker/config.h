#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "broker/connection.h"

namespace pcellBrokerClient {

/// What environment and configuration file say, but for what belongs to one connection alone.
struct BrokerConfig {
    std::string directory; ///< the value of PCELLBROKER_HOME
    std::string probeExe;
    std::uint32_t forcedOaApiVersion = 0; ///< 5 or 6; 0 when none is forced
    /// Negative until the probe has run; 0 when it gave no preference.
    std::int32_t probedOaApiVersion = -1;
    /// The items of the configuration string that are not empty, not yet taken apart.
    std::vector<std::string> items;
};

/// One pcell type that is to be evaluated by a broker.
struct BrokeredType {
    std::string typeName;
    bool allowNative = true;
    bool useExternalOaLibs = false;

    friend bool operator==(const BrokeredType&, const BrokeredType&) = default;
};

/// There is no configuration string, or an empty one: no type is to be brokered.
class EmptyConfiguration : public std::runtime_error {
public:
    EmptyConfiguration();
};

/// Reads the environment and the file that it names; fills in how each broker is started.
/// @throws EmptyConfiguration, std::runtime_error  the configuration is not usable.
BrokerConfig readBrokerConfig(BrokerConnections& connections);

/// The items of a configuration string that are not empty.
std::vector<std::string> splitItems(const std::string& configString);

/// The name in an item of the configuration string.
std::string itemTypeName(const std::string& item);

/// Takes an item of the configuration string apart.
/// @throws std::runtime_error  an option is not known.
BrokeredType parseItem(const std::string& item);

/// What a configuration file sets.
struct BrokerFile {
    std::string probeExe;
    std::string configString;
    std::string forcedOaApiVersion;
};

/// Takes the content of the configuration file `path` apart; every value that is a path lies below
/// `directory`.
/// @throws std::runtime_error  a line is wrong or a required key missing.
BrokerFile parseBrokerFile(const std::string& directory, const std::string& path,
                           std::string_view content, BrokerConnections& connections);

} // namespace pcellBrokerClient
