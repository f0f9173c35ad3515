// A host that is killed while it waits for an evaluation. Its arguments: the broker, the arguments
// of the broker, the cell and the view. TEST_BROKER_DEFINITIONS names the library definitions that
// the broker is told.

#include "platform/environment.h"
#include "platform/text.h"
#include "tools/conformance/dialogue.h"
#include "tools/conformance/request_writer.h"

int main(int count, char** values) {
    const std::vector<std::string> arguments = platform::utf8Arguments(count, values);
    const std::string& cell = arguments.at(arguments.size() - 2);
    const std::string& view = arguments.back();
    conformance::Dialogue broker(arguments.at(1), {arguments.begin() + 2, arguments.end() - 2},
                                 std::chrono::hours(1));
    if (const auto definitions = platform::environmentVariable("TEST_BROKER_DEFINITIONS"))
        broker.send(conformance::setLibraryDefinitions(*definitions));
    for (int evaluation = 0; evaluation < 1000000; ++evaluation) {
        if (!broker.evaluate(conformance::evaluate("lib", cell, view) + conformance::integer(0)))
            return 1;
    }
    return 0;
}
