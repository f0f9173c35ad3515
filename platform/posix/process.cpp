#include "platform/process.h"

#include "platform/environment.h"
#include "platform/file.h"

#include <cerrno>
#include <climits>
#include <csignal>
#include <pwd.h>
#include <sstream>
#include <unistd.h>
#include <vector>

namespace platform {

namespace {

struct ProcessStatus {
    char state = 0;
    std::uint64_t startTicks = 0;
};

// The second field of the line is the program's name in parentheses and may hold anything.
std::optional<ProcessStatus> statusOf(ProcessId process) {
    try {
        const std::string line = readFile("/proc/" + std::to_string(process) + "/stat");
        const std::size_t nameEnd = line.rfind(')');
        if (nameEnd == std::string::npos)
            return std::nullopt;
        std::istringstream fields(line.substr(nameEnd + 1));
        ProcessStatus status;
        fields >> status.state;
        std::string skipped;
        for (int field = 4; field < 22; ++field)
            fields >> skipped;
        fields >> status.startTicks;
        return fields ? std::optional(status) : std::nullopt;
    } catch (const SystemFailure&) {
        return std::nullopt;
    }
}

std::optional<std::int64_t> bootTime() {
    std::istringstream lines(readFile("/proc/stat"));
    for (std::string key; lines >> key;) {
        std::int64_t value = 0;
        if (key == "btime" && lines >> value)
            return value;
        lines.ignore(LONG_MAX, '\n');
    }
    return std::nullopt;
}

} // namespace

void failAtFileSizeLimit() noexcept {
    ::signal(SIGXFSZ, SIG_IGN);
}

ProcessId currentProcessId() noexcept {
    return static_cast<ProcessId>(::getpid());
}

// The listing itself holds one while it is made.
std::size_t openHandleCount() {
    return listDirectory("/proc/self/fd").size() - 1;
}

const char* systemName() noexcept {
    return "unix";
}

std::string hostName() {
    char name[HOST_NAME_MAX + 1] = {};
    return ::gethostname(name, HOST_NAME_MAX) == 0 ? name : "localhost";
}

std::string loginName() {
    std::vector<char> buffer(16384);
    passwd entry;
    passwd* found = nullptr;
    if (::getpwuid_r(::geteuid(), &entry, buffer.data(), buffer.size(), &found) == 0 && found)
        return found->pw_name;
    return environmentVariable("USER").value_or(std::to_string(::geteuid()));
}

bool isProcessAlive(ProcessId process) noexcept {
    if (process == 0 || process > INT_MAX)
        return false;
    if (::kill(static_cast<pid_t>(process), 0) == -1)
        return errno == EPERM;
    try {
        const std::optional<ProcessStatus> status = statusOf(process);
        return !status || (status->state != 'Z' && status->state != 'X');
    } catch (const std::exception&) {
        return true;
    }
}

std::optional<std::int64_t> processStartTime(ProcessId process) {
    const std::optional<ProcessStatus> status = statusOf(process);
    const std::optional<std::int64_t> boot = bootTime();
    const long ticks = ::sysconf(_SC_CLK_TCK);
    if (!status || !boot || ticks <= 0)
        return std::nullopt;
    return *boot + static_cast<std::int64_t>(status->startTicks) / ticks;
}

std::string processInstance(ProcessId process) {
    const std::optional<ProcessStatus> status = statusOf(process);
    if (!status)
        return {};
    try {
        const std::string boot = readFile("/proc/sys/kernel/random/boot_id");
        return boot.substr(0, boot.find('\n')) + "/" + std::to_string(status->startTicks);
    } catch (const SystemFailure&) {
        return std::to_string(status->startTicks);
    }
}

} // namespace platform
