#include "platform/channel.h"

#include "posix/descriptor.h"

#include <charconv>
#include <climits>
#include <csignal>
#include <fcntl.h>

namespace platform {

std::optional<Channel> Channel::inherited(std::string_view number) noexcept {
    int fd = -1;
    const char* const last = number.data() + number.size();
    const auto [end, error] = std::from_chars(number.data(), last, fd, 16);
    if (error != std::errc() || end != last || fd < 0 || number.size() > channelNumber(0).size())
        return std::nullopt;
    const int flags = ::fcntl(fd, F_GETFD);
    if (flags == -1 || ::fcntl(fd, F_SETFD, flags | FD_CLOEXEC) == -1)
        return std::nullopt;
    return Channel(fd);
}

std::size_t Channel::read(void* data, std::size_t size) noexcept {
    ssize_t taken = -1;
    do
        taken = ::read(static_cast<int>(handle), data, size);
    while (taken == -1 && errno == EINTR);
    return taken > 0 ? static_cast<std::size_t>(taken) : 0;
}

bool Channel::write(const void* data, std::size_t size) noexcept {
    return internal::writeAll(static_cast<int>(handle), data, size);
}

void Channel::close() noexcept {
    internal::Descriptor closing(static_cast<int>(handle));
    handle = closedHandle;
}

void ignoreBrokenChannels() noexcept {
    ::signal(SIGPIPE, SIG_IGN);
}

} // namespace platform
