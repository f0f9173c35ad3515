#include "broker/log.h"

#include <iostream>

#include <platform/event_log.h>

namespace pcellBrokerClient {

namespace {

const char* const eventSource = "pcellBrokerClient";

platform::EventLog& eventLog() {
    static platform::EventLog& log = *new platform::EventLog(eventSource); // never closed
    return log;
}

} // namespace

void logMessage(const std::string& text) noexcept {
    try {
        const std::string line = std::string(eventSource) + ": " + text;
        std::cerr << line << std::endl;
        eventLog().reportError(line);
    } catch (...) { // a line that cannot be written has no other place to go
    }
}

} // namespace pcellBrokerClient
