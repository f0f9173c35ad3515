#pragma once

#include <cstddef>
#include <span>

namespace fuzz {

/// Reads an input as a configuration of brokers. True when the file and all its items are sound.
bool tryBrokerConfig(std::span<const std::byte> input);

/// Takes an input as all that a broker ever answers, for as many evaluations as there are answers,
/// and holds what comes of each against the bytes. True when no answer is cut or wrong.
bool tryBrokerAnswers(std::span<const std::byte> input);

} // namespace fuzz
