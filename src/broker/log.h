#pragma once

#include <string>

namespace pcellBrokerClient {

/// Writes one line about a failure of this room to the standard error stream and to the system's
/// log of events. Never throws.
void logMessage(const std::string& text) noexcept;

/// Writes what `makeText` makes; nothing when there is not even memory for that.
template <class MakeText>
void logMade(MakeText makeText) noexcept {
    try {
        logMessage(makeText());
    } catch (...) {
    }
}

} // namespace pcellBrokerClient
