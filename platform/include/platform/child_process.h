#pragma once

#include "platform/process.h"

#include <string>
#include <vector>

namespace platform {

/// Where the output of a child goes: files that are made or emptied. An empty name leaves the child
/// the stream of this process. Its standard input is empty.
struct ChildStreams {
    std::string output;
    std::string errors;
};

/// A running program. One that is still running on destruction is killed.
class ChildProcess {
public:
    /// The arguments reach the program as they are, blanks and quotes included.
    /// @throws SystemFailure  the program cannot be started, or a stream not be made.
    ChildProcess(const std::string& program, const std::vector<std::string>& arguments,
                 const ChildStreams& streams = {});
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;
    ~ChildProcess();

    /// Ends the program without giving it time for anything; no effect when it has ended.
    void kill() noexcept;

    /// Waits for the end and returns the exit status, the same one when called again. For a program
    /// that a signal ended it is 128 more than the signal's number.
    int wait() noexcept;

private:
    ProcessId processId = 0;
    void* handle = nullptr; ///< of the process, where the system has such
    int exitStatus = -1;
    bool ended = false;
};

} // namespace platform
