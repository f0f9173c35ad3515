#include "support/run_program.h"

#include "support/files.h"
#include "support/temporary_directory.h"

#include <cerrno>
#include <fcntl.h>
#include <spawn.h>
#include <stdexcept>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>

namespace ovalis::test {

namespace {

int waitFor(pid_t child) {
    int status = 0;
    while (waitpid(child, &status, 0) < 0) {
        if (errno != EINTR) {
            throw std::system_error(errno, std::generic_category(), "waitpid");
        }
    }
    return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

} // namespace

ProgramResult runProgram(const std::filesystem::path& program,
                         const std::vector<std::string>& arguments) {
    const TemporaryDirectory streams;
    const std::string output = (streams.path() / "output").string();
    const std::string errors = (streams.path() / "errors").string();

    std::string name = program.string();
    std::vector<std::string> texts = arguments;
    std::vector<char*> argv{name.data()};
    for (std::string& text : texts) {
        argv.push_back(text.data());
    }
    argv.push_back(nullptr);

    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    const int flags = O_WRONLY | O_CREAT | O_TRUNC;
    posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, output.c_str(), flags, 0600);
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, errors.c_str(), flags, 0600);
    pid_t child = 0;
    const int failed = posix_spawn(&child, name.c_str(), &actions, nullptr, argv.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    if (failed != 0) {
        throw std::system_error(failed, std::generic_category(), "cannot start " + name);
    }
    const int exitCode = waitFor(child);
    return {exitCode, readText(output), readText(errors)};
}

} // namespace ovalis::test
