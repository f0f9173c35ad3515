// A worker without a database. The cell that it is to evaluate names what it does.

#include "platform/child_process.h"
#include "platform/file.h"
#include "platform/private_directory.h"
#include "platform/process.h"
#include "platform/text.h"
#include "tools/broker/talk.h"
#include "tools/broker/worker.h"

#include <atomic>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <map>
#include <memory>
#include <thread>

namespace {

using broker::Answer;

struct Evaluation {
    std::string path;           ///< of the result
    std::string view;           ///< what a behaviour needs to know
    platform::Channel& answers; ///< the same end that the service writes to
    const std::string& setUp;   ///< everything that was set up so far
};

void write(const std::string& path, const std::string& content) {
    platform::File file(path, platform::OpenMode::write);
    file.write(content.data(), content.size());
}

[[noreturn]] void sleepForEver() {
    for (;;)
        std::this_thread::sleep_for(std::chrono::hours(1));
}

Answer draw(Evaluation& evaluation) {
    write(evaluation.path, "drawn");
    return {true, {}};
}

Answer refuse(Evaluation& evaluation) {
    return {false, evaluation.view};
}

Answer tellSetUp(Evaluation& evaluation) {
    return {false, evaluation.setUp};
}

Answer drawNothing(Evaluation&) {
    return {true, {}};
}

Answer crash(Evaluation&) {
    broker::say("about to crash");
    std::abort();
}

Answer fault(Evaluation&) {
    volatile int* volatile nowhere = nullptr;
    *nowhere = 1;
    return {};
}

Answer quit(Evaluation&) {
    for (int line = 1; line <= 20; ++line)
        broker::say("line " + std::to_string(line));
    std::_Exit(7);
}

void writeNumber(const std::string& path) {
    write(path + ".part", std::to_string(platform::currentProcessId()));
    platform::renameFile(path + ".part", path);
}

// Tells its number in a file when the view is a path.
void announce(const Evaluation& evaluation) {
    if (evaluation.view.find('/') != std::string::npos)
        writeNumber(evaluation.view);
}

Answer work(Evaluation& evaluation) {
    std::this_thread::sleep_for(std::chrono::milliseconds(3));
    return draw(evaluation);
}

Answer tellNumber(Evaluation&) {
    return {false, std::to_string(platform::currentProcessId())};
}

Answer hang(Evaluation& evaluation) {
    announce(evaluation);
    sleepForEver();
}

Answer spin(Evaluation& evaluation) {
    announce(evaluation);
    for (std::atomic<unsigned> rounds = 0;;)
        ++rounds;
}

Answer allocate(Evaluation& evaluation) {
    announce(evaluation);
    constexpr std::size_t step = std::size_t{1} << 22;
    for (;;) {
        char* const memory = new char[step];
        std::memset(memory, 1, step);
    }
}

Answer babble(Evaluation& evaluation) {
    const std::string nonsense = "no answer at all";
    evaluation.answers.write(nonsense.data(), nonsense.size());
    return {true, {}};
}

Answer answerWithoutEnd(Evaluation& evaluation) {
    const std::string token = platform::fileName(evaluation.path).substr(0, 32);
    const std::string start = token + '\0' + '\0';
    evaluation.answers.write(start.data(), start.size());
    const std::string more(4096, 'x');
    while (evaluation.answers.write(more.data(), more.size())) {
    }
    sleepForEver();
}

Answer closePipes(Evaluation& evaluation) {
    evaluation.answers.close();
    sleepForEver();
}

// The sleeper inherits the standard streams, as what a plug-in starts does.
Answer startAnother(Evaluation& evaluation) {
    platform::ChildProcess sleeper(platform::programPath(), {"sleep", evaluation.view});
    while (!platform::isFile(evaluation.view))
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
    std::_Exit(9);
}

int sleepWith(const std::string& fileForNumber) {
    writeNumber(fileForNumber);
    sleepForEver();
}

const std::map<std::string, Answer (*)(Evaluation&)> behaviours = {
    {"draw", draw},        {"refuse", refuse},
    {"set-up", tellSetUp}, {"draw nothing", drawNothing},
    {"crash", crash},      {"fault", fault},
    {"quit", quit},        {"hang", hang},
    {"spin", spin},        {"allocate", allocate},
    {"babble", babble},    {"answer without end", answerWithoutEnd},
    {"close", closePipes}, {"start another", startAnother},
    {"work", work},        {"number", tellNumber},
};

} // namespace

int main(int count, char** values) {
    const std::vector<std::string> arguments = platform::utf8Arguments(count, values);
    if (arguments.size() == 3)
        return sleepWith(arguments[2]);
    if (arguments.size() != 4)
        return 2;
    auto requests = platform::Channel::inherited(arguments[1]);
    auto answers = platform::Channel::inherited(arguments[2]);
    auto sameAnswers = platform::Channel::inherited(arguments[2]);
    if (!requests || !answers)
        return 2;
    std::string setUp;
    broker::serveFront(
        std::move(*requests), std::move(*answers), arguments[3],
        {[&](const broker::Request& request) { setUp += request.text + ";"; },
         [](const std::string& type) {
             if (type == "hang")
                 sleepForEver();
             if (type == "crash")
                 std::abort();
             return type == "known" ? Answer{true, {}} : Answer{false, "no such type"};
         },
         [&](const broker::Request& request, const std::string& path) {
             Evaluation evaluation{path, request.view, *sameAnswers, setUp};
             return behaviours.at(request.cell)(evaluation);
         }});
}
