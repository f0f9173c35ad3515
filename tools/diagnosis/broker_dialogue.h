#pragma once

#include <chrono>
#include <string>

#include "broker/connection.h"
#include "broker/wire.h"

namespace diagnosis {

/// What came of a request with an answer of one byte.
struct Reply {
    enum class Kind { byte, ended, silent };

    Kind kind = Kind::ended;
    unsigned char byte = 0;
    std::string failure; ///< for ended: what the client says of it
};

/// Sends a request, with a text when it has one, and waits for its answer. A connection that was
/// silent for `patience` is broken from then on.
Reply ask(pcellBrokerClient::BrokerConnection& connection, pcellBrokerClient::Command command,
          const std::string* text, std::chrono::milliseconds patience);

} // namespace diagnosis
