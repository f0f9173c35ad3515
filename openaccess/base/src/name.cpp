#include "oaName.h"

#include "base/src/internal_form.h"
#include "base/src/name_chars.h"
#include "oaException.h"

#include <typeinfo>

namespace OpenAccess_4 {

using namespace impl;

namespace {

NamePath pathOrEmpty(const oaNameBase& name) {
    return name.isEmpty() ? NamePath() : NameAccess::path(name);
}

oaNameMem readMemberOf(const oaNameSpace& ns, const oaChar* in, oaUInt4 len) {
    oaString internal;
    oaBoolean caseSensitive = true;
    ns.getInternalMember(in, internal, caseSensitive, len);
    return oaNameMem(internal, caseSensitive);
}

void addAbove(oaNameBase& name, NamePath path, oaBoolean caseSensitive) {
    if (path.empty())
        return;
    const NamePath below = pathOrEmpty(name);
    if (below.empty() && path.back().index)
        throw oaError(oacHierNameInvalid, spellSimpleText({path}).c_str());
    path.insert(path.end(), below.begin(), below.end());
    const bool isBelowSensitive = !below.empty() && NameAccess::isCaseSensitive(name);
    NameAccess::assign(name, path, caseSensitive || isBelowSensitive);
}

std::optional<Indices> indexOf(const oaNameMem& member) {
    const oaChar* text = member.getValue();
    const std::optional<Indices> indices = readIndices(text, kInternalIndexMarks);
    return indices && !indices->isRange ? indices : std::nullopt;
}

} // namespace

oaBoolean oaNameMem::hasIndex() const {
    return indexOf(*this).has_value();
}

oaUInt4 oaNameMem::getIndex() const {
    const std::optional<Indices> index = indexOf(*this);
    return index ? index->start : 0;
}

void oaNameMem::getBaseName(oaString& out) const {
    const std::optional<Indices> index = indexOf(*this);
    out = index ? oaString(value_, oaUInt4(index->base.size())) : value_;
}

const oaString& NameAccess::text(const oaNameBase& name) {
    return name.text_;
}

std::string_view NameAccess::textView(const oaNameBase& name) {
    return {static_cast<const oaChar*>(name.text_), name.text_.getLength()};
}

oaBoolean NameAccess::isCaseSensitive(const oaNameBase& name) {
    return name.caseSensitive_;
}

void NameAccess::assign(oaNameBase& name, std::string_view text, oaBoolean caseSensitive) {
    name.text_ = oaString(text.data(), oaUInt4(text.size()));
    name.caseSensitive_ = caseSensitive != 0;
}

NamePath NameAccess::path(const oaNameBase& name) {
    return readScalarText(textView(name));
}

void NameAccess::assign(oaNameBase& name, const NamePath& path, oaBoolean caseSensitive) {
    assign(name, spellScalarText(path), caseSensitive);
}

void oaNameBase::addHierMem(const oaNameSpace& ns, const oaChar* in, oaUInt4 len) {
    addHierMem(readMemberOf(ns, in, len));
}

void oaNameBase::addHierMem(const oaNameMem& in) {
    NamePart part = partOf(in);
    if (!part.text.empty())
        addAbove(*this, {std::move(part)}, in.isCaseSensitive());
}

void oaNameBase::addHierPath(const oaScalarName& path) {
    addAbove(*this, formOf(path).path, NameAccess::isCaseSensitive(path));
}

void oaNameBase::addHierPath(const oaVectorBitName& path) {
    addAbove(*this, formOf(path).path, NameAccess::isCaseSensitive(path));
}

oaUInt4 oaNameBase::getNumMembers() const {
    return oaUInt4(pathOrEmpty(*this).size());
}

void oaNameBase::appendMember(const oaNameMem& in) {
    NamePart part = partOf(in);
    if (part.index)
        throw oaError(oacScalarNameInvalid, static_cast<const oaChar*>(in.getValue()));
    if (part.text.empty())
        return;
    NamePath path = pathOrEmpty(*this);
    const bool isAboveSensitive = !path.empty() && caseSensitive_;
    path.push_back(std::move(part));
    NameAccess::assign(*this, path, isAboveSensitive || in.isCaseSensitive());
}

void oaNameBase::appendMember(const oaNameSpace& ns, const oaChar* in, oaUInt4 len) {
    appendMember(readMemberOf(ns, in, len));
}

void oaScalarName::init(const oaNameSpace& ns, const oaChar* in) {
    ns.getInternalScalar(in, *this);
}

void oaScalarName::get(const oaNameSpace& ns, oaString& out) const {
    oaUInt4 loc = 0;
    out = "";
    ns.getScalarName(*this, out, loc);
}

void oaScalarName::append(const oaNameSpace& ns, const oaChar* in, oaUInt4 len, oaUInt4) {
    appendMember(ns, in, len);
}

void oaSimpleName::init(const oaNameSpace& ns, const oaChar* in) {
    switch (ns.getType(in)) {
    case oacVectorBitNameType:
        name_ = oaVectorBitName(ns, in);
        break;
    case oacVectorNameType:
        name_ = oaVectorName(ns, in);
        break;
    default: // which refuses what is no name at all
        name_ = oaScalarName(ns, in);
        // A scalar name alone is read as if there were no other forms.
        if (typeid(ns) == typeid(oaNativeNS) && !isScalarEverywhere(in)) {
            const NameForm form = readNameText(in);
            if (!std::holds_alternative<SimpleForm>(form))
                throw oaError(oacScalarNameInvalid, in);
            name_ = simpleNameOf(std::get<SimpleForm>(form), true).name_;
        }
    }
}

void oaSimpleName::get(const oaNameSpace& ns, oaString& out) const {
    oaUInt4 loc = 0;
    out = "";
    ns.getSimpleName(*this, out, loc);
}

void oaSimpleName::get(oaString& out) const {
    get(oaNativeNS(), out);
}

void oaSimpleName::getBitName(const oaNameSpace& ns, oaUInt4 bit, oaString& out) const {
    if (const oaVectorName* vector = getVector())
        return vector->getBitName(ns, bit, out);
    get(out);
    if (bit > 0)
        throw oaError(oacIndexedNameInvalid, static_cast<const oaChar*>(out));
    get(ns, out);
}

oaNameType oaSimpleName::getType() const {
    if (getScalar())
        return oacScalarNameType;
    if (getVectorBit())
        return oacVectorBitNameType;
    return getVector() ? oacVectorNameType : oacEmptyNameType;
}

oaUInt4 oaSimpleName::getNumMembers() const {
    return std::visit([](const auto& name) { return name.getNumMembers(); }, name_);
}

oaUInt4 oaSimpleName::getNumBits() const {
    return std::visit([](const auto& name) { return name.getNumBits(); }, name_);
}

void oaSimpleName::addHierMem(const oaNameSpace& ns, const oaChar* in, oaUInt4 len) {
    std::visit([&](auto& name) { name.addHierMem(ns, in, len); }, name_);
}

void oaSimpleName::addHierMem(const oaNameMem& in) {
    std::visit([&](auto& name) { name.addHierMem(in); }, name_);
}

void oaSimpleName::addHierPath(const oaScalarName& path) {
    std::visit([&](auto& name) { name.addHierPath(path); }, name_);
}

void oaSimpleName::addHierPath(const oaVectorBitName& path) {
    std::visit([&](auto& name) { name.addHierPath(path); }, name_);
}

void oaName::init(const oaNameSpace& ns, const oaChar* in) {
    if (ns.getType(in) == oacBundleNameType)
        name_ = oaBundleName(ns, in);
    else
        name_ = oaSimpleName(ns, in);
}

void oaName::get(const oaNameSpace& ns, oaString& out) const {
    std::visit([&](const auto& name) { name.get(ns, out); }, name_);
}

void oaName::get(oaString& out) const {
    get(oaNativeNS(), out);
}

void oaName::getBitName(const oaNameSpace& ns, oaUInt4 bit, oaString& out) const {
    std::visit([&](const auto& name) { name.getBitName(ns, bit, out); }, name_);
}

oaNameType oaName::getType() const {
    if (const oaSimpleName* name = simple())
        return name->getType();
    return getBundle() ? oacBundleNameType : oacEmptyNameType;
}

oaBundleName* oaName::getBundle() const {
    oaBundleName* bundle = std::get_if<oaBundleName>(&name_);
    return bundle && !bundle->isEmpty() ? bundle : nullptr;
}

oaUInt4 oaName::getNumBits() const {
    return std::visit([](const auto& name) { return name.getNumBits(); }, name_);
}

void oaName::addHierMem(const oaNameSpace& ns, const oaChar* in, oaUInt4 len) {
    std::visit([&](auto& name) { name.addHierMem(ns, in, len); }, name_);
}

void oaName::addHierMem(const oaNameMem& in) {
    std::visit([&](auto& name) { name.addHierMem(in); }, name_);
}

void oaName::addHierPath(const oaScalarName& path) {
    std::visit([&](auto& name) { name.addHierPath(path); }, name_);
}

void oaName::addHierPath(const oaVectorBitName& path) {
    std::visit([&](auto& name) { name.addHierPath(path); }, name_);
}

bool oaName::operator==(const oaName& other) const {
    return name_ == other.name_;
}

} // namespace OpenAccess_4
