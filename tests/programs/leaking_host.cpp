// A host whose end of the pipe to its broker another process holds as well. Its arguments: the
// front, the worker, and a file that appears when both processes have been started.

#include "platform/file.h"
#include "platform/pipe.h"
#include "platform/started_process.h"
#include "platform/text.h"

#include <chrono>
#include <thread>

int main(int count, char** values) {
    const std::vector<std::string> arguments = platform::utf8Arguments(count, values);
    const std::string& front = arguments.at(1);
    const std::string& worker = arguments.at(2);
    platform::PipeEnd requestsOfBroker, requests, answers, answersOfBroker;
    if (!platform::createPipe(requestsOfBroker, requests) ||
        !platform::createPipe(answers, answersOfBroker))
        return 1;
    platform::StartedProcess broker;
    platform::StartedProcess holder;
    {
        const platform::PipeEnd input = platform::inheritableCopy(requestsOfBroker);
        const platform::PipeEnd output = platform::inheritableCopy(answersOfBroker);
        if (!platform::startProcess(
                {front,
                 {"front", platform::pipeEndText(input), platform::pipeEndText(output), worker},
                 {&input, &output}},
                broker))
            return 1;
        const platform::PipeEnd held = platform::inheritableCopy(requests);
        if (!platform::startProcess({worker, {"worker", "sleep", arguments.at(3)}, {&held}},
                                    holder))
            return 1;
    }
    for (;;)
        std::this_thread::sleep_for(std::chrono::hours(1));
}
