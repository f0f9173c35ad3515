#include "platform/child_process.h"

#include "platform/path.h"
#include "platform/system_error.h"

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace platform {

namespace {

class SpawnActions {
public:
    SpawnActions() { posix_spawn_file_actions_init(&actions); }
    SpawnActions(const SpawnActions&) = delete;
    SpawnActions& operator=(const SpawnActions&) = delete;
    ~SpawnActions() { posix_spawn_file_actions_destroy(&actions); }

    void open(int fd, const char* path, int flags) {
        posix_spawn_file_actions_addopen(&actions, fd, path, flags, 0666);
    }
    const posix_spawn_file_actions_t* get() const noexcept { return &actions; }

private:
    posix_spawn_file_actions_t actions;
};

} // namespace

ChildProcess::ChildProcess(const std::string& program, const std::vector<std::string>& arguments,
                           const ChildStreams& streams) {
    std::vector<std::string> texts{nativePath(program)};
    texts.insert(texts.end(), arguments.begin(), arguments.end());
    std::vector<char*> pointers;
    for (std::string& text : texts)
        pointers.push_back(text.data());
    pointers.push_back(nullptr);

    SpawnActions actions;
    constexpr int flags = O_WRONLY | O_CREAT | O_TRUNC;
    actions.open(STDIN_FILENO, "/dev/null", O_RDONLY);
    if (!streams.output.empty())
        actions.open(STDOUT_FILENO, streams.output.c_str(), flags);
    if (!streams.errors.empty())
        actions.open(STDERR_FILENO, streams.errors.c_str(), flags);
    pid_t started = 0;
    const int error = posix_spawn(&started, texts.front().c_str(), actions.get(), nullptr,
                                  pointers.data(), environ);
    if (error != 0)
        throw SystemFailure("cannot start program", program, SystemError(error));
    processId = static_cast<ProcessId>(started);
}

ChildProcess::~ChildProcess() {
    kill();
    wait();
}

void ChildProcess::kill() noexcept {
    if (!ended)
        ::kill(static_cast<pid_t>(processId), SIGKILL);
}

int ChildProcess::wait() noexcept {
    int status = 0;
    while (!ended) {
        const pid_t found = ::waitpid(static_cast<pid_t>(processId), &status, 0);
        if (found == -1 && errno == EINTR)
            continue;
        ended = true;
        if (found != -1)
            exitStatus = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    }
    return exitStatus;
}

} // namespace platform
