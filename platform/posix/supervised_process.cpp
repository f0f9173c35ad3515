#include "platform/supervised_process.h"

#include "platform/file.h"
#include "posix/descriptor.h"

#include <climits>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <sstream>
#include <sys/resource.h>
#include <sys/wait.h>
#include <thread>

#if defined(__has_feature)
#if __has_feature(address_sanitizer)
#define PLATFORM_ADDRESS_SANITIZER
#endif
#elif defined(__SANITIZE_ADDRESS__)
#define PLATFORM_ADDRESS_SANITIZER
#endif

namespace platform {

using internal::Descriptor;
using internal::fail;

namespace {

// A program with this sanitizer claims terabytes of address space before it starts.
#ifdef PLATFORM_ADDRESS_SANITIZER
constexpr bool addressSpaceCanBeBounded = false;
#else
constexpr bool addressSpaceCanBeBounded = true;
#endif

struct Pipe {
    Descriptor reading;
    Descriptor writing;

    explicit Pipe(const std::string& program) {
        int ends[2];
        if (::pipe2(ends, O_CLOEXEC) == -1)
            fail("cannot make a pipe for program", program);
        reading = Descriptor(ends[0]);
        writing = Descriptor(ends[1]);
    }
};

/// Everything the new process needs between fork and exec, where it must not allocate.
struct Start {
    std::vector<char*> arguments;
    int nothing;
    int talk;
    int requests;
    int answers;
    int report;
    std::uint64_t memoryLimit;

    [[noreturn]] void run() const noexcept {
        prepare();
        const int error = errno;
        [[maybe_unused]] const ssize_t told = ::write(report, &error, sizeof error);
        ::_exit(127);
    }

    // Returns with `errno` set when a step failed.
    void prepare() const noexcept {
        ::signal(SIGPIPE, SIG_DFL);
        if (::setpgid(0, 0) == -1 || ::dup2(nothing, STDIN_FILENO) == -1 ||
            ::dup2(talk, STDOUT_FILENO) == -1 || ::dup2(talk, STDERR_FILENO) == -1 ||
            ::fcntl(requests, F_SETFD, 0) == -1 || ::fcntl(answers, F_SETFD, 0) == -1)
            return;
        const rlimit limit = {memoryLimit, memoryLimit};
        if (addressSpaceCanBeBounded && memoryLimit != 0 && ::setrlimit(RLIMIT_AS, &limit) == -1)
            return;
        ::execv(arguments.front(), arguments.data());
    }
};

// The pipe of the report closes by itself when the program takes over.
void checkStarted(const Descriptor& report, pid_t started, const std::string& program) {
    int error = 0;
    ssize_t size = 0;
    do
        size = ::read(report.get(), &error, sizeof error);
    while (size == -1 && errno == EINTR);
    if (size != sizeof error)
        return;
    ::waitpid(started, nullptr, 0);
    throw SystemFailure("cannot start program", program, SystemError(error));
}

} // namespace

std::string ProcessEnd::text() const {
    if (!bySignal)
        return "exit code " + std::to_string(number);
    const char* const name = ::strsignal(static_cast<int>(number));
    return "signal " + std::to_string(number) + (name ? " (" + std::string(name) + ")" : "");
}

SupervisedProcess::SupervisedProcess(const std::string& program,
                                     const std::vector<std::string>& arguments,
                                     std::uint64_t memoryLimit, EndsWith endsWith)
    : endsGroup(endsWith == EndsWith::allItStarted) {
    Pipe toProcess(program);
    Pipe fromProcess(program);
    Pipe saying(program);
    Pipe report(program);
    const Descriptor nothing(internal::openDescriptor("/dev/null", O_RDONLY));
    if (!nothing)
        fail("cannot open stream of a program", "/dev/null");

    std::vector<std::string> texts = {
        nativePath(program), channelNumber(static_cast<std::uint64_t>(toProcess.reading.get())),
        channelNumber(static_cast<std::uint64_t>(fromProcess.writing.get()))};
    texts.insert(texts.end(), arguments.begin(), arguments.end());
    Start start = {{},
                   nothing.get(),
                   saying.writing.get(),
                   toProcess.reading.get(),
                   fromProcess.writing.get(),
                   report.writing.get(),
                   memoryLimit};
    for (std::string& text : texts)
        start.arguments.push_back(text.data());
    start.arguments.push_back(nullptr);

    const pid_t started = ::fork();
    if (started == -1)
        fail("cannot start program", program);
    if (started == 0)
        start.run();
    ::setpgid(started, started); // whoever of the two comes first
    report.writing = Descriptor();
    checkStarted(report.reading, started, program);
    processId = static_cast<std::uint32_t>(started);
    requests = Channel(toProcess.writing.release());
    answers = Channel(fromProcess.reading.release());
    talk = Channel(saying.reading.release());
}

SupervisedProcess::~SupervisedProcess() {
    kill();
    while (!waitFor(std::chrono::seconds(1)))
        kill();
}

void SupervisedProcess::kill() noexcept {
    const std::lock_guard lock(mutex);
    if (!end)
        ::kill(endsGroup ? -static_cast<pid_t>(processId) : static_cast<pid_t>(processId), SIGKILL);
}

// What the process started is ended before its number, which is that of the group, is given back.
std::optional<ProcessEnd> SupervisedProcess::poll() noexcept {
    const std::lock_guard lock(mutex);
    const pid_t process = static_cast<pid_t>(processId);
    siginfo_t seen = {};
    if (end || ::waitid(P_PID, processId, &seen, WEXITED | WNOWAIT | WNOHANG) == -1 ||
        seen.si_pid != process)
        return end;
    if (endsGroup)
        ::kill(-process, SIGKILL);
    int status = 0;
    if (::waitpid(process, &status, 0) == process) {
        const bool bySignal = WIFSIGNALED(status);
        end = ProcessEnd{bySignal, static_cast<std::uint32_t>(bySignal ? WTERMSIG(status)
                                                                       : WEXITSTATUS(status))};
    }
    return end;
}

std::optional<ProcessEnd> SupervisedProcess::waitFor(std::chrono::milliseconds time) noexcept {
    const auto last = std::chrono::steady_clock::now() + time;
    for (;;) {
        if (const std::optional<ProcessEnd> found = poll())
            return found;
        if (std::chrono::steady_clock::now() >= last)
            return std::nullopt;
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
}

std::uint64_t SupervisedProcess::memoryInUse() const noexcept {
    try {
        const std::lock_guard lock(mutex);
        if (end)
            return 0;
        std::istringstream sizes(readFile("/proc/" + std::to_string(processId) + "/statm"));
        std::uint64_t whole = 0;
        std::uint64_t resident = 0;
        sizes >> whole >> resident;
        return sizes ? resident * static_cast<std::uint64_t>(::sysconf(_SC_PAGESIZE)) : 0;
    } catch (const std::exception&) {
        return 0;
    }
}

void killProcess(std::uint32_t process) noexcept {
    if (process > 1 && process <= INT_MAX)
        ::kill(static_cast<pid_t>(process), SIGKILL);
}

} // namespace platform
