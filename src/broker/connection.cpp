#include "broker/connection.h"

#include <stdexcept>

namespace pcellBrokerClient {

const char* libsName(bool useExternalOaLibs) {
    return useExternalOaLibs ? "external" : "internal";
}

std::string BrokerConnection::displayName() const {
    return "pcellBroker" + std::to_string(key.apiVersion) + " using " +
           libsName(key.useExternalOaLibs) + " OA libs";
}

BrokerConnections makeConnections() {
    BrokerConnections connections;
    for (const std::uint32_t apiVersion : {5U, 6U}) {
        for (const bool external : {false, true}) {
            const BrokerKey key{apiVersion, external};
            connections[key].key = key;
        }
    }
    return connections;
}

void requireSetUp(BrokerConnections& connections) {
    for (auto& [key, connection] : connections) {
        connection.setUpNeeded = true;
    }
}

void failForBroken(const BrokerConnection& connection) {
    throw std::runtime_error("broken connection to " + connection.displayName());
}

} // namespace pcellBrokerClient
