#include <iostream>

#include "cli/command_line.h"
#include "platform/process.h"
#include "platform/standard_output.h"
#include "platform/terminal.h"
#include "platform/text.h"

int main(int count, char** values) {
    platform::reserveStandardStreams();
    platform::failAtFileSizeLimit();
    platform::useUtf8Console();
    const std::vector<std::string> arguments = platform::utf8Arguments(count, values);
    platform::WatchedOutput output(*std::cout.rdbuf());
    std::ostream out(&output);
    std::cerr.tie(&out);
    cli::Console console{out, std::cerr, platform::isTerminal(platform::StandardStream::error)};
    const int status = cli::run({arguments.begin() + 1, arguments.end()}, console);
    out.flush();
    std::cerr.tie(nullptr);
    if (!output.failure())
        return status;
    if (!output.readerIsGone())
        std::cerr << "ovalis: standard output cannot be written: " << output.failure()->text()
                  << '\n';
    return cli::failure;
}
