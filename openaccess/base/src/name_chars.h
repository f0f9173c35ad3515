#pragma once

#include "oaString.h"

namespace OpenAccess_4::impl {

/// See the members of the same names of oaNameSpace.
void writeChar(oaChar c, oaString& out, oaUInt4& loc);
void encodeChar(oaByte c, oaString& out, oaUInt4& loc);
oaByte decodeChar(const oaChar* twoHexDigits);
bool isHexDigit(oaChar c);
bool isInternalNormalChar(oaByte c);

/// Whether `in` starts with "#" and the two hexadecimal digits of a byte other than zero.
inline bool isEncodedChar(const oaChar* in) {
    return *in == '#' && isHexDigit(in[1]) && isHexDigit(in[2]) && decodeChar(in + 1) != 0;
}

} // namespace OpenAccess_4::impl
