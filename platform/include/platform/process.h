#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

namespace platform {

using ProcessId = std::uint32_t;

ProcessId currentProcessId() noexcept;

/// Makes writing a file beyond the limit that the process was started with fail as on a full disk;
/// else the system ends the process, with whatever it leaves half done. Nothing to do where there
/// is no such limit.
void failAtFileSizeLimit() noexcept;

/// How many handles (descriptors) of the system this process holds.
std::size_t openHandleCount();

/// The family of the running system: "unix" or "windows".
const char* systemName() noexcept;

/// The name of this computer.
std::string hostName();

/// The name of the user the process runs for.
std::string loginName();

/// False for a process that has ended, even when nobody has collected its exit status yet.
bool isProcessAlive(ProcessId process) noexcept;

/// The start of a living process in seconds since 1970 (UTC).
std::optional<std::int64_t> processStartTime(ProcessId process);

/// A text that differs between two processes that had one number after each other; unlike the start
/// time it does not move with the clock. Empty when the process is not alive.
std::string processInstance(ProcessId process);

} // namespace platform
