#pragma once

#include <optional>

#include "broker/brokered_pcell.h"
#include "diagnosis/configuration_file.h"
#include "diagnosis/report.h"

namespace diagnosis {

/// Reads the configuration as the client does and notes in the report where everything comes from
/// and what is wrong with it.
/// @returns the file's lines; nothing when there is no file. `brokers` is filled in when the
///          report has no refusal.
std::optional<ConfigurationFile> readConfiguration(pcellBrokerClient::Brokers& brokers,
                                                   Report& report);

/// Faults of the variables that change what probe and brokers see.
void checkUserVariables(Faults& faults);

} // namespace diagnosis
