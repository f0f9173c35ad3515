#include "drawing/svg_text.h"

#include <cstdint>

namespace drawing {
namespace {

constexpr const char* replacement = "\xEF\xBF\xBD";

/// Number of bytes of the valid UTF-8 character at `at`; 0 when there is none.
std::size_t characterLength(const std::string& bytes, std::size_t at) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(bytes[i]); };
    const unsigned char lead = byte(at);
    if (lead < 0x80)
        return 1;
    const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    if (lead < 0xC2 || lead > 0xF4 || at + length > bytes.size())
        return 0;
    std::uint32_t code = lead & (0xFFu >> (length + 1));
    for (std::size_t i = at + 1; i < at + length; ++i) {
        if ((byte(i) & 0xC0) != 0x80)
            return 0;
        code = code << 6 | (byte(i) & 0x3Fu);
    }
    const std::uint32_t lowest = length == 2 ? 0x80 : length == 3 ? 0x800 : 0x10000;
    const bool surrogate = code >= 0xD800 && code <= 0xDFFF;
    const bool notACharacter = code == 0xFFFE || code == 0xFFFF;
    return code < lowest || code > 0x10FFFF || surrogate || notACharacter ? 0 : length;
}

std::string escaped(char c) {
    switch (c) {
    case '&':
        return "&amp;";
    case '<':
        return "&lt;";
    case '>':
        return "&gt;";
    case '"':
        return "&quot;";
    case '\t':
    case '\n':
    case '\r':
        return " ";
    default:
        return static_cast<unsigned char>(c) < 32 ? replacement : std::string(1, c);
    }
}

} // namespace

std::string xmlText(const std::string& bytes) {
    std::string text;
    for (std::size_t at = 0; at < bytes.size();) {
        const std::size_t length = characterLength(bytes, at);
        if (length == 0)
            text += replacement;
        else if (length == 1)
            text += escaped(bytes[at]);
        else
            text.append(bytes, at, length);
        at += length == 0 ? 1 : length;
    }
    return text;
}

} // namespace drawing
