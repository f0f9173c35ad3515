#include "support/run_program.h"

#include "support/files.h"
#include "support/temporary_directory.h"
#include "support/windows/text.h"

#include <stdexcept>
#include <windows.h>

namespace ovalis::test {

namespace {

// Quotes one argument as the C runtime's start-up code takes it apart: backslashes count double
// only before a quote.
std::wstring quoted(const std::wstring& argument) {
    std::wstring result = L"\"";
    std::size_t backslashes = 0;
    for (const wchar_t c : argument) {
        if (c == L'"') {
            result.append(backslashes + 1, L'\\');
        }
        backslashes = c == L'\\' ? backslashes + 1 : 0;
        result += c;
    }
    return result.append(backslashes, L'\\') + L'"';
}

HANDLE inheritable(const wchar_t* file, DWORD access, DWORD disposition) {
    SECURITY_ATTRIBUTES attributes{sizeof attributes, nullptr, TRUE};
    const HANDLE handle = CreateFileW(file, access, FILE_SHARE_READ | FILE_SHARE_WRITE, &attributes,
                                      disposition, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (handle == INVALID_HANDLE_VALUE) {
        throw std::runtime_error("cannot open a stream of the program");
    }
    return handle;
}

} // namespace

ProgramResult runProgram(const std::filesystem::path& program,
                         const std::vector<std::string>& arguments) {
    const TemporaryDirectory streams;
    const std::filesystem::path output = streams.path() / "output";
    const std::filesystem::path errors = streams.path() / "errors";

    const std::wstring name = std::filesystem::path(program).make_preferred().wstring();
    std::wstring commandLine = quoted(name);
    for (const std::string& argument : arguments) {
        commandLine += L' ' + quoted(wide(argument));
    }

    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdInput = inheritable(L"NUL", GENERIC_READ, OPEN_EXISTING);
    startup.hStdOutput = inheritable(output.c_str(), GENERIC_WRITE, CREATE_ALWAYS);
    startup.hStdError = inheritable(errors.c_str(), GENERIC_WRITE, CREATE_ALWAYS);
    PROCESS_INFORMATION process{};
    const BOOL started = CreateProcessW(name.c_str(), commandLine.data(), nullptr, nullptr, TRUE, 0,
                                        nullptr, nullptr, &startup, &process);
    CloseHandle(startup.hStdInput);
    CloseHandle(startup.hStdOutput);
    CloseHandle(startup.hStdError);
    if (!started) {
        throw std::runtime_error("cannot start " + utf8(program));
    }
    WaitForSingleObject(process.hProcess, INFINITE);
    DWORD exitCode = 0;
    GetExitCodeProcess(process.hProcess, &exitCode);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return {static_cast<int>(exitCode), readText(output), readText(errors)};
}

} // namespace ovalis::test
