#include <iostream>

#include "cli/command_line.h"
#include "platform/terminal.h"
#include "platform/text.h"

int main(int count, char** values) {
    platform::useUtf8Console();
    const std::vector<std::string> arguments = platform::utf8Arguments(count, values);
    cli::Console console{std::cout, std::cerr,
                         platform::isTerminal(platform::StandardStream::error)};
    return cli::run({arguments.begin() + 1, arguments.end()}, console);
}
