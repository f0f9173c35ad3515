#include "platform/standard_output.h"

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

namespace platform {

void reserveStandardStreams() noexcept {
    // The lowest free number is the one that `open` answers. Each is opened the other way round, so
    // that its use fails.
    for (const int number : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        if (::fcntl(number, F_GETFD) == -1 && errno == EBADF)
            ::open("/dev/null", number == STDIN_FILENO ? O_WRONLY : O_RDONLY);
}

bool WatchedOutput::readerIsGone() const noexcept {
    return failure_ && failure_->code() == EPIPE;
}

} // namespace platform
