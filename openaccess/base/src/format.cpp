#include "base/src/format.h"

#include <cstdio>

namespace OpenAccess_4::impl {

std::string formatted(const oaChar* format, va_list args) {
    if (!format)
        return {};
    va_list again;
    va_copy(again, args);
    const int length = std::vsnprintf(nullptr, 0, format, again);
    va_end(again);
    if (length <= 0)
        return {};
    std::string text(static_cast<std::size_t>(length), '\0');
    std::vsnprintf(text.data(), text.size() + 1, format, args);
    return text;
}

} // namespace OpenAccess_4::impl
