// Holds any broker program against the rules of the pipes and says which ones it keeps.

#include "platform/file.h"
#include "platform/parent_process.h"
#include "platform/text.h"
#include "tools/conformance/checks.h"

#include <algorithm>
#include <iostream>

#include <CLI/CLI.hpp>

namespace {

struct Options {
    std::string broker;
    double seconds = 60;
    std::string definitions;
    std::string directory;
    std::vector<std::string> pcell;
};

void describe(CLI::App& app, Options& options) {
    app.add_option("BROKER", options.broker, "The broker program")->required();
    app.add_option("--seconds", options.seconds, "How long an answer may take")
        ->check(CLI::PositiveNumber);
    CLI::Option* const pcell =
        app.add_option("--pcell", options.pcell,
                       "A pcell that the broker can evaluate with its default parameters")
            ->type_name("TYPE LIBRARY CELL VIEW")
            ->expected(4);
    CLI::Option* const definitions = app.add_option("--definitions", options.definitions,
                                                    "The library definitions that name its library")
                                         ->type_name("FILE");
    app.add_option("--directory", options.directory,
                   "The working directory of the host; the present one when not given");
    pcell->needs(definitions);
    app.footer("Example:\n  pcellBrokerConformance bin/pcellBroker6 --definitions lib.defs "
               "--pcell spiral trial coil layout");
}

conformance::Subject subjectOf(const Options& options) {
    conformance::Subject subject;
    subject.broker = options.broker;
    subject.longestAnswer =
        std::chrono::milliseconds(static_cast<long long>(options.seconds * 1000));
    if (!options.pcell.empty()) {
        const std::string directory =
            options.directory.empty() ? platform::currentDirectory() : options.directory;
        subject.pcell = {options.pcell[0], options.pcell[1],
                         options.pcell[2], options.pcell[3],
                         directory,        platform::absolutePath(options.definitions)};
    }
    return subject;
}

bool report(const std::vector<conformance::Verdict>& verdicts) {
    for (const conformance::Verdict& verdict : verdicts) {
        if (verdict.breach.empty())
            std::cout << "kept    " << verdict.rule << '\n';
        else
            std::cout << "BROKEN  " << verdict.rule << ": " << verdict.breach << '\n';
    }
    return std::all_of(verdicts.begin(), verdicts.end(),
                       [](const conformance::Verdict& each) { return each.breach.empty(); });
}

} // namespace

int main(int count, char** values) {
    platform::crashQuietly();
    CLI::App app("Checks whether a program is a broker of pcells");
    app.name("pcellBrokerConformance");
    app.allow_windows_style_options(false); // a path may begin with a slash there too
    Options options;
    describe(app, options);
    try {
        std::vector<std::string> arguments = platform::utf8Arguments(count, values);
        arguments.erase(arguments.begin());
        std::reverse(arguments.begin(), arguments.end()); // as this call wants them
        app.parse(std::move(arguments));
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? 0 : 2;
    }
    return report(conformance::check(subjectOf(options))) ? 0 : 1;
}
