#pragma once

#include "platform/channel.h"
#include "tools/broker/request_queue.h"
#include "tools/broker/result_directory.h"
#include "tools/broker/settings.h"
#include "tools/broker/worker_link.h"

#include <memory>
#include <mutex>
#include <string>

namespace broker {

/// The broker as its host sees it: answers requests and has a worker process do what may fail.
///
/// - It holds no database and runs no foreign code.
/// - A worker that fails costs the request that it failed at. The next one starts another worker
///   and tells it again what the host had set up.
/// - When the host is gone the worker, the results and this process go as well.
class Front {
public:
    /// `brokerName` stands in front of what it says; `workerProgram` is what it starts.
    Front(std::string brokerName, std::string workerProgram, const Settings& frontSettings,
          platform::Channel requests, platform::Channel answers);

    /// Serves until the host is gone; ends the process.
    [[noreturn]] void run();

private:
    void read();
    void watchHost();
    void serve(const Request& request);
    Answer evaluate(const Request& request);
    Answer ask(const Request& request, const std::string& token);
    WorkerLink& usableWorker();
    void endWorker() noexcept;
    void dropResult() noexcept;
    void send(const std::string& bytes);
    [[noreturn]] void finish(int status) noexcept;

    std::string name;
    std::string program;
    Settings settings;
    platform::Channel fromHost;
    platform::Channel toHost;
    ResultDirectory directory;
    RequestQueue queue;
    std::mutex workerMutex; ///< held for good by whoever ends the process
    std::unique_ptr<WorkerLink> worker;
    std::string workingDirectory;   ///< the request as it arrived; empty before the first
    std::string libraryDefinitions; ///< likewise
    bool setUpPending = false;
    std::string lastResult;
};

} // namespace broker
