#pragma once

#include "broker/config.h"
#include "broker/env_override.h"
#include "broker/process_system.h"

namespace pcellBrokerClient {

/// Gives this process the variables that the program of a connection is to see.
void setBrokerVariables(EnvOverrides& environment, const BrokerConnection& connection);

/// Starts the program of a connection with a pipe in each direction.
///
/// Changes the environment of the whole process for the time of the start, so that it must not run
/// beside another start or probe.
/// @throws std::runtime_error  "while starting ...": the connection is as before, and so are the
///                             environment and the handles of this process.
void startBroker(BrokerConnection& connection, ProcessSystem& system);

/// Runs the probe, once for each configuration, and notes which version it prefers.
/// @throws std::runtime_error  "while probing ...": there is no preference then.
void probeOaApiVersion(BrokerConfig& config, ProcessSystem& system);

} // namespace pcellBrokerClient
