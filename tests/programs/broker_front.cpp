// The front of a broker with the worker program that it is told.

#include "platform/parent_process.h"
#include "platform/text.h"
#include "tools/broker/front.h"
#include "tools/broker/talk.h"

int main(int count, char** values) {
    platform::crashQuietly();
    platform::ignoreBrokenChannels();
    const std::vector<std::string> arguments = platform::utf8Arguments(count, values);
    auto requests = platform::Channel::inherited(arguments.at(1));
    auto answers = platform::Channel::inherited(arguments.at(2));
    if (!requests || !answers)
        return 2;
    std::vector<std::string> complaints;
    const broker::Settings settings = broker::readSettings(complaints);
    for (const std::string& complaint : complaints)
        broker::say(complaint);
    broker::Front("front", arguments.at(3), settings, std::move(*requests), std::move(*answers))
        .run();
}
