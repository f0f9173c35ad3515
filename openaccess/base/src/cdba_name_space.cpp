#include "base/src/internal_form.h"
#include "base/src/name_chars.h"
#include "oaException.h"
#include "oaName.h"

#include <charconv>
#include <cstring>

namespace OpenAccess_4 {

using namespace impl;

namespace {

// Groups are written out when they are read, and a short text can ask for very many names.
constexpr std::size_t kMostBundleMembers = 65536;
constexpr int kDeepestGroup = 32;

bool isStructural(oaChar c) {
    return std::strchr("<>`(),/\\", c) != nullptr;
}

bool isKept(oaChar c) {
    return c > ' ' && c < 0x7f && c != '#' && !isStructural(c);
}

/// The indices of a name, which must be those of a bit, or of a range.
std::optional<Indices> readForm(std::string_view text, bool isRange) {
    const std::optional<Indices> indices = readIndices(text, kCdbaIndexMarks);
    return indices && indices->isRange == isRange ? indices : std::nullopt;
}

void writeIndices(const Indices& indices, oaString& out, oaUInt4& loc) {
    writeText(spellIndices(indices, kCdbaIndexMarks), out, loc);
}

template <class Name>
oaScalarName baseOf(const Name& name) {
    oaScalarName base;
    name.getBaseName(base);
    return base;
}

/// Reads a list of names with repetitions and groups.
class BundleReader {
public:
    BundleReader(const oaNameSpace& ns, const oaChar* in) : ns_(ns), in_(in), rest_(in) {}

    oaBundleName read() {
        const std::vector<Item> items = readList(0);
        if (!rest_.empty())
            refuse();
        oaBundleName bundle;
        for (const Item& item : items)
            bundle.append(item.name, item.repeat);
        return bundle;
    }

private:
    struct Item {
        oaSimpleName name;
        oaUInt4 repeat;
    };

    [[noreturn]] void refuse() const { throw oaError(oacBundleNameInvalid, in_); }

    bool take(std::string_view expected) {
        if (!rest_.starts_with(expected))
            return false;
        rest_.remove_prefix(expected.size());
        return true;
    }

    oaUInt4 takeRepeat() {
        if (!take("<*"))
            return 1;
        oaUInt4 repeat = 0;
        const auto [end, error] =
            std::from_chars(rest_.data(), rest_.data() + rest_.size(), repeat);
        if (error != std::errc() || repeat == 0)
            refuse();
        rest_.remove_prefix(std::size_t(end - rest_.data()));
        if (!take(">"))
            refuse();
        return repeat;
    }

    std::vector<Item> readList(int depth) {
        std::vector<Item> items;
        do {
            const oaUInt4 repeat = takeRepeat();
            if (take("("))
                addGroup(readGroup(depth + 1), repeat, items);
            else
                items.push_back({readSimple(), repeat});
            if (items.size() > kMostBundleMembers)
                refuse();
        } while (take(","));
        return items;
    }

    std::vector<Item> readGroup(int depth) {
        if (depth > kDeepestGroup)
            refuse();
        std::vector<Item> group = readList(depth);
        if (!take(")"))
            refuse();
        return group;
    }

    void addGroup(const std::vector<Item>& group, oaUInt4 repeat, std::vector<Item>& items) const {
        if (group.size() * oaUInt8(repeat) > kMostBundleMembers)
            refuse();
        for (oaUInt4 i = 0; i < repeat; ++i)
            items.insert(items.end(), group.begin(), group.end());
    }

    oaSimpleName readSimple() {
        const std::string text(rest_.substr(0, rest_.find_first_of(",()")));
        rest_.remove_prefix(text.size());
        if (text.empty() || ns_.getType(text.c_str()) == oacBundleNameType)
            refuse();
        return oaSimpleName(ns_, text.c_str());
    }

