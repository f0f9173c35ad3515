// The process that evaluates: started, watched and, when need be, replaced by the one at the pipes.

#include "platform/text.h"
#include "tools/broker/evaluation.h"
#include "tools/broker/talk.h"
#include "tools/broker/worker.h"

#include <oa/oaBase.h>

namespace {

const std::string name = std::string("pcellBroker") + BROKER_API_VERSION;

int serve(const std::vector<std::string>& arguments) {
    std::optional<platform::Channel> requests = platform::Channel::inherited(arguments[1]);
    std::optional<platform::Channel> answers = platform::Channel::inherited(arguments[2]);
    if (!requests || !answers) {
        broker::say(name + ": an argument names no open pipe");
        return 2;
    }
    broker::Evaluation evaluation(name);
    broker::serveFront(
        std::move(*requests), std::move(*answers), arguments[3],
        {[&](const broker::Request& request) { evaluation.setUp(request); },
         [&](const std::string& typeName) { return evaluation.canEvaluate(typeName); },
         [&](const broker::Request& request, const std::string& path) {
             return evaluation.evaluate(request, path);
         }});
}

} // namespace

int main(int count, char** values) {
    const std::vector<std::string> arguments = platform::utf8Arguments(count, values);
    if (arguments.size() != 4) {
        broker::say(name + ": this program is started by " + name);
        return 2;
    }
    try {
        return serve(arguments);
    } catch (const OpenAccess_4::oaException& error) {
        broker::say(name + ": " + static_cast<const char*>(error.getMsg()));
    } catch (const std::exception& error) {
        broker::say(name + ": " + error.what());
    }
    return 1;
}
