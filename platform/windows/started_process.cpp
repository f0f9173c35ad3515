#include "platform/started_process.h"

#include "windows/create_process.h"

namespace platform {

using internal::wide;

namespace {

HANDLE handleOf(std::intptr_t value) noexcept {
    return reinterpret_cast<HANDLE>(value);
}

} // namespace

bool startProcess(const ProgramStart& program, StartedProcess& started) {
    std::string commandLine;
    for (const std::string& word : program.words)
        commandLine += (commandLine.empty() ? "" : " ") + word;
    STARTUPINFOW startup = {};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process = {};
    if (!internal::createProcess(wide(program.path), wide(commandLine), !program.inherited.empty(),
                                 CREATE_NO_WINDOW, startup, process))
        return false;
    started.close();
    started.handle = reinterpret_cast<std::intptr_t>(process.hProcess);
    CloseHandle(process.hThread);
    return true;
}

bool StartedProcess::wait(std::uint32_t& exitCode) noexcept {
    WaitForSingleObject(handleOf(handle), INFINITE);
    DWORD code = 0;
    const bool known = GetExitCodeProcess(handleOf(handle), &code) != 0;
    exitCode = code;
    close();
    return known;
}

void StartedProcess::close() noexcept {
    internal::Handle(handleOf(handle));
    handle = none;
}

} // namespace platform
