#include "system_log.h"

#include <windows.h>

namespace ovalis::test {

SystemLog& systemLog() {
    static SystemLog log;
    return log;
}

std::vector<std::string> onceRegistered(const std::string& source) {
    return {source};
}

namespace {

std::string utf8(const wchar_t* text) {
    const int size = WideCharToMultiByte(CP_UTF8, 0, text, -1, nullptr, 0, nullptr, nullptr);
    std::string result(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text, -1, result.data(), size, nullptr, nullptr);
    result.pop_back(); // the terminator
    return result;
}

char registration;

HANDLE WINAPI registerSource(const wchar_t* server, const wchar_t* source) {
    systemLog().sources.push_back((server == nullptr ? "" : utf8(server) + "/") + utf8(source));
    return systemLog().sources.back() == "refused" ? nullptr : &registration;
}

BOOL WINAPI report(HANDLE log, WORD type, WORD category, DWORD event, PSID user, WORD count,
                   DWORD size, const wchar_t** strings, void*) {
    const bool isError = type == EVENTLOG_ERROR_TYPE && category == 0 && event == 0;
    if (log != &registration || !isError || user != nullptr || count != 1 || size != 0)
        return FALSE;
    systemLog().errors.push_back(utf8(strings[0]));
    return TRUE;
}

} // namespace

} // namespace ovalis::test

// The program finds these before the entrances in the import library of the system.
extern "C" {
extern decltype(&RegisterEventSourceW) const __imp_RegisterEventSourceW =
    ovalis::test::registerSource;
extern decltype(&ReportEventW) const __imp_ReportEventW = ovalis::test::report;
}
