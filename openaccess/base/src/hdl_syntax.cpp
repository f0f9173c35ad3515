#include "base/src/hdl_syntax.h"

#include <algorithm>
#include <charconv>

namespace OpenAccess_4::impl {

namespace {

bool take(std::string_view& text, char expected) {
    if (text.empty() || text.front() != expected)
        return false;
    text.remove_prefix(1);
    return true;
}

void skipBlanks(std::string_view& text) {
    while (take(text, ' '))
        ;
}

bool takeNumber(std::string_view& text, oaUInt4& number) {
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc())
        return false;
    text.remove_prefix(std::size_t(end - text.data()));
    return true;
}

/// Takes what stands between two indices, in which the case of letters means nothing.
bool takeWord(std::string_view& text, std::string_view word) {
    const auto isSame = [](char wanted, char written) {
        return written == wanted || (wanted >= 'a' && wanted <= 'z' && (written | 0x20) == wanted);
    };
    if (text.size() < word.size() || !std::equal(word.begin(), word.end(), text.begin(), isSame))
        return false;
    text.remove_prefix(word.size());
    return true;
}

std::optional<Indices> takeIndices(const HdlSyntax& syntax, std::string_view& text) {
    Indices indices;
    if (!take(text, syntax.openIndex) || !takeNumber(text, indices.start))
        return std::nullopt;
    const bool falls = takeWord(text, syntax.falling);
    indices.isRange = falls || takeWord(text, syntax.rising);
    if (indices.isRange && !takeNumber(text, indices.stop))
        return std::nullopt;
    // A range that runs against its word has no bits.
    const bool isEmpty = syntax.falling != syntax.rising &&
                         (falls ? indices.start < indices.stop : indices.start > indices.stop);
    if (!take(text, syntax.closeIndex) || (indices.isRange && isEmpty))
        return std::nullopt;
    return indices;
}

std::optional<HdlName> takeName(const HdlSyntax& syntax, std::string_view& text) {
    HdlName name;
    for (;;) {
        const std::size_t length = syntax.identifierLength(text);
        const std::optional<ReadMember> member =
            length > 0 ? syntax.readIdentifier(text.substr(0, length)) : std::nullopt;
        if (!member)
            return std::nullopt;
        text.remove_prefix(length);
        name.form.path.push_back({member->bytes});
        name.caseSensitive = name.caseSensitive || member->caseSensitive;
        if (!text.empty() && text.front() == syntax.openIndex) {
            const std::optional<Indices> indices = takeIndices(syntax, text);
            if (!indices)
                return std::nullopt;
            name.form = withIndices(std::move(name.form.path), *indices);
        }
        if (name.form.range || !take(text, '.'))
            return name;
    }
}

std::optional<RepeatedHdlName> takeMember(const HdlSyntax& syntax, std::string_view& text) {
    oaUInt4 repeat = 1;
    const bool isRepeated = syntax.hasRepetition && take(text, syntax.openBundle);
    if (isRepeated && (!takeNumber(text, repeat) || repeat == 0 || !take(text, syntax.openBundle)))
        return std::nullopt;
    std::optional<HdlName> name = takeName(syntax, text);
    if (isRepeated && (!take(text, syntax.closeBundle) || !take(text, syntax.closeBundle)))
        return std::nullopt;
    if (!name)
        return std::nullopt;
    return RepeatedHdlName{std::move(*name), repeat};
}

std::string spellHdlIndices(const HdlSyntax& syntax, oaUInt4 start,
                            std::optional<oaUInt4> stop = std::nullopt) {
    std::string text = syntax.openIndex + std::to_string(start);
    if (stop)
        text += std::string(start > *stop ? syntax.falling : syntax.rising) + std::to_string(*stop);
    return text + syntax.closeIndex;
}

} // namespace

std::optional<HdlName> readHdlName(const HdlSyntax& syntax, std::string_view text) {
    std::optional<HdlName> name = takeName(syntax, text);
    return text.empty() ? name : std::nullopt;
}

std::optional<std::vector<RepeatedHdlName>> readHdlBundle(const HdlSyntax& syntax,
                                                          std::string_view text) {
    if (!take(text, syntax.openBundle))
        return std::nullopt;
    std::vector<RepeatedHdlName> bundle;
    do {
        skipBlanks(text);
        std::optional<RepeatedHdlName> member = takeMember(syntax, text);
        if (!member)
            return std::nullopt;
        bundle.push_back(std::move(*member));
        skipBlanks(text);
    } while (take(text, ','));
    if (!take(text, syntax.closeBundle) || !text.empty())
        return std::nullopt;
    return bundle;
}

std::string spellHdlName(const HdlSyntax& syntax, const SimpleForm& name) {
    std::string text;
    for (const NamePart& part : name.path) {
        text += text.empty() ? "" : ".";
        text += syntax.spellIdentifier(part.text);
        if (part.index)
            text += spellHdlIndices(syntax, *part.index);
    }
    return name.range ? text + spellHdlIndices(syntax, name.range->start, name.range->stop) : text;
}

bool isOneOf(std::span<const std::string_view> words, std::string_view word) {
    return std::binary_search(words.begin(), words.end(), word);
}

} // namespace OpenAccess_4::impl
