#include "platform/event_log.h"

#include <syslog.h>

namespace platform {

// The name under which a program's lines appear is one for the whole process and belongs to the
// host, so that `source` is not made it.
EventLog::EventLog(const std::string&) noexcept {}

void EventLog::reportError(const std::string& line) noexcept {
    ::syslog(LOG_USER | LOG_ERR, "%s", line.c_str());
}

} // namespace platform
