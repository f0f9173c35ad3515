#pragma once

#include <oa/oaDesignDB.h>

#include "broker/connection.h"
#include "broker/process_system.h"

namespace pcellBrokerClient {

/// The requests to a broker. Each is sent as one block and its answer read whole; when either fails
/// half-way the connection is broken from then on, so that no request meets an answer that was
/// meant for another.

/// Makes sure that the broker is there.
/// @throws std::runtime_error  "broken connection to ...".
void checkConnection(BrokerConnection& connection);

/// Asks whether the broker takes pcells of the type.
bool canEvaluate(BrokerConnection& connection, const oa::oaString& typeName);

/// Lets the broker evaluate a submaster, and returns the path of the file with the result. What an
/// observer of the database changed is told to the broker first.
/// @throws std::runtime_error  the broker's own message, or the connection broke.
std::string requestEvaluation(BrokerConnection& connection, oa::oaDesign& design,
                              ProcessSystem& system);

/// Lets the broker evaluate a submaster, puts the result into it and removes the file.
/// @throws std::runtime_error  as above.
/// @throws oa::oaException     the file cannot be used; it stays.
void evaluateThroughBroker(BrokerConnection& connection, oa::oaDesign& design,
                           ProcessSystem& system);

} // namespace pcellBrokerClient
