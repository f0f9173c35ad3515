#include "platform/channel.h"

namespace platform {

std::string channelNumber(std::uint64_t number) {
    constexpr char digits[] = "0123456789ABCDEF";
    std::string text(16, '0');
    for (std::size_t place = text.size(); place > 0; number /= 16)
        text[--place] = digits[number % 16];
    return text;
}

} // namespace platform
