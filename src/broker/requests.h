#pragma once

#include <optional>
#include <string>

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

/// What a broker answers to an evaluation.
struct EvaluationAnswer {
    bool isEvaluated;
    std::string text; ///< the path of the file with the result, or the broker's message
};

/// Lets the broker evaluate a submaster. What an observer of the database changed is told to the
/// broker first.
/// @throws std::runtime_error  the connection broke.
EvaluationAnswer requestEvaluation(BrokerConnection& connection, oa::oaDesign& design,
                                   ProcessSystem& system);

/// Lets the broker evaluate a submaster, puts the result into it and removes the file.
/// @returns the broker's message when it did not evaluate. It is no exception, which would cost as
///          much as the exchange itself.
/// @throws std::runtime_error  as above.
/// @throws oa::oaException     the file cannot be used; it stays.
[[nodiscard]] std::optional<std::string>
evaluateThroughBroker(BrokerConnection& connection, oa::oaDesign& design, ProcessSystem& system);

} // namespace pcellBrokerClient
