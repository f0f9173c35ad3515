#pragma once

#include "platform/supervised_process.h"
#include "tools/broker/answer.h"
#include "tools/broker/settings.h"
#include "tools/broker/talk.h"

#include <atomic>
#include <condition_variable>
#include <memory>
#include <string>

namespace broker {

/// A worker process and the conversation with it.
///
/// Each question goes out under a token; the answer must repeat it, so that no answer is ever taken
/// for that of another question.
class WorkerLink {
public:
    /// Starts `program`, which is told the directory for results.
    /// @throws platform::SystemFailure  it cannot be started
    WorkerLink(const std::string& program, const std::string& directory,
               const Settings& workerSettings);
    WorkerLink(const WorkerLink&) = delete;
    WorkerLink& operator=(const WorkerLink&) = delete;
    ~WorkerLink();

    /// Sends requests of which the last one is answered, and waits for that answer. When none comes
    /// that is one, the worker is ended, and the answer tells what happened.
    Answer ask(const std::string& token, const std::string& requests);

    /// False once the worker has ended or was ended.
    bool isUsable() noexcept;

    /// Ends the worker; from any thread.
    void end() noexcept;

private:
    struct Conversation;

    std::string watch(const std::string& token, Answer& answer);
    std::string tooMuchMemory() const;
    Answer failure(const std::string& what);
    std::string lostText();

    Settings settings;
    std::shared_ptr<Talk> talk;
    std::shared_ptr<Conversation> conversation;
    platform::SupervisedProcess process;
    std::atomic<bool> usable = true;
};

} // namespace broker
