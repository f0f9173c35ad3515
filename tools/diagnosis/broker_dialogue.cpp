#include "diagnosis/broker_dialogue.h"

#include <future>
#include <memory>
#include <thread>

namespace diagnosis {
namespace {

using pcellBrokerClient::BrokerConnection;

Reply read(std::streambuf& stream) {
    try {
        return {Reply::Kind::byte, pcellBrokerClient::readByte(stream)};
    } catch (...) {
        return {Reply::Kind::ended, 0};
    }
}

/// An answer with the stream that it came from.
using Answered = std::pair<Reply, std::unique_ptr<std::streambuf>>;

Reply readWithin(BrokerConnection& connection, std::chrono::milliseconds patience) {
    std::promise<Answered> promise;
    std::future<Answered> answered = promise.get_future();
    // A thread that waits in vain goes on until the broker or this process ends, so it owns what it
    // reads.
    std::thread([promise = std::move(promise),
                 stream = std::move(connection.fromBroker)]() mutable {
        const Reply reply = read(*stream);
        promise.set_value({reply, std::move(stream)});
    }).detach();
    if (answered.wait_for(patience) != std::future_status::ready) {
        connection.alive = false;
        return {Reply::Kind::silent, 0};
    }
    Answered answer = answered.get();
    connection.fromBroker = std::move(answer.second);
    return answer.first;
}

} // namespace

Reply ask(BrokerConnection& connection, pcellBrokerClient::Command command, const std::string* text,
          std::chrono::milliseconds patience) {
    try {
        writeCommand(*connection.toBroker, command);
        if (text)
            pcellBrokerClient::writeText(*connection.toBroker, text->c_str());
        pcellBrokerClient::flush(*connection.toBroker);
    } catch (const std::exception&) {
        return {Reply::Kind::ended, 0};
    }
    return readWithin(connection, patience);
}

} // namespace diagnosis
