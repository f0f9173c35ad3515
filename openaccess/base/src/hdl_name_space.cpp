#include "base/src/hdl_syntax.h"
#include "base/src/name_chars.h"
#include "oaException.h"
#include "oaName.h"

#include <cstring>

namespace OpenAccess_4 {

using namespace impl;

namespace {

// A language without repetition writes every name as often as it stands.
constexpr oaUInt4 kMostRepetitions = 65536;

std::optional<HdlName> read(const HdlSyntax& syntax, const oaChar* in, oaNameTypeEnum type) {
    requireText(in, 1);
    std::optional<HdlName> name = readHdlName(syntax, in);
    return name && name->form.type() == type ? name : std::nullopt;
}

} // namespace

namespace impl {

HdlNameSpace::HdlNameSpace(const HdlSyntax& syntax) : syntax_(&syntax) {}

oaNameType HdlNameSpace::getType(const oaChar* in) const {
    if (!in || !*in)
        return oacEmptyNameType;
    if (const std::optional<HdlName> name = readHdlName(*syntax_, in))
        return name->form.type();
    return readHdlBundle(*syntax_, in) ? oacBundleNameType : oacEmptyNameType;
}

void HdlNameSpace::getInternalMember(const oaChar* in, oaString& out, oaBoolean& caseSensitive,
                                     oaUInt4 len, oaUInt4) const {
    requireText(in, len);
    const std::string text(in, strnlen(in, len));
    const bool isIdentifier = syntax_->identifierLength(text) == text.size();
    const std::optional<ReadMember> member =
        isIdentifier ? syntax_->readIdentifier(text) : std::nullopt;
    if (!member)
        throw oaError(oacScalarNameInvalid, text.c_str());
    out = internalForm(member->bytes).c_str();
    caseSensitive = member->caseSensitive;
}

void HdlNameSpace::getInternalScalar(const oaChar* in, oaScalarName& out) const {
    const std::optional<HdlName> name = read(*syntax_, in, oacScalarNameType);
    if (!name)
        throw oaError(oacScalarNameInvalid, in);
    NameAccess::assign(out, name->form.path, name->caseSensitive);
}

void HdlNameSpace::getInternalVBit(const oaChar* in, oaVectorBitName& out,
                                   oaBoolean baseOnly) const {
    if (baseOnly) {
        out = oaVectorBitName(oaScalarName(*this, in), out.getIndex());
        return;
    }
    const std::optional<HdlName> name = read(*syntax_, in, oacVectorBitNameType);
    if (!name)
        throw oaError(oacIndexedNameInvalid, in);
    out = *simpleNameOf(name->form, name->caseSensitive).getVectorBit();
}

void HdlNameSpace::getInternalVector(const oaChar* in, oaVectorName& out,
                                     oaBoolean baseOnly) const {
    if (baseOnly) {
        out = oaVectorName(oaScalarName(*this, in), out.getStart(), out.getStop(), out.getStep());
        return;
    }
    const std::optional<HdlName> name = read(*syntax_, in, oacVectorNameType);
    if (!name)
        throw oaError(oacVectorNameInvalid, in);
    out = *simpleNameOf(name->form, name->caseSensitive).getVector();
}

void HdlNameSpace::getInternalBundle(const oaChar* in, oaBundleName& out) const {
    requireText(in, 1);
    const std::optional<std::vector<RepeatedHdlName>> members = readHdlBundle(*syntax_, in);
    if (!members)
        throw oaError(oacBundleNameInvalid, in);
    oaBundleName bundle;
    for (const RepeatedHdlName& member : *members)
        bundle.append(simpleNameOf(member.name.form, member.name.caseSensitive), member.repeat);
    out = bundle;
}

void HdlNameSpace::getMember(const oaChar* in, oaBoolean, oaString& out, oaUInt4& loc,
                             oaUInt4) const {
    writeText(syntax_->spellIdentifier(bytesOf(in)), out, loc);
}

void HdlNameSpace::getScalarName(const oaScalarName& in, oaString& out, oaUInt4& loc) const {
    if (!in.isEmpty())
        writeText(spellHdlName(*syntax_, formOf(in)), out, loc);
}

void HdlNameSpace::getVectorName(const oaVectorName& in, oaString& out, oaUInt4& loc) const {
    if (in.isEmpty())
        return;
    if (in.getStep() != 1) {
        oaString native;
        in.get(native);
        throw oaError(oacVectorNameInvalid, static_cast<const oaChar*>(native));
    }
    writeText(spellHdlName(*syntax_, formOf(in)), out, loc);
}

void HdlNameSpace::getVectorBitName(const oaVectorBitName& in, oaString& out, oaUInt4& loc) const {
    if (!in.isEmpty())
        writeText(spellHdlName(*syntax_, formOf(in)), out, loc);
}

void HdlNameSpace::getBundleName(const oaBundleName& in, oaString& out, oaUInt4& loc) const {
    for (oaUInt4 i = 0; i < in.getNumMembers(); ++i) {
        const oaUInt4 repeat = in[i].getRepeat();
        oaString name;
        in[i].get(*this, name);
        writeChar(i == 0 ? syntax_->openBundle : ',', out, loc);
        if (repeat == 1) {
            writeText(static_cast<const oaChar*>(name), out, loc);
        } else if (syntax_->hasRepetition) {
            writeText("{" + std::to_string(repeat) + "{" + static_cast<const oaChar*>(name) + "}}",
                      out, loc);
        } else {
            if (repeat > kMostRepetitions)
                throw oaError(oacBundleNameInvalid, static_cast<const oaChar*>(name));
            for (oaUInt4 n = 0; n < repeat; ++n)
                writeText((n > 0 ? "," : "") + std::string(static_cast<const oaChar*>(name)), out,
                          loc);
        }
    }
    if (!in.isEmpty())
        writeChar(syntax_->closeBundle, out, loc);
}

} // namespace impl

oaVerilogNS::oaVerilogNS() : HdlNameSpace(kVerilogSyntax) {}

oaVhdlNS::oaVhdlNS() : HdlNameSpace(kVhdlSyntax) {}

} // namespace OpenAccess_4
