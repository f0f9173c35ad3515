#pragma once

#include "windows/wide.h"

namespace platform::internal {

/// Starts a program. Under load a new process is sometimes lost before its first instruction, which
/// the system reports as an internal error of its own. Nothing of the program has run then, so it
/// is started again.
inline bool createProcess(const std::wstring& name, const std::wstring& commandLine, bool inherit,
                          DWORD flags, STARTUPINFOW& startup, PROCESS_INFORMATION& started) {
    constexpr int attempts = 5;
    for (int attempt = 1;; ++attempt) {
        std::wstring line = commandLine; // the call may write into it
        if (CreateProcessW(name.c_str(), line.data(), nullptr, nullptr, inherit ? TRUE : FALSE,
                           flags, nullptr, nullptr, &startup, &started))
            return true;
        if (GetLastError() != ERROR_INTERNAL_ERROR || attempt == attempts)
            return false;
    }
}

} // namespace platform::internal
