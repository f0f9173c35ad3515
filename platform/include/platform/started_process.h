#pragma once

#include "platform/pipe.h"

#include <cstdint>
#include <string>
#include <vector>

namespace platform {

/// A program as it is to be started: with the environment, the directory and the standard streams
/// of this process, and without a window.
struct ProgramStart {
    std::string path;
    /// What the program is told: its own name first. No word holds a blank.
    std::vector<std::string> words;
    /// The ends that it inherits. Without any it inherits none of this process's handles.
    std::vector<const PipeEnd*> inherited;
};

/// A program that was started and goes its own way: letting go of it neither waits for it nor ends
/// it.
class StartedProcess {
public:
    StartedProcess() noexcept = default;
    StartedProcess(const StartedProcess&) = delete;
    StartedProcess& operator=(const StartedProcess&) = delete;
    ~StartedProcess() { close(); }

    /// Waits for the end, however long it takes. For a program that a signal ended the exit code is
    /// 128 more than the signal's number.
    /// @returns false with the last system error set when the exit code cannot be had.
    bool wait(std::uint32_t& exitCode) noexcept;

    void close() noexcept;

private:
    friend bool startProcess(const ProgramStart& program, StartedProcess& started);

    static constexpr std::intptr_t none = -1;

    std::intptr_t handle = none;
};

/// @returns false with the last system error set when the program cannot be started.
bool startProcess(const ProgramStart& program, StartedProcess& started);

} // namespace platform