    const oaNameSpace& ns_;
    const oaChar* in_;
    std::string_view rest_;
};

} // namespace

oaNameType oaCdbaNS::getType(const oaChar* in) const {
    if (!in || !*in)
        return oacEmptyNameType;
    if (std::strpbrk(in, ",(") || std::strncmp(in, "<*", 2) == 0)
        return oacBundleNameType;
    const std::string_view text(in);
    if (text.back() != '>')
        return oacScalarNameType;
    const std::size_t open = text.rfind('<');
    const bool isRange = open != std::string_view::npos && text.find(':', open) != text.npos;
    return isRange ? oacVectorNameType : oacVectorBitNameType;
}

void oaCdbaNS::getInternalMember(const oaChar* in, oaString& out, oaBoolean& caseSensitive,
                                 oaUInt4 len, oaUInt4) const {
    requireText(in, len);
    const std::string text(in, strnlen(in, len));
    for (const char c : text) {
        if (isStructural(c))
            throw oaError(oacScalarNameInvalid, text.c_str());
    }
    out = internalForm(decoded(text)).c_str();
    caseSensitive = true;
}

void oaCdbaNS::getInternalScalar(const oaChar* in, oaScalarName& out) const {
    requireText(in, 1);
    NamePath path;
    bool caseSensitive = false;
    for (std::string_view rest(in);;) {
        const std::size_t end = rest.find('/');
        std::string_view piece = rest.substr(0, end);
        const bool isLast = end == std::string_view::npos;
        const std::optional<Indices> bit = isLast ? std::nullopt : readForm(piece, false);
        if (bit)
            piece = bit->base;
        if (piece.empty())
            throw oaError(oacHierNameInvalid, in);
        ReadMember member = readMember(*this, piece);
        caseSensitive = caseSensitive || member.caseSensitive;
        path.push_back({std::move(member.bytes)});
        if (bit)
            path.back().index = bit->start;
        if (isLast)
            break;
        rest.remove_prefix(end + 1);
    }
    NameAccess::assign(out, path, caseSensitive);
}

void oaCdbaNS::getInternalVBit(const oaChar* in, oaVectorBitName& out, oaBoolean baseOnly) const {
    if (baseOnly)
        return oaNameSpace::getInternalVBit(in, out, baseOnly);
    requireText(in, 1);
    const auto indices = readForm(in, false);
    if (!indices)
        throw oaError(oacIndexedNameInvalid, in);
    out = oaVectorBitName(*this, std::string(indices->base).c_str(), indices->start);
}

void oaCdbaNS::getInternalVector(const oaChar* in, oaVectorName& out, oaBoolean baseOnly) const {
    if (baseOnly)
        return oaNameSpace::getInternalVector(in, out, baseOnly);
    requireText(in, 1);
    const auto indices = readForm(in, true);
    if (!indices)
        throw oaError(oacVectorNameInvalid, in);
    out = oaVectorName(*this, std::string(indices->base).c_str(), indices->start, indices->stop,
                       indices->step);
}

void oaCdbaNS::getInternalBundle(const oaChar* in, oaBundleName& out) const {
    requireText(in, 1);
    out = BundleReader(*this, in).read();
}

void oaCdbaNS::getMember(const oaChar* in, oaBoolean, oaString& out, oaUInt4& loc, oaUInt4) const {
    for (const char c : bytesOf(in)) {
        if (isKept(c))
            writeChar(c, out, loc);
        else
            encodeChar(static_cast<oaByte>(c), out, loc);
    }
}

void oaCdbaNS::getScalarName(const oaScalarName& in, oaString& out, oaUInt4& loc) const {
    if (in.isEmpty())
        return;
    const oaBoolean caseSensitive = NameAccess::isCaseSensitive(in);
    bool isFirst = true;
    for (const NamePart& part : NameAccess::path(in)) {
        if (!isFirst)
            writeChar('/', out, loc);
        isFirst = false;
        writeMember(*this, part.text, caseSensitive, out, loc);
        if (part.index)
            writeIndices({{}, *part.index}, out, loc);
    }
}

void oaCdbaNS::getVectorName(const oaVectorName& in, oaString& out, oaUInt4& loc) const {
    if (in.isEmpty())
        return;
    getScalarName(baseOf(in), out, loc);
    writeIndices({{}, in.getStart(), in.getStop(), in.getStep(), true}, out, loc);
}

void oaCdbaNS::getVectorBitName(const oaVectorBitName& in, oaString& out, oaUInt4& loc) const {
    if (in.isEmpty())
        return;
    getScalarName(baseOf(in), out, loc);
    writeIndices({{}, in.getIndex()}, out, loc);
}

void oaCdbaNS::getBundleName(const oaBundleName& in, oaString& out, oaUInt4& loc) const {
    for (oaUInt4 i = 0; i < in.getNumMembers(); ++i) {
        if (i > 0)
            writeChar(',', out, loc);
        // A bundle of one name once would be taken for that name.
        if (in[i].getRepeat() > 1 || in.getNumMembers() == 1)
            writeText("<*" + std::to_string(in[i].getRepeat()) + ">", out, loc);
        getSimpleName(in[i], out, loc);
    }
}

} // namespace OpenAccess_4
