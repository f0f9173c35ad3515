#include "base/src/name_chars.h"

#include "oaException.h"

namespace OpenAccess_4::impl {

namespace {

constexpr oaUInt4 smallestRoom = 32;

int valueOf(oaChar hexDigit) {
    return hexDigit <= '9' ? hexDigit - '0' : (hexDigit | 0x20) - 'a' + 10;
}

} // namespace

void writeChar(oaChar c, oaString& out, oaUInt4& loc) {
    if (loc + 1 >= out.getSize())
        out.resize(loc < smallestRoom / 2 ? smallestRoom : 2 * loc);
    out[loc++] = c;
    out[loc] = '\0';
}

std::string encoded(oaByte c) {
    static const oaChar digits[] = "0123456789abcdef";
    return {'#', digits[c >> 4], digits[c & 15]};
}

void encodeChar(oaByte c, oaString& out, oaUInt4& loc) {
    for (const char digit : encoded(c))
        writeChar(digit, out, loc);
}

oaByte decodeChar(const oaChar* twoHexDigits) {
    return static_cast<oaByte>(valueOf(twoHexDigits[0]) << 4 | valueOf(twoHexDigits[1]));
}

bool isHexDigit(oaChar c) {
    return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}

bool isInternalNormalChar(oaByte c) {
    return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_';
}

void requireText(const oaChar* in, oaUInt4 len) {
    if (!in || !*in || len == 0)
        throw oaError(oacInvalidNameInput);
}

} // namespace OpenAccess_4::impl
