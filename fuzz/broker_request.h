#pragma once

#include <cstddef>
#include <span>

namespace fuzz {

/// Reads an input as what a host sends to a broker, at once and in pieces. Answers whether it is a
/// sequence of whole requests.
bool tryBrokerRequests(std::span<const std::byte> input);

} // namespace fuzz
