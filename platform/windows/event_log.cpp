#include "platform/event_log.h"

#include "windows/wide.h"

namespace platform {

using internal::wide;

EventLog::EventLog(const std::string& source) noexcept
    : handle(RegisterEventSourceW(nullptr, wide(source).c_str())) {}

void EventLog::reportError(const std::string& line) noexcept {
    const std::wstring text = wide(line);
    const wchar_t* const strings[] = {text.c_str()};
    ReportEventW(handle, EVENTLOG_ERROR_TYPE, 0, 0, nullptr, 1, 0, const_cast<LPCWSTR*>(strings),
                 nullptr);
}

} // namespace platform
