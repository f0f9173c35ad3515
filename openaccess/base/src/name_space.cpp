#include "oaNameSpace.h"

#include "base/src/internal_form.h"
#include "base/src/name_chars.h"
#include "base/src/same_bundle.h"
#include "oaException.h"
#include "oaName.h"

#include <algorithm>
#include <cstring>

namespace OpenAccess_4 {

using namespace impl;

namespace {

/// Compares two names of which the forms may differ.
template <class Name>
oaBoolean isEqualSimple(const oaNameSpace& ns, const Name& n1, const Name& n2) {
    if (n1.getType() != n2.getType())
        return false;
    if (const oaScalarName* scalar = n1.getScalar())
        return ns.isEqual(*scalar, *n2.getScalar());
    if (const oaVectorBitName* bit = n1.getVectorBit())
        return ns.isEqual(*bit, *n2.getVectorBit());
    const oaVectorName* vector = n1.getVector();
    return !vector || ns.isEqual(*vector, *n2.getVector());
}

oaBoolean hasEqualMembers(const oaNameSpace& ns, const oaNameBase& n1, const oaNameBase& n2) {
    if (n1.isEmpty() || n2.isEmpty())
        return n1.isEmpty() == n2.isEmpty();
    const NamePath path1 = NameAccess::path(n1);
    const NamePath path2 = NameAccess::path(n2);
    const oaBoolean case1 = NameAccess::isCaseSensitive(n1);
    const oaBoolean case2 = NameAccess::isCaseSensitive(n2);
    return std::equal(path1.begin(), path1.end(), path2.begin(), path2.end(),
                      [&](const NamePart& part1, const NamePart& part2) {
                          return ns.isEqual(memberOf(part1, case1), memberOf(part2, case2));
                      });
}

template <class Name>
oaScalarName baseOf(const Name& name) {
    oaScalarName base;
    name.getBaseName(base);
    return base;
}

oaScalarName hierarchicalName(const oaNameMem* members, oaUInt4 numMembers) {
    oaScalarName name;
    name.append(members[numMembers - 1]);
    for (oaUInt4 i = numMembers - 1; i > 0; --i)
        name.addHierMem(members[i - 1]);
    return name;
}

/// A name whose native spelling is spelled as one member, in a name space that has no other.
struct NativeSpelling {
    NameForm form;
    bool caseSensitive;

