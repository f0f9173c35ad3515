#include "oaNameSpace.h"

#include "base/src/indexed_name.h"
#include "base/src/name_chars.h"
#include "oaException.h"
#include "oaName.h"

#include <algorithm>
#include <cstring>

namespace OpenAccess_4 {

namespace {

template <class Name>
oaScalarName baseOf(const Name& name) {
    oaScalarName base;
    name.getBaseName(base);
    return base;
}

/// Compares two names of which the forms may differ.
template <class Name>
oaBoolean isEqualName(const oaNameSpace& ns, const Name& n1, const Name& n2) {
    if (n1.getType() != n2.getType())
        return false;
    if (const oaScalarName* scalar = n1.getScalar())
        return ns.isEqual(*scalar, *n2.getScalar());
    if (const oaVectorBitName* bit = n1.getVectorBit())
        return ns.isEqual(*bit, *n2.getVectorBit());
    const oaVectorName* vector = n1.getVector();
    return !vector || ns.isEqual(*vector, *n2.getVector());
}

impl::Indices indicesOf(const oaVectorBitName& bit) {
    return {{}, bit.getIndex()};
}

impl::Indices indicesOf(const oaVectorName& vector) {
    return {{}, vector.getStart(), vector.getStop(), vector.getStep(), true};
}

/// Reads the whole of `in` as one member.
oaNameMem memberOf(const oaNameSpace& ns, const oaChar* in) {
    oaString text;
    oaBoolean caseSensitive = true;
    ns.getInternalMember(in, text, caseSensitive, in ? static_cast<oaUInt4>(std::strlen(in)) : 0);
    return oaNameMem(text, caseSensitive);
}

std::string_view viewOf(const oaString& text) {
    return {static_cast<const oaChar*>(text), text.getLength()};
}

/// The indices of a name, which must be those of a bit, or of a range.
std::optional<impl::Indices> readForm(std::string_view text, const impl::IndexMarks& marks,
                                      bool isRange) {
    const std::optional<impl::Indices> indices = impl::readIndices(text, marks);
    return indices && indices->isRange == isRange ? indices : std::nullopt;
}

void writeText(std::string_view text, oaString& out, oaUInt4& loc) {
    for (const char c : text)
        impl::writeChar(c, out, loc);
}

} // namespace

oaNameSpace::oaNameSpace() = default;
oaNameSpace::oaNameSpace(const oaNameSpace&) = default;
oaNameSpace& oaNameSpace::operator=(const oaNameSpace&) = default;
oaNameSpace::~oaNameSpace() = default;

oaBoolean oaNameSpace::isEqual(const oaScalarName& n1, const oaScalarName& n2) const {
    return isEqual(n1.member_, n2.member_);
}

oaBoolean oaNameSpace::isEqual(const oaVectorName& n1, const oaVectorName& n2) const {
    return isEqual(baseOf(n1), baseOf(n2)) && n1.getStart() == n2.getStart() &&
           n1.getStop() == n2.getStop() && n1.getStep() == n2.getStep();
}

oaBoolean oaNameSpace::isEqual(const oaVectorBitName& n1, const oaVectorBitName& n2) const {
    return isEqual(baseOf(n1), baseOf(n2)) && n1.getIndex() == n2.getIndex();
}

oaBoolean oaNameSpace::isEqual(const oaSimpleName& n1, const oaSimpleName& n2) const {
    return isEqualName(*this, n1, n2);
}

oaBoolean oaNameSpace::isEqual(const oaName& n1, const oaName& n2) const {
    return isEqualName(*this, n1, n2);
}

oaBoolean oaNameSpace::isEqual(const oaNameMem& n1, const oaNameMem& n2) const {
    return n1 == n2;
}

void oaNameSpace::getInternalVBit(const oaChar* in, oaVectorBitName& out,
                                  oaBoolean baseOnly) const {
    if (baseOnly) {
        out = oaVectorBitName(oaScalarName(*this, in), out.getIndex());
        return;
    }
    const oaNameMem member = memberOf(*this, in);
    const auto indices = readForm(viewOf(member.getValue()), impl::kNativeIndexMarks, false);
    if (!indices)
        throw oaError(oacIndexedNameInvalid, in);
    out = oaVectorBitName(impl::NameAccess::scalar(indices->base, member.isCaseSensitive()),
                          indices->start);
}

void oaNameSpace::getInternalVector(const oaChar* in, oaVectorName& out, oaBoolean baseOnly) const {
    if (baseOnly) {
        out = oaVectorName(oaScalarName(*this, in), out.getStart(), out.getStop(), out.getStep());
        return;
    }
    const oaNameMem member = memberOf(*this, in);
    const auto indices = readForm(viewOf(member.getValue()), impl::kNativeIndexMarks, true);
    if (!indices)
        throw oaError(oacVectorNameInvalid, in);
    out = oaVectorName(impl::NameAccess::scalar(indices->base, member.isCaseSensitive()),
                       indices->start, indices->stop, indices->step);
}

void oaNameSpace::getVectorName(const oaVectorName& in, oaString& out, oaUInt4& loc) const {
    if (in.isEmpty())
        return;
    const oaNameMem base = impl::NameAccess::member(baseOf(in));
    const oaString text =
        base.getValue() + impl::spellIndices(indicesOf(in), impl::kNativeIndexMarks).c_str();
    getMember(text, base.isCaseSensitive(), out, loc);
}

void oaNameSpace::getVectorBitName(const oaVectorBitName& in, oaString& out, oaUInt4& loc) const {
    if (in.isEmpty())
        return;
    const oaNameMem base = impl::NameAccess::member(baseOf(in));
    const oaString text =
        base.getValue() + impl::spellIndices(indicesOf(in), impl::kNativeIndexMarks).c_str();
    getMember(text, base.isCaseSensitive(), out, loc);
}

void oaNameSpace::getSimpleName(const oaSimpleName& in, oaString& out, oaUInt4& loc) const {
    if (const oaScalarName* scalar = in.getScalar())
        getScalarName(*scalar, out, loc);
    else if (const oaVectorBitName* bit = in.getVectorBit())
        getVectorBitName(*bit, out, loc);
    else if (const oaVectorName* vector = in.getVector())
        getVectorName(*vector, out, loc);
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
    out.member_ = memberOf(*this, in);
}

void ScalarNameSpace::getScalarName(const oaScalarName& in, oaString& out, oaUInt4& loc) const {
    if (!in.isEmpty())
        getMember(in.member_.getValue(), in.member_.isCaseSensitive(), out, loc);
}

} // namespace impl

