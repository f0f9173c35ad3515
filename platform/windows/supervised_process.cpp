#include "platform/supervised_process.h"

#include "platform/path.h"
#include "windows/create_process.h"
#include "windows/wide.h"

#include <algorithm>
#include <array>
#include <psapi.h>

namespace platform {

using internal::fail;
using internal::Handle;
using internal::wide;

namespace {

constexpr DWORD startFlags = CREATE_NO_WINDOW | CREATE_SUSPENDED | EXTENDED_STARTUPINFO_PRESENT;

struct Pipe {
    Handle reading;
    Handle writing;

    explicit Pipe(const std::string& program) {
        HANDLE ends[2];
        if (!CreatePipe(&ends[0], &ends[1], nullptr, 0))
            fail("cannot make a pipe for program", program);
        reading = Handle(ends[0]);
        writing = Handle(ends[1]);
    }
};

void letInherit(const Handle& handle) {
    SetHandleInformation(handle.get(), HANDLE_FLAG_INHERIT, HANDLE_FLAG_INHERIT);
}

std::wstring quoted(const std::wstring& argument) {
    std::wstring result = L"\"";
    std::size_t backslashes = 0;
    for (const wchar_t c : argument) {
        if (c == L'"')
            result.append(backslashes + 1, L'\\');
        backslashes = c == L'\\' ? backslashes + 1 : 0;
        result += c;
    }
    return result.append(backslashes, L'\\') + L'"';
}

/// What a new process is given when it is made: the handles that it inherits, these and no others,
/// and the job that it belongs to from its first moment on.
class StartAttributes {
public:
    StartAttributes(std::vector<HANDLE> handles, HANDLE job)
        : inherited(std::move(handles)), enclosing(job) {
        const DWORD count = job == nullptr ? 1 : 2;
        SIZE_T size = 0;
        InitializeProcThreadAttributeList(nullptr, count, 0, &size);
        memory.resize(size);
        if (!InitializeProcThreadAttributeList(list(), count, 0, &size))
            fail("cannot start program", "");
        if (!set(PROC_THREAD_ATTRIBUTE_HANDLE_LIST, inherited.data(), inherited.size()) ||
            (job != nullptr && !set(PROC_THREAD_ATTRIBUTE_JOB_LIST, &enclosing, 1))) {
            const SystemError error = lastSystemError();
            DeleteProcThreadAttributeList(list());
            throw SystemFailure("cannot start program", "", error);
        }
    }
    ~StartAttributes() { DeleteProcThreadAttributeList(list()); }
    StartAttributes(const StartAttributes&) = delete;
    StartAttributes& operator=(const StartAttributes&) = delete;

    LPPROC_THREAD_ATTRIBUTE_LIST list() {
        return reinterpret_cast<LPPROC_THREAD_ATTRIBUTE_LIST>(memory.data());
    }

private:
    bool set(DWORD_PTR attribute, HANDLE* values, std::size_t count) {
        return UpdateProcThreadAttribute(list(), 0, attribute, values, count * sizeof(HANDLE),
                                         nullptr, nullptr);
    }

