#pragma once

#include "platform/supervised_process.h"

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <vector>

namespace conformance {

/// The answer to an evaluation.
struct Evaluated {
    unsigned char status = 0;
    std::string text;

    friend bool operator==(const Evaluated&, const Evaluated&) = default;
};

/// Plays the host of a broker. A broker that does not answer in time is ended, and then answers
/// nothing any more. Writing to one that is gone is a plain failure in the whole process from the
/// first dialogue on.
class Dialogue {
public:
    /// Starts the broker. `arguments` follow the numbers of the pipe ends.
    /// @throws platform::SystemFailure  it cannot be started
    explicit Dialogue(const std::string& program, const std::vector<std::string>& arguments = {},
                      std::chrono::milliseconds longestAnswer = std::chrono::seconds(60));
    Dialogue(const Dialogue&) = delete;
    Dialogue& operator=(const Dialogue&) = delete;
    ~Dialogue();

    /// False when the broker does not read any more.
    bool send(const std::string& bytes);

    /// One byte, or nothing when the broker is gone.
    std::optional<char> readByte();
    std::optional<std::string> readText();

    /// True when the broker answers the liveness request with ":".
    bool isAlive();
    /// Asks whether a pcell type can be evaluated.
    std::optional<bool> canEvaluate(const std::string& pcellType);
    /// Sends a whole evaluation and reads its answer.
    std::optional<Evaluated> evaluate(const std::string& request);

    /// Goes away as a host does: both pipes are closed.
    void leave();
    /// How the broker ended, when it does within `time`.
    std::optional<platform::ProcessEnd> end(std::chrono::milliseconds time);
    void kill() { process.kill(); }

    /// What the broker has said so far, or all of it once it has ended.
    std::string said();

private:
    void watch();
    void listen();

    platform::SupervisedProcess process;
    std::chrono::milliseconds longest;
    std::mutex mutex;
    std::condition_variable changed;
    std::optional<std::chrono::steady_clock::time_point> deadline;
    bool closing = false;
    bool quiet = false;
    std::string heard;
    std::thread watcher;
    std::thread listener;
};

} // namespace conformance
