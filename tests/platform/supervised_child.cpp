// A supervised process: its first two arguments name its pipes, the third what it does.

#include "platform/channel.h"
#include "platform/text.h"

#include <chrono>
#include <cstdlib>
#include <iostream>
#include <thread>

namespace {

int echo(platform::Channel& requests, platform::Channel& answers) {
    char bytes[64];
    while (const std::size_t size = requests.read(bytes, sizeof bytes)) {
        if (!answers.write(bytes, size))
            return 1;
    }
    return 0;
}

} // namespace

int main(int count, char** values) {
    const std::vector<std::string> arguments = platform::utf8Arguments(count, values);
    auto requests = platform::Channel::inherited(arguments.at(1));
    auto answers = platform::Channel::inherited(arguments.at(2));
    if (!requests || !answers)
        return 2;
    const std::string& action = arguments.at(3);
    if (action == "echo")
        return echo(*requests, *answers);
    if (action == "exit")
        return std::stoi(arguments.at(4));
    if (action == "say") {
        std::cout << "output " << std::flush;
        std::cerr << arguments.at(4) << std::flush;
        return std::cin.get() == std::char_traits<char>::eof() ? 0 : 1;
    }
    for (;;)
        std::this_thread::sleep_for(std::chrono::hours(1));
}
