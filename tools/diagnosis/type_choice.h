#pragma once

#include <chrono>

#include "broker/brokered_pcell.h"
#include "diagnosis/report.h"

namespace diagnosis {

/// Tries the ways to evaluate a type in the client's order until one works or an error ends the
/// choice, and notes each.
void chooseEvaluator(const pcellBrokerClient::BrokeredType& type,
                     pcellBrokerClient::Brokers& brokers, std::chrono::milliseconds patience,
                     TypeReport& report);

} // namespace diagnosis