    std::vector<HANDLE> inherited;
    HANDLE enclosing;
    std::vector<char> memory;
};

Handle makeGroup(const std::string& program, std::uint64_t memoryLimit) {
    const HANDLE made = CreateJobObjectW(nullptr, nullptr);
    if (made == nullptr)
        fail("cannot make a job for program", program);
    Handle group(made);
    JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits = {};
    limits.BasicLimitInformation.LimitFlags =
        JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE | JOB_OBJECT_LIMIT_DIE_ON_UNHANDLED_EXCEPTION;
    if (memoryLimit != 0) {
        limits.BasicLimitInformation.LimitFlags |= JOB_OBJECT_LIMIT_PROCESS_MEMORY;
        limits.ProcessMemoryLimit = static_cast<SIZE_T>(memoryLimit);
    }
    if (!SetInformationJobObject(group.get(), JobObjectExtendedLimitInformation, &limits,
                                 sizeof limits))
        fail("cannot bound program", program);
    return group;
}

// The process holds its own group open: what it started is ended when it ends, and it can still
// clear up when this process is the one that disappears.
bool letHoldItself(const Handle& group, HANDLE process) {
    HANDLE copy = nullptr;
    return DuplicateHandle(GetCurrentProcess(), group.get(), process, &copy, 0, FALSE,
                           DUPLICATE_SAME_ACCESS);
}

} // namespace

std::string ProcessEnd::text() const {
    constexpr std::uint32_t firstStatus = 0x80000000U; // from here on the system's own numbers
    if (number < firstStatus)
        return "exit code " + std::to_string(number);
    return "exit code 0x" + channelNumber(number).substr(8);
}

SupervisedProcess::SupervisedProcess(const std::string& program,
                                     const std::vector<std::string>& arguments,
                                     std::uint64_t memoryLimit, EndsWith endsWith)
    : endsGroup(endsWith == EndsWith::allItStarted) {
    Pipe toProcess(program);
    Pipe fromProcess(program);
    Pipe saying(program);
    SECURITY_ATTRIBUTES inheritable = {sizeof inheritable, nullptr, TRUE};
    const Handle nothing(CreateFileW(L"NUL", GENERIC_READ, internal::shareAll, &inheritable,
                                     OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!nothing)
        fail("cannot open stream of a program", "NUL");
    for (const Handle* given : {&toProcess.reading, &fromProcess.writing, &saying.writing})
        letInherit(*given);

    std::wstring commandLine = quoted(wide(nativePath(program)));
    for (const Handle* given : {&toProcess.reading, &fromProcess.writing})
        commandLine += L' ' + wide(channelNumber(reinterpret_cast<std::uintptr_t>(given->get())));
    for (const std::string& argument : arguments)
        commandLine += L' ' + quoted(wide(argument));
    Handle held = endsGroup ? makeGroup(program, memoryLimit) : Handle();
    StartAttributes attributes(
        {toProcess.reading.get(), fromProcess.writing.get(), saying.writing.get(), nothing.get()},
        endsGroup ? held.get() : nullptr);
    STARTUPINFOEXW startup = {};
    startup.StartupInfo.cb = sizeof startup;
    startup.StartupInfo.dwFlags = STARTF_USESTDHANDLES;
    startup.StartupInfo.hStdInput = nothing.get();
    startup.StartupInfo.hStdOutput = saying.writing.get();
    startup.StartupInfo.hStdError = saying.writing.get();
    startup.lpAttributeList = attributes.list();

    PROCESS_INFORMATION started = {};
    if (!internal::createProcess(wide(nativePath(program)), commandLine, true, startFlags,
                                 startup.StartupInfo, started))
        fail("cannot start program", program);
    const Handle thread(started.hThread);
    Handle process(started.hProcess);
    if (endsGroup && !letHoldItself(held, process.get())) {
        const SystemError error = lastSystemError();
        TerminateProcess(process.get(), 1);
        throw SystemFailure("cannot supervise program", program, error);
    }
    ResumeThread(thread.get());
    processId = started.dwProcessId;
    handle = process.release();
    group = held.release();
    requests = Channel(reinterpret_cast<std::intptr_t>(toProcess.writing.release()));
    answers = Channel(reinterpret_cast<std::intptr_t>(fromProcess.reading.release()));
    talk = Channel(reinterpret_cast<std::intptr_t>(saying.reading.release()));
}

SupervisedProcess::~SupervisedProcess() {
    kill();
    while (!waitFor(std::chrono::seconds(1)))
        kill();
    CloseHandle(handle);
    if (endsGroup)
        CloseHandle(group);
}

void SupervisedProcess::kill() noexcept {
    const std::lock_guard lock(mutex);
    if (end)
        return;
    if (endsGroup)
        TerminateJobObject(group, 1);
    TerminateProcess(handle, 1);
}

std::optional<ProcessEnd> SupervisedProcess::poll() noexcept {
    const std::lock_guard lock(mutex);
    DWORD status = 0;
    if (!end && WaitForSingleObject(handle, 0) == WAIT_OBJECT_0 &&
        GetExitCodeProcess(handle, &status)) {
        if (endsGroup)
            TerminateJobObject(group, 1);
        end = ProcessEnd{false, status};
    }
    return end;
}

std::optional<ProcessEnd> SupervisedProcess::waitFor(std::chrono::milliseconds time) noexcept {
    WaitForSingleObject(handle, static_cast<DWORD>(time.count()));
    return poll();
}

std::uint64_t SupervisedProcess::memoryInUse() const noexcept {
    const std::lock_guard lock(mutex);
    PROCESS_MEMORY_COUNTERS counters = {};
    counters.cb = sizeof counters;
    if (end || !K32GetProcessMemoryInfo(handle, &counters, sizeof counters))
        return 0;
    return std::max<std::uint64_t>(counters.PagefileUsage, counters.WorkingSetSize);
}

void killProcess(std::uint32_t process) noexcept {
    const HANDLE opened = OpenProcess(PROCESS_TERMINATE, FALSE, process);
    if (opened == nullptr)
        return;
    const Handle closing(opened);
    TerminateProcess(opened, 1);
}

} // namespace platform
