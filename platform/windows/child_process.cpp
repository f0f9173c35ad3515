#include "platform/child_process.h"

#include "platform/path.h"
#include "windows/create_process.h"

namespace platform {

using internal::Handle;
using internal::wide;

namespace {

// Quotes one argument as the start-up code of the C runtime takes it apart: backslashes count
// double only before a quote.
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

Handle inheritable(const std::string& path, DWORD access, DWORD disposition) {
    SECURITY_ATTRIBUTES attributes = {sizeof attributes, nullptr, TRUE};
    const std::wstring name = path == "NUL" ? L"NUL" : internal::widePath(path);
    Handle opened(CreateFileW(name.c_str(), access, internal::shareAll, &attributes, disposition,
                              FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!opened)
        internal::fail("cannot open stream of a program", path);
    return opened;
}

// The child's end of an output stream: a file, or a copy of our own end.
Handle outputEnd(const std::string& path, DWORD ownStream) {
    if (!path.empty())
        return inheritable(path, GENERIC_WRITE, CREATE_ALWAYS);
    HANDLE copy = INVALID_HANDLE_VALUE;
    DuplicateHandle(GetCurrentProcess(), GetStdHandle(ownStream), GetCurrentProcess(), &copy, 0,
                    TRUE, DUPLICATE_SAME_ACCESS);
    return Handle(copy);
}

} // namespace

ChildProcess::ChildProcess(const std::string& program, const std::vector<std::string>& arguments,
                           const ChildStreams& streams) {
    const std::wstring name = wide(nativePath(program));
    std::wstring commandLine = quoted(name);
    for (const std::string& argument : arguments)
        commandLine += L' ' + quoted(wide(argument));

    const Handle input = inheritable("NUL", GENERIC_READ, OPEN_EXISTING);
    const Handle output = outputEnd(streams.output, STD_OUTPUT_HANDLE);
    const Handle errors = outputEnd(streams.errors, STD_ERROR_HANDLE);
    STARTUPINFOW startup = {};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdInput = input.get();
    startup.hStdOutput = output.get();
    startup.hStdError = errors.get();
    PROCESS_INFORMATION started = {};
    if (!internal::createProcess(name, commandLine, true, 0, startup, started))
        internal::fail("cannot start program", program);
    CloseHandle(started.hThread);
    handle = started.hProcess;
    processId = started.dwProcessId;
}

ChildProcess::~ChildProcess() {
    kill();
    wait();
    CloseHandle(handle);
}

void ChildProcess::kill() noexcept {
    if (!ended)
        TerminateProcess(handle, 1);
}

int ChildProcess::wait() noexcept {
    if (!ended) {
        WaitForSingleObject(handle, INFINITE);
        DWORD status = 0;
        GetExitCodeProcess(handle, &status);
        exitStatus = static_cast<int>(status);
        ended = true;
    }
    return exitStatus;
}

} // namespace platform
