// A sound broker. Notes its environment and every request; takes the types that TYPES lists between
// commas; answers an evaluation with a copy of the file RESULT, or fails it when there is none.

#include <platform/file.h>

#include "broker_pipes.h"

namespace {

std::string variable(const std::string& name) {
    const auto value = platform::environmentVariable(name);
    return name + (value ? "=" + *value : " is not set") + "\n";
}

void noteStart(const std::string& program) {
    std::string text = program + "\n" + variable(platform::libraryPathVariable()) +
                       variable("OA_PLUGIN_PATH") + variable("TCL_LIBRARY");
    std::string more = setting("VARIABLES");
    for (std::size_t comma = more.find(','); !more.empty(); comma = more.find(',')) {
        text += variable(more.substr(0, comma));
        more = comma == std::string::npos ? "" : more.substr(comma + 1);
    }
    appendToFile(setting("STARTS"), text);
}

bool takes(const std::string& type) {
    const std::string types = setting("TYPES", type);
    return ("," + types + ",").find("," + type + ",") != std::string::npos;
}

std::string answerTo(const Request& request) {
    static int evaluations = 0;
    const std::string result = setting("RESULT");
    if (request.command == 3) {
        return takes(request.texts[0]) ? "\1" : std::string(1, '\0');
    }
    if (request.command != 4 || result.empty()) {
        return plainAnswer(request);
    }
    const std::string copy = result + "." + std::to_string(platform::currentProcessId()) + "." +
                             std::to_string(++evaluations);
    platform::copyFile(result, copy);
    return evaluationAnswer('\1', copy);
}

} // namespace

int main(int count, char** values) {
    BrokerPipes pipes(count, values);
    noteStart(pipes.arguments()[0]);
    while (const auto request = pipes.next()) {
        appendToFile(setting("REQUESTS"), request->bytes);
        const std::string answer = answerTo(*request);
        if (!answer.empty() && !pipes.write(answer)) {
            return 1;
        }
    }
    return 0;
}
