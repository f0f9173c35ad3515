#include "system_log.h"

#include <cstdarg>
#include <cstdio>
#include <syslog.h>

namespace ovalis::test {

SystemLog& systemLog() {
    static SystemLog log;
    return log;
}

// Lines carry the name that the program has given itself.
std::vector<std::string> onceRegistered(const std::string&) {
    return {};
}

namespace {

void keepLine(int priority, const char* format, va_list arguments) {
    char text[1000];
    std::vsnprintf(text, sizeof text, format, arguments);
    if (priority == (LOG_USER | LOG_ERR))
        systemLog().errors.push_back(text);
}

} // namespace

} // namespace ovalis::test

extern "C" void openlog(const char* name, int, int) {
    ovalis::test::systemLog().sources.push_back(name);
}

extern "C" void syslog(int priority, const char* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    ovalis::test::keepLine(priority, format, arguments);
    va_end(arguments);
}

extern "C" void __syslog_chk(int priority, int, const char* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    ovalis::test::keepLine(priority, format, arguments);
    va_end(arguments);
}
