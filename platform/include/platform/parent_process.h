#pragma once

namespace platform {

/// Returns when the process that started this one has ended. A process that ended before the first
/// call is not known any more: then the answer is false, at once.
bool waitForParentEnd() noexcept;

/// Ends this process, and on posix every process of its group, without any clean-up.
[[noreturn]] void endProcessGroup() noexcept;

/// Makes a crash of this process, and of those it starts, end it at once: no window asks the user,
/// no debugger is called.
void crashQuietly() noexcept;

} // namespace platform
