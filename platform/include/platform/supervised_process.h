#pragma once

#include "platform/channel.h"

#include <chrono>
#include <cstdint>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

namespace platform {

/// How a process ended: by itself with an exit code, or by a signal.
struct ProcessEnd {
    bool bySignal = false;
    std::uint32_t number = 0;

    /// "exit code 3", "signal 11 (Segmentation fault)".
    std::string text() const;

    friend bool operator==(const ProcessEnd&, const ProcessEnd&) = default;
};

/// What ends together with a supervised process: whatever it has started, or nothing but itself.
enum class EndsWith { allItStarted, itselfOnly };

/// A program that works for this process through two pipes and is ended with this object.
///
///     SupervisedProcess worker(program, {directory}, memoryLimit);
///     worker.requests.write(...);          // its first argument names the reading end
///     worker.answers.read(...);            // its second argument names the writing end
///
/// - What it writes to its standard streams arrives at `talk`; its standard input is empty.
/// - It can be ended at any moment from any thread. What it has started is ended with it, also when
///   it ends by itself, unless it was started as `EndsWith::itselfOnly`.
/// - Its memory is bounded where the system can do that; `memoryInUse` tells the rest.
class SupervisedProcess {
public:
    /// The two numbers of the pipe ends go before `arguments`. A limit of 0 is none.
    /// @throws SystemFailure  the program cannot be started.
    SupervisedProcess(const std::string& program, const std::vector<std::string>& arguments,
                      std::uint64_t memoryLimit, EndsWith endsWith = EndsWith::allItStarted);
    SupervisedProcess(const SupervisedProcess&) = delete;
    SupervisedProcess& operator=(const SupervisedProcess&) = delete;
    ~SupervisedProcess();

    Channel requests;
    Channel answers;
    Channel talk;

    /// Ends the process and what it started; no effect when it has ended.
    void kill() noexcept;

    /// The end, when it comes within `time`; the same one when asked again.
    std::optional<ProcessEnd> waitFor(std::chrono::milliseconds time) noexcept;

    /// What the process occupies now; 0 when the system does not say.
    std::uint64_t memoryInUse() const noexcept;

private:
    std::optional<ProcessEnd> poll() noexcept;

    mutable std::mutex mutex;
    std::uint32_t processId = 0;
    void* handle = nullptr; ///< of the process, where the system has such
    void* group = nullptr;  ///< of the process and what it starts, where the system has such
    bool endsGroup = true;
    std::optional<ProcessEnd> end;
};

/// Ends a process of this user at once, by its number.
void killProcess(std::uint32_t process) noexcept;

} // namespace platform
