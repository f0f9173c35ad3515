#pragma once

#include "oaString.h"

namespace OpenAccess_4::impl {

/// See the members of the same names of oaNameSpace.
void writeChar(oaChar c, oaString& out, oaUInt4& loc);
void encodeChar(oaByte c, oaString& out, oaUInt4& loc);
oaByte decodeChar(const oaChar* twoHexDigits);
bool isInternalNormalChar(oaByte c);

/// "#" and two hexadecimal digits.
std::string encoded(oaByte c);
bool isHexDigit(oaChar c);

/// Refuses a text that gives no name at all.
/// @throws oaError  41: `in` is null or empty, or `len` is 0.
void requireText(const oaChar* in, oaUInt4 len);

/// Whether `in` starts with "#" and the two hexadecimal digits of a byte other than zero.
inline bool isEncodedChar(const oaChar* in) {
    return *in == '#' && isHexDigit(in[1]) && isHexDigit(in[2]) && decodeChar(in + 1) != 0;
}

} // namespace OpenAccess_4::impl