oaNameType oaNativeNS::getType(const oaChar* in) const {
    if (!in || !*in)
        return oacEmptyNameType;
    const auto indices = impl::readIndices(in, impl::kNativeIndexMarks);
    if (!indices)
        return oacScalarNameType;
    return indices->isRange ? oacVectorNameType : oacVectorBitNameType;
}

void oaNativeNS::getInternalMember(const oaChar* in, oaString& out, oaBoolean& caseSensitive,
                                   oaUInt4 len, oaUInt4) const {
    impl::requireText(in, len);
    out = oaString(in, len);
    caseSensitive = true;
}

void oaNativeNS::getMember(const oaChar* in, oaBoolean, oaString& out, oaUInt4& loc,
                           oaUInt4) const {
    const auto length = static_cast<oaUInt4>(std::strlen(in));
    if (loc + length >= out.getSize())
        out.resize(loc + length + 1);
    std::copy_n(in, length + 1, &out[loc]);
    loc += length;
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

void oaCdbaNS::getInternalVBit(const oaChar* in, oaVectorBitName& out, oaBoolean baseOnly) const {
    if (baseOnly)
        return oaNameSpace::getInternalVBit(in, out, baseOnly);
    impl::requireText(in, 1);
    const auto indices = readForm(in, impl::kCdbaIndexMarks, false);
    if (!indices)
        throw oaError(oacIndexedNameInvalid, in);
    out = oaVectorBitName(*this, std::string(indices->base).c_str(), indices->start);
}

void oaCdbaNS::getInternalVector(const oaChar* in, oaVectorName& out, oaBoolean baseOnly) const {
    if (baseOnly)
        return oaNameSpace::getInternalVector(in, out, baseOnly);
    impl::requireText(in, 1);
    const auto indices = readForm(in, impl::kCdbaIndexMarks, true);
    if (!indices)
        throw oaError(oacVectorNameInvalid, in);
    out = oaVectorName(*this, std::string(indices->base).c_str(), indices->start, indices->stop,
                       indices->step);
}

void oaCdbaNS::getVectorName(const oaVectorName& in, oaString& out, oaUInt4& loc) const {
    if (in.isEmpty())
        return;
    getScalarName(baseOf(in), out, loc);
    writeText(impl::spellIndices(indicesOf(in), impl::kCdbaIndexMarks), out, loc);
}

void oaCdbaNS::getVectorBitName(const oaVectorBitName& in, oaString& out, oaUInt4& loc) const {
    if (in.isEmpty())
        return;
    getScalarName(baseOf(in), out, loc);
    writeText(impl::spellIndices(indicesOf(in), impl::kCdbaIndexMarks), out, loc);
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
