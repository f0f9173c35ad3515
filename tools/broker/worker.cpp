#include "tools/broker/worker.h"

#include "platform/parent_process.h"
#include "tools/broker/request_queue.h"
#include "tools/broker/result_directory.h"
#include "tools/broker/talk.h"

#include <atomic>
#include <chrono>
#include <mutex>
#include <thread>

namespace broker {

namespace {

/// Ends the process at its front's end: at once when that goes well, and within a second when a
/// foreign library has left the process in no state to clear up.
class Departure {
public:
    explicit Departure(std::string directoryToRemove)
        : directory(std::move(directoryToRemove)), hardEnd([this] { endAnyway(); }) {
        hardEnd.detach();
    }

    /// The first thread that comes clears up and ends the process, others wait for that.
    [[noreturn]] void begin() {
        begun = true;
        begun.notify_all();
        clearing.lock();
        removeDirectory(directory);
        platform::endProcessGroup();
    }

private:
    void endAnyway() {
        begun.wait(false);
        std::this_thread::sleep_for(std::chrono::seconds(1));
        platform::endProcessGroup();
    }

    std::string directory;
    std::mutex clearing;
    std::atomic<bool> begun = false;
    std::thread hardEnd;
};

/// A conversation with the front.
class Service {
public:
    Service(platform::Channel requests, platform::Channel answers, std::string resultDirectory,
            WorkerDuties workerDuties)
        : fromFront(std::move(requests)),
          toFront(std::move(answers)),
          directory(std::move(resultDirectory)),
          duties(std::move(workerDuties)),
          departure(directory) {}

    [[noreturn]] void run() {
        std::thread(&Service::read, this).detach();
        for (;;)
            serve(queue.pop());
    }

private:
    void read();
    void serve(const Request& request);
    void send(const std::string& token, const Answer& answer);

    platform::Channel fromFront;
    platform::Channel toFront;
    std::string directory;
    WorkerDuties duties;
    Departure departure;
    RequestQueue queue;
    std::mutex tokenMutex;
    std::string token;
};

// The front sends a token only after the answer to the one before it.
void Service::read() {
    try {
        RequestReader reader(
            [this](char* data, std::size_t size) { return fromFront.read(data, size); });
        while (std::optional<std::string> next = reader.nextText()) {
            {
                const std::lock_guard lock(tokenMutex);
                token = *next;
            }
            bool answered = false;
            while (!answered) {
                std::optional<Request> request = reader.next();
                if (!request)
                    departure.begin();
                answered = request->command == Command::canEvaluate ||
                           request->command == Command::evaluate;
                queue.push(std::move(*request));
            }
        }
    } catch (const std::exception& error) {
        say(error.what());
    }
    departure.begin();
}

void Service::serve(const Request& request) {
    std::string present;
    {
        const std::lock_guard lock(tokenMutex);
        present = token;
    }
    if (request.command == Command::canEvaluate)
        send(present, duties.canEvaluate(request.text));
    else if (request.command == Command::evaluate)
        send(present, duties.evaluate(request, resultPath(directory, present)));
    else if (request.command != Command::liveness)
        duties.setUp(request);
}

void Service::send(const std::string& present, const Answer& answer) {
    const std::string bytes = present + '\0' + encode(answer);
    if (!toFront.write(bytes.data(), bytes.size()))
        departure.begin();
}

} // namespace

void serveFront(platform::Channel requests, platform::Channel answers, const std::string& directory,
                const WorkerDuties& duties) {
    platform::ignoreBrokenChannels(); // an end while answering is an end like any other
    platform::crashQuietly();
    // Lives for the process, like the threads that use it.
    static Service service(std::move(requests), std::move(answers), directory, duties);
    service.run();
}

} // namespace broker
