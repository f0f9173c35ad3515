#include "platform/pipe.h"

#include <charconv>

namespace platform {

namespace {

constexpr std::size_t textLength = 16;

} // namespace

std::string pipeEndText(const PipeEnd& end) {
    char digits[textLength + 1];
    std::snprintf(digits, sizeof digits, "%016llX", static_cast<unsigned long long>(end.get()));
    return digits;
}

PipeEnd pipeEndFromText(const std::string& text) {
    std::uint64_t value = 0;
    const char* const last = text.data() + text.size();
    const auto [end, error] = std::from_chars(text.data(), last, value, 16);
    if (text.size() != textLength || error != std::errc() || end != last)
        return PipeEnd();
    return PipeEnd(static_cast<std::intptr_t>(value));
}

} // namespace platform
