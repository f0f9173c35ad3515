#include "platform/pipe.h"

#include "posix/descriptor.h"

#include <csignal>
#include <ctime>
#include <fcntl.h>
#include <poll.h>

namespace platform {

namespace {

/// Keeps the signal of a write without a reader from this thread, and takes away the one that came.
class WithoutPipeSignal {
public:
    WithoutPipeSignal() noexcept {
        sigset_t pending;
        sigpending(&pending);
        wasPending = sigismember(&pending, SIGPIPE) == 1;
        sigemptyset(&signals);
        sigaddset(&signals, SIGPIPE);
        pthread_sigmask(SIG_BLOCK, &signals, &before);
    }
    WithoutPipeSignal(const WithoutPipeSignal&) = delete;
    WithoutPipeSignal& operator=(const WithoutPipeSignal&) = delete;
    ~WithoutPipeSignal() {
        const int error = errno;
        constexpr timespec atOnce = {0, 0};
        // One that was there before belongs to somebody else.
        while (!wasPending && sigtimedwait(&signals, nullptr, &atOnce) == -1 && errno == EINTR) {
        }
        pthread_sigmask(SIG_SETMASK, &before, nullptr);
        errno = error;
    }

private:
    sigset_t signals;
    sigset_t before;
    bool wasPending = false;
};

int fd(std::intptr_t handle) noexcept {
    return static_cast<int>(handle);
}

} // namespace

void PipeEnd::close() noexcept {
    internal::Descriptor(fd(release()));
}

bool createPipe(PipeEnd& reading, PipeEnd& writing) noexcept {
    int ends[2];
    if (::pipe2(ends, O_CLOEXEC) == -1)
        return false;
    reading = PipeEnd(ends[0]);
    writing = PipeEnd(ends[1]);
    return true;
}

// The copy closes itself in every child but the one that is started with it.
PipeEnd inheritableCopy(const PipeEnd& end) noexcept {
    constexpr int aboveStandardStreams = 3;
    return PipeEnd(::fcntl(fd(end.get()), F_DUPFD_CLOEXEC, aboveStandardStreams));
}

StreamDescriptor::~StreamDescriptor() {
    internal::Descriptor{number};
}

StreamDescriptor openDescriptor(PipeEnd& end, PipeDirection) noexcept {
    return StreamDescriptor(fd(end.release()));
}

std::FILE* openStream(StreamDescriptor& descriptor, PipeDirection direction) noexcept {
    std::FILE* const opened =
        ::fdopen(descriptor.get(), direction == PipeDirection::read ? "rb" : "wb");
    if (opened != nullptr)
        descriptor.release();
    return opened;
}

PipeStream::PipeStream(std::FILE* opened) noexcept : stream(opened) {
    std::setvbuf(stream, nullptr, _IONBF, 0);
}

PipeStream::~PipeStream() {
    std::fclose(stream);
}

std::size_t PipeStream::read(void* data, std::size_t size) noexcept {
    ssize_t got = 0;
    do
        got = ::read(::fileno(stream), data, size);
    while (got == -1 && errno == EINTR);
    return got == -1 ? 0 : static_cast<std::size_t>(got);
}

bool PipeStream::write(const void* data, std::size_t size) noexcept {
    const WithoutPipeSignal none;
    return internal::writeAll(::fileno(stream), data, size);
}

PipeInputState PipeStream::inputState() const noexcept {
    pollfd waiting = {::fileno(stream), POLLIN, 0};
    if (::poll(&waiting, 1, 0) != 1)
        return PipeInputState::empty;
    return (waiting.revents & POLLIN) != 0 ? PipeInputState::ready : PipeInputState::ended;
}

} // namespace platform
