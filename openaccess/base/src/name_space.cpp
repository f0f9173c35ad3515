#include "oaNameSpace.h"

#include "base/src/name_chars.h"
#include "oaException.h"
#include "oaName.h"

#include <cstring>

namespace OpenAccess_4 {

oaNameSpace::oaNameSpace() = default;
oaNameSpace::oaNameSpace(const oaNameSpace&) = default;
oaNameSpace& oaNameSpace::operator=(const oaNameSpace&) = default;
oaNameSpace::~oaNameSpace() = default;

oaBoolean oaNameSpace::isEqual(const oaScalarName& n1, const oaScalarName& n2) const {
    return isEqual(n1.member_, n2.member_);
}

oaBoolean oaNameSpace::isEqual(const oaSimpleName& n1, const oaSimpleName& n2) const {
    const oaScalarName* first = n1.getScalar();
    const oaScalarName* second = n2.getScalar();
    return first && second ? isEqual(*first, *second) : first == second;
}

oaBoolean oaNameSpace::isEqual(const oaName& n1, const oaName& n2) const {
    const oaScalarName* first = n1.getScalar();
    const oaScalarName* second = n2.getScalar();
    return first && second ? isEqual(*first, *second) : first == second;
}

oaBoolean oaNameSpace::isEqual(const oaNameMem& n1, const oaNameMem& n2) const {
    return n1 == n2;
}

void oaNameSpace::getSimpleName(const oaSimpleName& in, oaString& out, oaUInt4& loc) const {
    if (const oaScalarName* scalar = in.getScalar())
        getScalarName(*scalar, out, loc);
}

void oaNameSpace::writeChar(oaChar c, oaString& out, oaUInt4& loc) {
    impl::writeChar(c, out, loc);
}

void oaNameSpace::encodeChar(oaByte c, oaString& out, oaUInt4& loc) {
    impl::encodeChar(c, out, loc);
}

oaByte oaNameSpace::decodeChar(const oaChar* twoHexDigits) {
    return impl::decodeChar(twoHexDigits);
}

oaBoolean oaNameSpace::isInternalNormalChar(oaByte c) {
    return impl::isInternalNormalChar(c);
}

namespace impl {

oaNameType ScalarNameSpace::getType(const oaChar* in) const {
    return in && *in ? oacScalarNameType : oacEmptyNameType;
}

void ScalarNameSpace::getInternalScalar(const oaChar* in, oaScalarName& out) const {
    oaString text;
    oaBoolean caseSensitive = true;
    getInternalMember(in, text, caseSensitive, in ? static_cast<oaUInt4>(std::strlen(in)) : 0);
    out.member_ = oaNameMem(text, caseSensitive);
}

void ScalarNameSpace::getScalarName(const oaScalarName& in, oaString& out, oaUInt4& loc) const {
    if (!in.isEmpty())
        getMember(in.member_.getValue(), in.member_.isCaseSensitive(), out, loc);
}

} // namespace impl

void oaNativeNS::getInternalMember(const oaChar* in, oaString& out, oaBoolean& caseSensitive,
                                   oaUInt4 len, oaUInt4) const {
    impl::requireText(in, len);
    out = oaString(in, len);
    caseSensitive = true;
}

void oaNativeNS::getMember(const oaChar* in, oaBoolean, oaString& out, oaUInt4& loc,
                           oaUInt4) const {
    for (; *in; ++in)
        writeChar(*in, out, loc);
}

namespace {

bool isStructuralInCdba(oaChar c) {
    return std::strchr("<>`(),/\\", c) != nullptr;
}

bool isKeptInCdba(oaChar c) {
    return c > ' ' && c < 0x7f && c != '#' && !isStructuralInCdba(c);
}

} // namespace

oaNameType oaCdbaNS::getType(const oaChar* in) const {
    if (!in || !*in)
        return oacEmptyNameType;
    if (std::strpbrk(in, ",(") || std::strncmp(in, "<*", 2) == 0)
        return oacBundleNameType;
    if (in[std::strlen(in) - 1] != '>')
        return oacScalarNameType;
    return std::strchr(in, ':') ? oacVectorNameType : oacVectorBitNameType;
}

void oaCdbaNS::getInternalMember(const oaChar* in, oaString& out, oaBoolean& caseSensitive,
                                 oaUInt4 len, oaUInt4) const {
    impl::requireText(in, len);
    const oaString spelled(in, len);
    oaUInt4 loc = 0;
    out = "";
    for (const oaChar* c = spelled; *c;) {
        if (isStructuralInCdba(*c))
            throw oaError(oacScalarNameInvalid, static_cast<const oaChar*>(spelled));
        if (impl::isEncodedChar(c)) {
            writeChar(static_cast<oaChar>(decodeChar(c + 1)), out, loc);
            c += 3;
        } else {
            writeChar(*c++, out, loc);
        }
    }
    caseSensitive = true;
}

void oaCdbaNS::getMember(const oaChar* in, oaBoolean, oaString& out, oaUInt4& loc, oaUInt4) const {
    for (; *in; ++in) {
        if (isKeptInCdba(*in))
            writeChar(*in, out, loc);
        else
            encodeChar(static_cast<oaByte>(*in), out, loc);
    }
}

} // namespace OpenAccess_4
