#include "base/src/internal_form.h"
#include "base/src/name_chars.h"
#include "oaException.h"
#include "oaNameSpace.h"

#include <cstring>

namespace OpenAccess_4 {

namespace {

bool isUpper(oaChar c) {
    return c >= 'A' && c <= 'Z';
}

bool isLetter(oaChar c) {
    return isUpper(c) || (c >= 'a' && c <= 'z');
}

oaChar upper(oaChar c) {
    return static_cast<oaChar>(c & ~0x20);
}

oaChar lower(oaChar c) {
    return static_cast<oaChar>(c | 0x20);
}

// Windows keeps these names for devices, in every directory.
bool isDevice(const oaChar* name) {
    for (const oaChar* device : {"con", "prn", "aux", "nul"}) {
        if (std::strcmp(name, device) == 0)
            return true;
    }
    const bool isPort = std::strncmp(name, "com", 3) == 0 || std::strncmp(name, "lpt", 3) == 0;
    return isPort && name[3] >= '0' && name[3] <= '9' && name[4] == '\0';
}

void spellUnix(const oaChar* name, oaString& out, oaUInt4& loc) {
    for (; *name; ++name) {
        const oaByte c = static_cast<oaByte>(*name);
        if (impl::isInternalNormalChar(c))
            impl::writeChar(*name, out, loc);
        else
            impl::encodeChar(c, out, loc);
    }
}

void spellWin(const oaChar* name, oaString& out, oaUInt4& loc) {
    if (isDevice(name)) {
        impl::writeChar('%', out, loc);
        impl::writeChar('%', out, loc);
    }
    for (; *name; ++name) {
        const oaByte c = static_cast<oaByte>(*name);
        if (isUpper(*name))
            impl::writeChar('%', out, loc);
        if (impl::isInternalNormalChar(c))
            impl::writeChar(*name, out, loc);
        else
            impl::encodeChar(c, out, loc);
    }
}

// The two readers take texts that nobody would spell so, too; spelling the result again tells.

bool readUnix(const oaString& spelled, oaString& name) {
    oaUInt4 loc = 0;
    for (const oaChar* in = spelled; *in;) {
        const bool encoded = impl::isEncodedChar(in);
        impl::writeChar(encoded ? static_cast<oaChar>(impl::decodeChar(in + 1)) : *in, name, loc);
        in += encoded ? 3 : 1;
    }
    oaString again;
    loc = 0;
    spellUnix(name, again, loc);
    return again == spelled;
}

bool readWin(const oaString& spelled, oaString& name) {
    oaUInt4 loc = 0;
    const oaChar* in = spelled;
    in += std::strncmp(in, "%%", 2) == 0 ? 2 : 0;
    while (*in) {
        if (impl::isEncodedChar(in)) {
            impl::writeChar(static_cast<oaChar>(impl::decodeChar(in + 1)), name, loc);
            in += 3;
        } else if (*in == '%' && isLetter(in[1])) {
            impl::writeChar(upper(in[1]), name, loc);
            in += 2;
        } else {
            impl::writeChar(isLetter(*in) ? lower(*in) : *in, name, loc);
            ++in;
        }
    }
    oaString again;
    loc = 0;
    spellWin(name, again, loc);
    return again.isEqual(spelled, true);
}

} // namespace

oaNameType oaUnixNS::getType(const oaChar* in) const {
    oaString name;
    return in && *in && readUnix(in, name) ? oacScalarNameType : oacEmptyNameType;
}

void oaUnixNS::getInternalMember(const oaChar* in, oaString& out, oaBoolean& caseSensitive,
                                 oaUInt4 len, oaUInt4) const {
    impl::requireText(in, len);
    const oaString spelled(in, len);
    oaString name;
    if (!readUnix(spelled, name))
        throw oaError(oacScalarNameInvalid, static_cast<const oaChar*>(spelled));
    out = impl::internalForm(static_cast<const oaChar*>(name)).c_str();
    caseSensitive = true;
}

void oaUnixNS::getMember(const oaChar* in, oaBoolean, oaString& out, oaUInt4& loc, oaUInt4) const {
    spellUnix(impl::bytesOf(in).c_str(), out, loc);
}

oaNameType oaWinNS::getType(const oaChar* in) const {
    oaString name;
    return in && *in && readWin(in, name) ? oacScalarNameType : oacEmptyNameType;
}

void oaWinNS::getInternalMember(const oaChar* in, oaString& out, oaBoolean& caseSensitive,
                                oaUInt4 len, oaUInt4) const {
    impl::requireText(in, len);
    const oaString spelled(in, len);
    oaString name;
    if (!readWin(spelled, name))
        throw oaError(oacScalarNameInvalid, static_cast<const oaChar*>(spelled));
    out = impl::internalForm(static_cast<const oaChar*>(name)).c_str();
    caseSensitive = true;
}

void oaWinNS::getMember(const oaChar* in, oaBoolean, oaString& out, oaUInt4& loc, oaUInt4) const {
    spellWin(impl::bytesOf(in).c_str(), out, loc);
}

} // namespace OpenAccess_4
