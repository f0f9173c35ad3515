#include "platform/parent_process.h"

#include "windows/wide.h"

#include <tlhelp32.h>

namespace platform {

namespace {

DWORD parentNumber() {
    const internal::Handle all(CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0));
    PROCESSENTRY32W entry = {};
    entry.dwSize = sizeof entry;
    const DWORD own = GetCurrentProcessId();
    for (BOOL more = all && Process32FirstW(all.get(), &entry); more;
         more = Process32NextW(all.get(), &entry)) {
        if (entry.th32ProcessID == own)
            return entry.th32ParentProcessID;
    }
    return 0;
}

ULONGLONG startOf(HANDLE process) {
    FILETIME created = {};
    FILETIME exited;
    FILETIME kernel;
    FILETIME user;
    GetProcessTimes(process, &created, &exited, &kernel, &user);
    return (static_cast<ULONGLONG>(created.dwHighDateTime) << 32) | created.dwLowDateTime;
}

} // namespace

// The number of a parent that has ended may be somebody else's by now, who is younger than we are.
bool waitForParentEnd() noexcept {
    const DWORD number = parentNumber();
    const HANDLE opened =
        number == 0 ? nullptr
                    : OpenProcess(SYNCHRONIZE | PROCESS_QUERY_LIMITED_INFORMATION, FALSE, number);
    const internal::Handle parent(opened == nullptr ? INVALID_HANDLE_VALUE : opened);
    if (!parent || startOf(parent.get()) > startOf(GetCurrentProcess()))
        return false;
    return WaitForSingleObject(parent.get(), INFINITE) == WAIT_OBJECT_0;
}

void endProcessGroup() noexcept {
    TerminateProcess(GetCurrentProcess(), 1);
    ExitProcess(1);
}

void crashQuietly() noexcept {
    SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX | SEM_NOOPENFILEERRORBOX);
}

} // namespace platform
