#include "platform/process.h"

#include "windows/wide.h"

#include <lmcons.h>

namespace platform {

namespace {

// A process handle is null when there is none, unlike a file handle.
internal::Handle openProcess(ProcessId process) {
    const HANDLE opened =
        OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION | SYNCHRONIZE, FALSE, process);
    return internal::Handle(opened == nullptr ? INVALID_HANDLE_VALUE : opened);
}

std::optional<std::int64_t> startTicks(ProcessId process) {
    const internal::Handle opened = openProcess(process);
    FILETIME created;
    FILETIME exited;
    FILETIME kernel;
    FILETIME user;
    if (!opened || !GetProcessTimes(opened.get(), &created, &exited, &kernel, &user))
        return std::nullopt;
    return (static_cast<std::int64_t>(created.dwHighDateTime) << 32) | created.dwLowDateTime;
}

} // namespace

void failAtFileSizeLimit() noexcept {}

ProcessId currentProcessId() noexcept {
    return GetCurrentProcessId();
}

std::size_t openHandleCount() {
    DWORD count = 0;
    GetProcessHandleCount(GetCurrentProcess(), &count);
    return count;
}

const char* systemName() noexcept {
    return "windows";
}

std::string hostName() {
    wchar_t name[256];
    DWORD size = static_cast<DWORD>(std::size(name));
    if (!GetComputerNameExW(ComputerNameDnsHostname, name, &size))
        return "localhost";
    return internal::narrow(std::wstring_view(name, size));
}

std::string loginName() {
    wchar_t name[UNLEN + 1];
    DWORD size = static_cast<DWORD>(std::size(name));
    if (!GetUserNameW(name, &size) || size == 0)
        return "unknown";
    return internal::narrow(std::wstring_view(name, size - 1));
}

bool isProcessAlive(ProcessId process) noexcept {
    const internal::Handle opened = openProcess(process);
    if (!opened)
        return GetLastError() == ERROR_ACCESS_DENIED;
    // An ended process keeps its number while somebody holds a handle on it.
    return WaitForSingleObject(opened.get(), 0) == WAIT_TIMEOUT;
}

std::optional<std::int64_t> processStartTime(ProcessId process) {
    constexpr std::int64_t secondsTo1970 = 11'644'473'600;
    const std::optional<std::int64_t> ticks = startTicks(process);
    return ticks ? std::optional(*ticks / 10'000'000 - secondsTo1970) : std::nullopt;
}

std::string processInstance(ProcessId process) {
    if (!isProcessAlive(process))
        return {};
    const std::optional<std::int64_t> ticks = startTicks(process);
    return ticks ? std::to_string(*ticks) : std::string();
}

} // namespace platform
