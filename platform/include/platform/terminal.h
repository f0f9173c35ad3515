#pragma once

namespace platform {

enum class StandardStream { output, error };

/// True when the stream is shown on a terminal and not sent to a file or pipe.
bool isTerminal(StandardStream stream) noexcept;

/// The columns of the terminal; 80 when it does not say.
unsigned terminalWidth(StandardStream stream) noexcept;

/// Makes a Windows console show UTF-8 bytes as what they are; nothing to do elsewhere.
void useUtf8Console() noexcept;

} // namespace platform