    const SimpleForm* simple(oaNameTypeEnum type) const {
        const SimpleForm* name = std::get_if<SimpleForm>(&form);
        return name && name->type() == type ? name : nullptr;
    }
};

NativeSpelling readNativeSpelling(const oaNameSpace& ns, const oaChar* in) {
    requireText(in, 1);
    const ReadMember member = readMember(ns, in);
    return {readNameText(member.bytes), member.caseSensitive};
}

} // namespace

oaNameSpace::oaNameSpace() = default;
oaNameSpace::oaNameSpace(const oaNameSpace&) = default;
oaNameSpace& oaNameSpace::operator=(const oaNameSpace&) = default;
oaNameSpace::~oaNameSpace() = default;

oaBoolean oaNameSpace::isEqual(const oaScalarName& n1, const oaScalarName& n2) const {
    return hasEqualMembers(*this, n1, n2);
}

oaBoolean oaNameSpace::isEqual(const oaVectorName& n1, const oaVectorName& n2) const {
    return isEqual(baseOf(n1), baseOf(n2)) && n1.getStart() == n2.getStart() &&
           n1.getStop() == n2.getStop() && n1.getStep() == n2.getStep();
}

oaBoolean oaNameSpace::isEqual(const oaVectorBitName& n1, const oaVectorBitName& n2) const {
    return isEqual(baseOf(n1), baseOf(n2)) && n1.getIndex() == n2.getIndex();
}

oaBoolean oaNameSpace::isEqual(const oaBundleName& n1, const oaBundleName& n2) const {
    return isSameBundle(n1, n2, [this](const oaSimpleName& member1, const oaSimpleName& member2) {
        return isEqual(member1, member2) != 0;
    });
}

oaBoolean oaNameSpace::isEqual(const oaSimpleName& n1, const oaSimpleName& n2) const {
    return isEqualSimple(*this, n1, n2);
}

oaBoolean oaNameSpace::isEqual(const oaName& n1, const oaName& n2) const {
    if (n1.getBundle() && n2.getBundle())
        return isEqual(*n1.getBundle(), *n2.getBundle());
    return isEqualSimple(*this, n1, n2);
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
    const NativeSpelling name = readNativeSpelling(*this, in);
    const SimpleForm* bit = name.simple(oacVectorBitNameType);
    if (!bit)
        throw oaError(oacIndexedNameInvalid, in);
    out = *simpleNameOf(*bit, name.caseSensitive).getVectorBit();
}

void oaNameSpace::getInternalVector(const oaChar* in, oaVectorName& out, oaBoolean baseOnly) const {
    if (baseOnly) {
        out = oaVectorName(oaScalarName(*this, in), out.getStart(), out.getStop(), out.getStep());
        return;
    }
    const NativeSpelling name = readNativeSpelling(*this, in);
    const SimpleForm* vector = name.simple(oacVectorNameType);
    if (!vector)
        throw oaError(oacVectorNameInvalid, in);
    out = *simpleNameOf(*vector, name.caseSensitive).getVector();
}

void oaNameSpace::getInternalBundle(const oaChar* in, oaBundleName& out) const {
    const NativeSpelling name = readNativeSpelling(*this, in);
    const BundleForm* bundle = std::get_if<BundleForm>(&name.form);
    if (!bundle)
        throw oaError(oacBundleNameInvalid, in);
    out = bundleNameOf(*bundle, name.caseSensitive);
}

void oaNameSpace::getMemberArray(const oaNameMem* in, oaUInt4 numMembers, oaString& out,
                                 oaUInt4& loc) const {
    if (numMembers == 0)
        return;
    const oaNameMem& last = in[numMembers - 1];
    if (!last.hasIndex())
        return getScalarName(hierarchicalName(in, numMembers), out, loc);
    std::vector<oaNameMem> members(in, in + numMembers);
    oaString base;
    last.getBaseName(base);
    members.back() = oaNameMem(base, last.isCaseSensitive());
    getVectorBitName(members.data(), numMembers, last.getIndex(), out, loc);
}

void oaNameSpace::getVectorName(const oaVectorName& in, oaString& out, oaUInt4& loc) const {
    if (!in.isEmpty())
        writeMember(*this, spellSimpleText(formOf(in)), NameAccess::isCaseSensitive(in), out, loc);
}

void oaNameSpace::getVectorBitName(const oaVectorBitName& in, oaString& out, oaUInt4& loc) const {
    if (!in.isEmpty())
        writeMember(*this, spellSimpleText(formOf(in)), NameAccess::isCaseSensitive(in), out, loc);
}

void oaNameSpace::getVectorBitName(const oaNameMem* in, oaUInt4 numMembers, oaUInt4 start,
                                   oaString& out, oaUInt4& loc) const {
    if (numMembers == 0)
        return;
    getVectorBitName(oaVectorBitName(hierarchicalName(in, numMembers), start), out, loc);
}

void oaNameSpace::getBundleName(const oaBundleName& in, oaString& out, oaUInt4& loc) const {
    if (!in.isEmpty())
        writeMember(*this, spellBundleText(formOf(in)), true, out, loc);
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
    requireText(in, 1);
    const ReadMember member = readMember(*this, in);
    NameAccess::assign(out, member.bytes, member.caseSensitive);
}

void ScalarNameSpace::getScalarName(const oaScalarName& in, oaString& out, oaUInt4& loc) const {
    if (!in.isEmpty())
        writeMember(*this, NameAccess::textView(in), NameAccess::isCaseSensitive(in), out, loc);
}

} // namespace impl

oaNameType oaNativeNS::getType(const oaChar* in) const {
    if (!in || !*in)
        return oacEmptyNameType;
    if (isScalarEverywhere(in))
        return oacScalarNameType;
    const NameForm form = readNameText(in);
    const SimpleForm* simple = std::get_if<SimpleForm>(&form);
    return simple ? simple->type() : oacBundleNameType;
}

void oaNativeNS::getInternalMember(const oaChar* in, oaString& out, oaBoolean& caseSensitive,
                                   oaUInt4 len, oaUInt4) const {
    requireText(in, len);
    out = internalForm({in, strnlen(in, len)}).c_str();
    caseSensitive = true;
}

void oaNativeNS::getInternalScalar(const oaChar* in, oaScalarName& out) const {
    requireText(in, 1);
    NameAccess::assign(out, std::string_view(in), true);
}

void oaNativeNS::getMember(const oaChar* in, oaBoolean, oaString& out, oaUInt4& loc,
                           oaUInt4) const {
    writeText(bytesOf(in), out, loc);
}

void oaNativeNS::getScalarName(const oaScalarName& in, oaString& out, oaUInt4& loc) const {
    writeText(NameAccess::textView(in), out, loc);
}

void oaNativeNS::getSimpleName(const oaSimpleName& in, oaString& out, oaUInt4& loc) const {
    const oaScalarName* scalar = in.getScalar();
    if (scalar && !isScalarEverywhere(NameAccess::textView(*scalar)))
        writeText(spellSimpleText(formOf(*scalar)), out, loc);
    else
        oaNameSpace::getSimpleName(in, out, loc);
}

} // namespace OpenAccess_4
