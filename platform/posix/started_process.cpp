#include "platform/started_process.h"

#include "platform/path.h"

#include <algorithm>
#include <cerrno>
#include <mutex>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace platform {

namespace {

class SpawnActions {
public:
    SpawnActions() noexcept { error_ = posix_spawn_file_actions_init(&actions); }
    SpawnActions(const SpawnActions&) = delete;
    SpawnActions& operator=(const SpawnActions&) = delete;
    ~SpawnActions() { posix_spawn_file_actions_destroy(&actions); }

    // A descriptor that is copied onto itself stays open in the child and only there.
    void inherit(const PipeEnd& end) noexcept {
        const int number = static_cast<int>(end.get());
        if (error_ == 0)
            error_ = posix_spawn_file_actions_adddup2(&actions, number, number);
    }

    int error() const noexcept { return error_; }
    const posix_spawn_file_actions_t* get() const noexcept { return &actions; }

private:
    posix_spawn_file_actions_t actions;
    int error_ = 0;
};

/// Programs that nobody waits for. Their exit statuses are collected at the next start, so that
/// those that ended do not pile up.
class Unwatched {
public:
    static Unwatched& instance() {
        static Unwatched& all = *new Unwatched; // lives for the process
        return all;
    }

    void collect() {
        const std::lock_guard<std::mutex> guard(mutex);
        std::erase_if(processes,
                      [](pid_t process) { return ::waitpid(process, nullptr, WNOHANG) != 0; });
    }

    // Room for the process is made before it is started: afterwards nothing may fail.
    void makeRoom() {
        const std::lock_guard<std::mutex> guard(mutex);
        processes.reserve(processes.size() + 8);
    }

    void add(pid_t process) noexcept {
        const std::lock_guard<std::mutex> guard(mutex);
        if (processes.size() < processes.capacity())
            processes.push_back(process);
    }

private:
    std::mutex mutex;
    std::vector<pid_t> processes;
};

} // namespace

bool startProcess(const ProgramStart& program, StartedProcess& started) {
    const std::string path = nativePath(program.path);
    std::vector<std::string> words = program.words;
    std::vector<char*> arguments;
    for (std::string& word : words)
        arguments.push_back(word.data());
    arguments.push_back(nullptr);
    SpawnActions actions;
    for (const PipeEnd* const end : program.inherited)
        actions.inherit(*end);
    Unwatched::instance().collect();
    Unwatched::instance().makeRoom();

    pid_t process = 0;
    int error = actions.error();
    if (error == 0)
        error =
            posix_spawn(&process, path.c_str(), actions.get(), nullptr, arguments.data(), environ);
    if (error != 0) {
        errno = error;
        return false;
    }
    started.close();
    started.handle = process;
    return true;
}

bool StartedProcess::wait(std::uint32_t& exitCode) noexcept {
    int status = 0;
    pid_t found = -1;
    do
        found = ::waitpid(static_cast<pid_t>(handle), &status, 0);
    while (found == -1 && errno == EINTR);
    handle = none;
    if (found == -1)
        return false;
    exitCode = static_cast<std::uint32_t>(WIFEXITED(status) ? WEXITSTATUS(status)
                                                            : 128 + WTERMSIG(status));
    return true;
}

void StartedProcess::close() noexcept {
    if (handle != none)
        Unwatched::instance().add(static_cast<pid_t>(handle));
    handle = none;
}

} // namespace platform
