// The process at the pipes of the host.

#include "platform/parent_process.h"
#include "platform/path.h"
#include "platform/private_directory.h"
#include "platform/text.h"
#include "tools/broker/front.h"
#include "tools/broker/talk.h"

namespace {

const std::string name = std::string("pcellBroker") + BROKER_API_VERSION;

std::string workerProgram() {
    const std::string directory = platform::parentPath(platform::programPath());
    return platform::joinPath(directory, "pcellBrokerWorker" BROKER_API_VERSION BROKER_SUFFIX);
}

int serve(const std::vector<std::string>& arguments) {
    std::optional<platform::Channel> requests = platform::Channel::inherited(arguments[1]);
    std::optional<platform::Channel> answers = platform::Channel::inherited(arguments[2]);
    if (!requests || !answers) {
        broker::say(name + ": an argument names no open pipe");
        return 2;
    }
    std::vector<std::string> complaints;
    const broker::Settings settings = broker::readSettings(complaints);
    for (const std::string& complaint : complaints)
        broker::say(name + ": " + complaint);
    broker::Front(name, workerProgram(), settings, std::move(*requests), std::move(*answers)).run();
}

} // namespace

int main(int count, char** values) {
    platform::crashQuietly();
    platform::ignoreBrokenChannels();
    const std::vector<std::string> arguments = platform::utf8Arguments(count, values);
    if (arguments.size() != 3) {
        broker::say("usage: " + name + " PIPE_OF_REQUESTS PIPE_OF_ANSWERS");
        return 2;
    }
    try {
        return serve(arguments);
    } catch (const std::exception& error) {
        broker::say(name + ": " + error.what());
        return 1;
    }
}
