#include "platform/terminal.h"

#include <windows.h>

namespace platform {

namespace {

HANDLE handleOf(StandardStream stream) {
    return GetStdHandle(stream == StandardStream::output ? STD_OUTPUT_HANDLE : STD_ERROR_HANDLE);
}

} // namespace

bool isTerminal(StandardStream stream) noexcept {
    DWORD mode = 0;
    return GetConsoleMode(handleOf(stream), &mode) != 0;
}

unsigned terminalWidth(StandardStream stream) noexcept {
    CONSOLE_SCREEN_BUFFER_INFO information;
    if (!GetConsoleScreenBufferInfo(handleOf(stream), &information))
        return 80;
    const int width = information.srWindow.Right - information.srWindow.Left + 1;
    return width > 0 ? static_cast<unsigned>(width) : 80;
}

void useUtf8Console() noexcept {
    SetConsoleOutputCP(CP_UTF8);
}

} // namespace platform
