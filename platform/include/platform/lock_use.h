#pragma once

#include "platform/file_lock.h"
#include "platform/process.h"

#include <optional>
#include <string_view>
#include <vector>

namespace platform {

/// How a lock file (see FileLock) is held.
struct LockUse {
    LockKind kind;
    /// As far as the system tells who they are; the calling process may be among them.
    std::vector<ProcessId> processes;
};

/// Tells who holds a lock file. Where the system has no answer the lock is tried for a moment.
/// @returns nothing when nobody holds it. What cannot be looked at is not held.
std::optional<LockUse> lockUseOf(std::string_view path);

} // namespace platform
