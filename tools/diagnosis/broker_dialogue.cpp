#include "diagnosis/broker_dialogue.h"

#include <thread>

namespace diagnosis {
namespace {

using pcellBrokerClient::BrokerConnection;
using std::chrono::steady_clock;

/// False when nothing has come, and the broker has not ended, within the time.
bool waitForInput(std::streambuf& stream, std::chrono::milliseconds patience) {
    constexpr std::chrono::milliseconds pause(1);
    const steady_clock::time_point end = steady_clock::now() + patience;
    while (stream.in_avail() == 0) {
        if (steady_clock::now() >= end)
            return false;
        std::this_thread::sleep_for(pause);
    }
    return true;
}

} // namespace

Reply ask(BrokerConnection& connection, pcellBrokerClient::Command command, const std::string* text,
          std::chrono::milliseconds patience) {
    try {
        writeCommand(*connection.toBroker, command);
        if (text)
            pcellBrokerClient::writeText(*connection.toBroker, text->c_str());
        pcellBrokerClient::flush(*connection.toBroker);
        if (!waitForInput(*connection.fromBroker, patience)) {
            connection.alive = false;
            return {Reply::Kind::silent, 0, {}};
        }
        return {Reply::Kind::byte, pcellBrokerClient::readByte(*connection.fromBroker), {}};
    } catch (const std::exception& error) {
        return {Reply::Kind::ended, 0, error.what()};
    }
}

} // namespace diagnosis
