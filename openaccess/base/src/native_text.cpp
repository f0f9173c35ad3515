#include "base/src/native_text.h"

namespace OpenAccess_4::impl {

namespace {

constexpr char kHierDelimiter = '/';
constexpr char kEscape = '\\';
constexpr std::string_view kMisleading = "/\\[{},*";

std::string indicesOf(const SimpleForm& name) {
    const NamePart& last = name.path.back();
    if (name.range)
        return spellIndices({{}, name.range->start, name.range->stop, name.range->step, true},
                            kNativeIndexMarks);
    return last.index ? spellIndices({{}, *last.index}, kNativeIndexMarks) : std::string();
}

/// Writes a name, each of its texts as `write` does.
template <class Write>
std::string spell(const SimpleForm& name, Write write) {
    std::string text;
    for (std::size_t i = 0; i + 1 < name.path.size(); ++i) {
        text += write(name.path[i].text);
        text +=
            name.path[i].index ? spellIndices({{}, *name.path[i].index}, kNativeIndexMarks) : "";
        text += kHierDelimiter;
    }
    return text + write(name.path.back().text) + indicesOf(name);
}

std::string plain(const SimpleForm& name) {
    return spell(name, [](const std::string& text) { return text; });
}

std::string marked(const SimpleForm& name) {
    return spell(name, [](const std::string& text) {
        std::string written;
        for (const char c : text) {
            if (kMisleading.find(c) != std::string_view::npos)
                written += kEscape;
            written += c;
        }
        return written;
    });
}

/// Takes the bytes of a member, of which the misleading ones are marked.
std::optional<std::string> takeMarkedText(std::string_view& text) {
    std::string bytes;
    while (!text.empty() && text.front() != kHierDelimiter && text.front() != '[') {
        const bool isMisleading = kMisleading.find(text.front()) != std::string_view::npos;
        if (text.front() == kEscape && text.size() > 1 &&
            kMisleading.find(text[1]) != std::string_view::npos)
            text.remove_prefix(1);
        else if (isMisleading)
            return std::nullopt;
        bytes += text.front();
        text.remove_prefix(1);
    }
    return bytes.empty() ? std::nullopt : std::optional(bytes);
}

/// Reads "[...]"; nothing when the text is no indices alone.
std::optional<Indices> readIndicesAlone(std::string_view text) {
    const std::string withBase = "x" + std::string(text);
    std::optional<Indices> indices = readIndices(withBase, kNativeIndexMarks);
    if (!indices || indices->base.size() != 1)
        return std::nullopt;
    indices->base = {};
    return indices;
}

/// Takes "[...]"; nothing when the text starts with no indices.
std::optional<Indices> takeIndices(std::string_view& text) {
    const std::size_t close = text.find(']');
    if (close == std::string_view::npos)
        return std::nullopt;
    const std::optional<Indices> indices = readIndicesAlone(text.substr(0, close + 1));
    text.remove_prefix(close + 1);
    return indices;
}

/// Reads what marked() writes, and nothing else.
std::optional<SimpleForm> readMarked(std::string_view text) {
    NamePath path;
    for (;;) {
        std::optional<std::string> bytes = takeMarkedText(text);
        if (!bytes)
            return std::nullopt;
        path.push_back({std::move(*bytes)});
        if (!text.empty() && text.front() == '[') {
            const std::optional<Indices> indices = takeIndices(text);
            if (!indices || (indices->isRange && !text.empty()))
                return std::nullopt;
            if (text.empty())
                return withIndices(std::move(path), *indices);
            path.back().index = indices->start;
        }
        if (text.empty())
            return SimpleForm{std::move(path)};
        if (text.front() != kHierDelimiter)
            return std::nullopt;
        text.remove_prefix(1);
    }
}

/// Splits a text where there is a member on either side of every delimiter.
NamePath readPlainScalar(std::string_view text) {
    NamePath path;
    for (std::string_view rest = text;;) {
        const std::size_t end = rest.find(kHierDelimiter);
        const std::string_view piece = rest.substr(0, end);
        if (piece.empty())
            return {{std::string(text)}};
        const auto indices = readIndices(piece, kNativeIndexMarks);
        if (end == std::string_view::npos) {
            path.push_back({std::string(piece)});
            return path;
        }
        if (indices && !indices->isRange)
            path.push_back({std::string(indices->base), indices->start});
        else
            path.push_back({std::string(piece)});
        rest.remove_prefix(end + 1);
    }
}

bool isMarkedScalar(const std::optional<SimpleForm>& name, std::string_view text) {
    return name && name->type() == oacScalarNameType && spellScalarText(name->path) == text;
}

/// Takes "<number>*"; 1 when there is none.
oaUInt4 takeRepeat(std::string_view& text) {
    const std::size_t end = text.find('*');
    if (end == std::string_view::npos || end == 0 || text.front() == '0')
        return 1;
    const std::optional<Indices> number =
        readIndicesAlone("[" + std::string(text.substr(0, end)) + "]");
    if (!number || number->isRange || number->start < 2)
        return 1;
    text.remove_prefix(end + 1);
    return number->start;
}

/// Takes what stands before the next "," that is not marked.
std::string_view takePiece(std::string_view& text) {
    std::size_t end = 0;
    while (end < text.size() && text[end] != ',')
        end += text[end] == kEscape ? 2 : 1;
    const std::string_view piece = text.substr(0, end);
    text.remove_prefix(piece.size());
    return piece;
}

std::optional<BundleForm> readBundle(std::string_view text) {
    if (text.size() < 3 || text.front() != '{' || text.back() != '}')
        return std::nullopt;
    BundleForm bundle;
    std::string_view inside = text.substr(1, text.size() - 2);
    for (;;) {
        std::string_view piece = takePiece(inside);
        const oaUInt4 repeat = takeRepeat(piece);
        std::optional<SimpleForm> name = readMarked(piece);
        if (!name)
            return std::nullopt;
        bundle.push_back({std::move(*name), repeat});
        if (inside.empty())
            return bundle;
        inside.remove_prefix(1);
        if (inside.empty())
            return std::nullopt;
    }
}

NameForm readPlainName(std::string_view text) {
    if (std::optional<BundleForm> bundle = readBundle(text))
        return std::move(*bundle);
    if (const std::optional<Indices> indices = readIndices(text, kNativeIndexMarks))
        return withIndices(readPlainScalar(indices->base), *indices);
    return SimpleForm{readPlainScalar(text)};
}

} // namespace

oaNameTypeEnum SimpleForm::type() const {
    if (path.empty())
        return oacEmptyNameType;
    if (range)
        return oacVectorNameType;
    return path.back().index ? oacVectorBitNameType : oacScalarNameType;
}

SimpleForm withIndices(NamePath base, const Indices& indices) {
    SimpleForm name{std::move(base)};
    if (indices.isRange)
        name.range = NameRange{indices.start, indices.stop, indices.step};
    else
        name.path.back().index = indices.start;
    return name;
}

// A marked text is shorter without its marks, which are half of its "\" or more, so reading and
// spelling, which ask each other, come to an end soon.

NamePath readScalarText(std::string_view text) {
    if (text.find(kEscape) != std::string_view::npos) {
        std::optional<SimpleForm> name = readMarked(text);
        if (isMarkedScalar(name, text))
            return std::move(name->path);
    }
    return readPlainScalar(text);
}

std::string spellScalarText(const NamePath& path) {
    const SimpleForm name{path};
    std::string text = plain(name);
    if (path.size() == 1 && text.find_first_of("/\\") == std::string::npos)
        return text;
    return readScalarText(text) == path ? text : marked(name);
}

NameForm readNameText(std::string_view text) {
    if (text.find(kEscape) != std::string_view::npos) {
        std::optional<SimpleForm> name = readMarked(text);
        if (name && spellSimpleText(*name) == text)
            return std::move(*name);
    }
    return readPlainName(text);
}

std::string spellSimpleText(const SimpleForm& name) {
    std::string text = plain(name);
    const NameForm read = readNameText(text);
    const SimpleForm* simple = std::get_if<SimpleForm>(&read);
    return simple && *simple == name ? text : marked(name);
}

std::string spellBundleText(const BundleForm& bundle) {
    std::string text;
    for (const RepeatedForm& member : bundle) {
        text += text.empty() ? "{" : ",";
        text += member.repeat > 1 ? std::to_string(member.repeat) + "*" : "";
        text += marked(member.name);
    }
    return text.empty() ? text : text + "}";
}

bool isScalarEverywhere(std::string_view text) {
    return text.back() != ']' && text.back() != '}' && text.find(kEscape) == std::string_view::npos;
}

} // namespace OpenAccess_4::impl
