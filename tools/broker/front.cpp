#include "tools/broker/front.h"

#include "platform/file.h"
#include "platform/parent_process.h"

#include <cstdlib>
#include <thread>

namespace broker {

Front::Front(std::string brokerName, std::string workerProgram, const Settings& frontSettings,
             platform::Channel requests, platform::Channel answers)
    : name(std::move(brokerName)),
      program(std::move(workerProgram)),
      settings(frontSettings),
      fromHost(std::move(requests)),
      toHost(std::move(answers)) {}

void Front::run() {
    std::thread(&Front::watchHost, this).detach();
    std::thread(&Front::read, this).detach();
    for (;;)
        serve(queue.pop());
}

// The host is gone when its end of the pipe is, also while a request is being served.
void Front::read() {
    try {
        RequestReader reader(
            [this](char* data, std::size_t size) { return fromHost.read(data, size); });
        while (std::optional<Request> request = reader.next())
            queue.push(std::move(*request));
    } catch (const std::exception& error) {
        say(name + ": " + error.what());
        finish(1);
    }
    finish(0);
}

// For hosts whose end of the pipe another process has inherited and keeps open.
void Front::watchHost() {
    if (platform::waitForParentEnd())
        finish(0);
}

void Front::finish(int status) noexcept {
    workerMutex.lock();
    if (worker)
        worker->end();
    directory.remove();
    std::_Exit(status);
}

void Front::serve(const Request& request) {
    switch (request.command) {
    case Command::liveness:
        send(":");
        break;
    case Command::setWorkingDirectory:
        workingDirectory = request.bytes;
        setUpPending = true;
        break;
    case Command::setLibraryDefinitions:
        libraryDefinitions = request.bytes;
        setUpPending = true;
        break;
    case Command::canEvaluate: {
        const Answer answer = ask(request, unguessableToken());
        if (!answer.text.empty())
            say(name + ": " + request.text + ": " + answer.text);
        send(std::string(1, answer.success ? '\1' : '\0'));
        break;
    }
    case Command::evaluate:
        send(encode(evaluate(request)));
        break;
    }
}

Answer Front::evaluate(const Request& request) {
    dropResult();
    const std::string token = unguessableToken();
    Answer answer = ask(request, token);
    if (!answer.success)
        return answer;
    lastResult = directory.resultPath(token);
    if (!platform::isFile(lastResult)) {
        endWorker(); // it is not what it says it is
        return {false, errorText(name, 2, "the evaluating process wrote no result")};
    }
    return {true, lastResult};
}

Answer Front::ask(const Request& request, const std::string& token) {
    try {
        WorkerLink& link = usableWorker();
        const std::string setUp = setUpPending ? workingDirectory + libraryDefinitions : "";
        setUpPending = false;
        Answer answer = link.ask(token, setUp + request.bytes);
        if (!link.isUsable() && !answer.success)
            answer.text = errorText(name, 2, answer.text);
        return answer;
    } catch (const std::exception& error) {
        return {false, errorText(name, 2, error.what())};
    }
}

void Front::endWorker() noexcept {
    const std::lock_guard lock(workerMutex);
    worker->end();
}

WorkerLink& Front::usableWorker() {
    const std::lock_guard lock(workerMutex);
    if (!worker || !worker->isUsable()) {
        worker.reset();
        worker = std::make_unique<WorkerLink>(program, directory.path(), settings);
        setUpPending = true;
    }
    return *worker;
}

// The host deletes what it has read; what it has not read by its next evaluation it never will.
void Front::dropResult() noexcept {
    try {
        if (!lastResult.empty() && platform::exists(lastResult))
            platform::removeFile(lastResult);
    } catch (const std::exception&) {
        // It goes with the directory.
    }
    lastResult.clear();
}

void Front::send(const std::string& bytes) {
    if (!toHost.write(bytes.data(), bytes.size()))
        finish(0);
}

} // namespace broker
