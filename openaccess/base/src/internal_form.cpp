#include "base/src/internal_form.h"

#include "base/src/name_chars.h"
#include "oaName.h"

#include <cstring>
#include <utility>

namespace OpenAccess_4::impl {

namespace {

bool isPlainInternally(oaChar c) {
    const oaByte byte = static_cast<oaByte>(c);
    return byte >= 0x80 || (byte > ' ' && byte < 0x7f && !std::strchr("<>`(),/\\", c));
}

std::string_view viewOf(const oaString& text) {
    return {static_cast<const oaChar*>(text), text.getLength()};
}

template <class Name>
SimpleForm pathOf(const Name& name) {
    return SimpleForm{name.isEmpty() ? NamePath() : NameAccess::path(name)};
}

} // namespace

std::string encodedBytes(std::string_view bytes, bool (*isPlain)(oaChar c)) {
    std::string text;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        const bool misleads = i + 2 < bytes.size() && isEncodedChar(bytes.data() + i);
        if (isPlain(bytes[i]) && !misleads)
            text += bytes[i];
        else
            text += encoded(static_cast<oaByte>(bytes[i]));
    }
    return text;
}

std::string internalForm(std::string_view bytes) {
    return encodedBytes(bytes, isPlainInternally);
}

std::string decoded(std::string_view text) {
    std::string bytes;
    while (!text.empty()) {
        const bool isCode = text.size() > 2 && isEncodedChar(text.data());
        bytes += isCode ? static_cast<char>(decodeChar(text.data() + 1)) : text.front();
        text.remove_prefix(isCode ? 3 : 1);
    }
    return bytes;
}

std::string bytesOf(const oaChar* internal) {
    return decoded(internal);
}

oaNameMem memberOf(const NamePart& part, oaBoolean caseSensitive) {
    std::string text = internalForm(part.text);
    if (part.index)
        text += spellIndices({{}, *part.index}, kInternalIndexMarks);
    return oaNameMem(text.c_str(), caseSensitive);
}

NamePart partOf(const oaNameMem& member) {
    const std::string_view text = viewOf(member.getValue());
    const std::optional<Indices> indices = readIndices(text, kInternalIndexMarks);
    if (!indices || indices->isRange)
        return {decoded(text)};
    return {decoded(indices->base), indices->start};
}

ReadMember readMember(const oaNameSpace& ns, std::string_view text) {
    const std::string ended(text);
    oaString internal;
    oaBoolean caseSensitive = true;
    ns.getInternalMember(ended.c_str(), internal, caseSensitive, oaUInt4(ended.size()));
    return {bytesOf(internal), caseSensitive != 0};
}

void writeMember(const oaNameSpace& ns, std::string_view bytes, oaBoolean caseSensitive,
                 oaString& out, oaUInt4& loc) {
    ns.getMember(internalForm(bytes).c_str(), caseSensitive, out, loc);
}

void writeText(std::string_view text, oaString& out, oaUInt4& loc) {
    for (const char c : text)
        writeChar(c, out, loc);
}

SimpleForm formOf(const oaScalarName& name) {
    return pathOf(name);
}

SimpleForm formOf(const oaVectorBitName& name) {
    SimpleForm form = pathOf(name);
    if (!form.path.empty())
        form.path.back().index = name.getIndex();
    return form;
}

SimpleForm formOf(const oaVectorName& name) {
    SimpleForm form = pathOf(name);
    if (!form.path.empty())
        form.range = NameRange{name.getStart(), name.getStop(), name.getStep()};
    return form;
}

SimpleForm formOf(const oaSimpleName& name) {
    if (const oaVectorBitName* bit = name.getVectorBit())
        return formOf(*bit);
    if (const oaVectorName* vector = name.getVector())
        return formOf(*vector);
    return name.getScalar() ? formOf(*name.getScalar()) : SimpleForm();
}

BundleForm formOf(const oaBundleName& name) {
    BundleForm form;
    for (oaUInt4 i = 0; i < name.getNumMembers(); ++i)
        form.push_back({formOf(name[i]), name[i].getRepeat()});
    return form;
}

oaSimpleName simpleNameOf(const SimpleForm& form, oaBoolean caseSensitive) {
    oaScalarName base;
    NamePath path = form.path;
    const std::optional<oaUInt4> index = std::exchange(path.back().index, std::nullopt);
    NameAccess::assign(base, path, caseSensitive);
    if (form.range)
        return oaVectorName(base, form.range->start, form.range->stop, form.range->step);
    return index ? oaSimpleName(oaVectorBitName(base, *index)) : oaSimpleName(base);
}

oaBundleName bundleNameOf(const BundleForm& form, oaBoolean caseSensitive) {
    oaBundleName bundle;
    for (const RepeatedForm& member : form)
        bundle.append(simpleNameOf(member.name, caseSensitive), member.repeat);
    return bundle;
}

} // namespace OpenAccess_4::impl
