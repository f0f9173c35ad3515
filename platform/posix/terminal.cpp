#include "platform/terminal.h"

#include <sys/ioctl.h>
#include <unistd.h>

namespace platform {

namespace {

int descriptorOf(StandardStream stream) {
    return stream == StandardStream::output ? STDOUT_FILENO : STDERR_FILENO;
}

} // namespace

bool isTerminal(StandardStream stream) noexcept {
    return ::isatty(descriptorOf(stream)) == 1;
}

unsigned terminalWidth(StandardStream stream) noexcept {
    winsize size = {};
    const bool told = ::ioctl(descriptorOf(stream), TIOCGWINSZ, &size) == 0 && size.ws_col > 0;
    return told ? size.ws_col : 80;
}

void useUtf8Console() noexcept {}

} // namespace platform
