#include "platform/xml_element.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <stdexcept>

namespace platform {

namespace {

// Deeper nesting than any marker has; bounds the recursion on foreign input.
constexpr int deepest = 16;

bool isSpace(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

bool isNameStart(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' ||
           static_cast<unsigned char>(c) >= 0x80;
}

bool isNameCharacter(char c) {
    return isNameStart(c) || (c >= '0' && c <= '9') || c == '-' || c == '.' || c == ':';
}

/// A character in UTF-8; nothing when there is none of that number.
std::optional<std::string> characterOf(unsigned code) {
    if (code == 0 || code > 0x10ffff || (code >= 0xd800 && code <= 0xdfff))
        return std::nullopt;
    if (code < 0x80)
        return std::string(1, static_cast<char>(code));
    std::string bytes;
    int shift = code < 0x800 ? 6 : code < 0x10000 ? 12 : 18;
    const unsigned first = code < 0x800 ? 0xc0 : code < 0x10000 ? 0xe0 : 0xf0;
    bytes += static_cast<char>(first | code >> shift);
    while ((shift -= 6) >= 0)
        bytes += static_cast<char>(0x80 | (code >> shift & 0x3f));
    return bytes;
}

std::optional<std::string> namedCharacter(std::string_view entity) {
    if (entity == "lt")
        return "<";
    if (entity == "gt")
        return ">";
    if (entity == "amp")
        return "&";
    if (entity == "quot")
        return "\"";
    if (entity == "apos")
        return "'";
    if (!entity.starts_with("#"))
        return std::nullopt;
    const bool hexadecimal = entity.starts_with("#x");
    entity.remove_prefix(hexadecimal ? 2 : 1);
    unsigned code = 0;
    const char* const last = entity.data() + entity.size();
    const auto [end, error] = std::from_chars(entity.data(), last, code, hexadecimal ? 16 : 10);
    if (error != std::errc() || end != last)
        return std::nullopt;
    return characterOf(code);
}

class Parser {
public:
    explicit Parser(std::string_view xml) : text(xml) { accept("\xef\xbb\xbf"); }

    XmlElement document() {
        skipProlog();
        XmlElement root = element(0);
        skipProlog();
        if (at < text.size())
            fail("unexpected text after the end of <" + root.name + ">");
        return root;
    }

private:
    [[noreturn]] void fail(const std::string& what) const {
        const auto line = 1 + std::count(text.begin(), text.begin() + std::ptrdiff_t(at), '\n');
        throw std::runtime_error("line " + std::to_string(line) + ": " + what);
    }

    bool startsWith(std::string_view start) const { return text.substr(at).starts_with(start); }

    bool accept(std::string_view token) {
        if (!startsWith(token))
            return false;
        at += token.size();
        return true;
    }

    void expect(std::string_view token) {
        if (!accept(token))
            fail("expected '" + std::string(token) + "'" +
                 (at == text.size() ? " before the end of the file" : ""));
    }

    void skipSpace() {
        while (at < text.size() && isSpace(text[at]))
            ++at;
    }

    void skipPast(std::string_view end) {
        const std::size_t found = text.find(end, at);
        if (found == std::string_view::npos)
            fail("'" + std::string(end) + "' is missing");
        at = found + end.size();
    }

    void skipProlog() {
        for (;;) {
            skipSpace();
            if (accept("<!--"))
                skipPast("-->");
            else if (accept("<?"))
                skipPast("?>");
            else if (accept("<!DOCTYPE"))
                skipPast(">");
            else
                return;
        }
    }

    std::string name() {
        const std::size_t start = at;
        if (at < text.size() && isNameStart(text[at]))
            while (at < text.size() && isNameCharacter(text[at]))
                ++at;
        if (at == start)
            fail("expected a name");
        return std::string(text.substr(start, at - start));
    }

    std::string quoted() {
        if (at == text.size() || (text[at] != '"' && text[at] != '\''))
            fail("expected a value in quotes");
        const char quote = text[at++];
        std::string value;
        while (at < text.size() && text[at] != quote && text[at] != '<')
            value += text[at] == '&' ? entity() : std::string(1, text[at++]);
        if (at == text.size() || text[at] != quote)
            fail("the closing quote of a value is missing");
        ++at;
        return value;
    }

    std::string entity() {
        const std::size_t end = text.find(';', ++at);
        const std::optional<std::string> character =
            end == std::string_view::npos ? std::nullopt
                                          : namedCharacter(text.substr(at, end - at));
        if (!character)
            fail("unknown character entity");
        at = end + 1;
        return *character;
    }

    XmlElement element(int depth) {
        expect("<");
        XmlElement result{name(), {}, {}};
        if (depth == deepest)
            fail("elements are nested too deeply");
        for (skipSpace(); !startsWith("/>") && !startsWith(">"); skipSpace())
            attribute(result);
        if (accept("/>"))
            return result;
        expect(">");
        for (skipProlog(); !startsWith("</"); skipProlog())
            result.children.push_back(element(depth + 1));
        expect("</");
        if (name() != result.name)
            fail("the end of <" + result.name + "> is missing");
        skipSpace();
        expect(">");
        return result;
    }

    void attribute(XmlElement& owner) {
        const std::string key = name();
        if (owner.attribute(key))
            fail("attribute '" + key + "' stands twice");
        skipSpace();
        expect("=");
        skipSpace();
        owner.attributes.emplace_back(key, quoted());
    }

    std::string_view text;
    std::size_t at = 0;
};

} // namespace

const std::string* XmlElement::attribute(std::string_view attributeName) const {
    const auto found =
        std::ranges::find(attributes, attributeName, &std::pair<std::string, std::string>::first);
    return found == attributes.end() ? nullptr : &found->second;
}

const XmlElement* XmlElement::child(std::string_view childName) const {
    const auto found = std::ranges::find(children, childName, &XmlElement::name);
    return found == children.end() ? nullptr : &*found;
}

XmlElement parseXml(std::string_view text) {
    return Parser(text).document();
}

bool isXmlName(std::string_view name) {
    return !name.empty() && isNameStart(name.front()) && std::ranges::all_of(name, isNameCharacter);
}

std::string xmlEscaped(std::string_view text) {
    std::string escaped;
    for (const char c : text) {
        if (c == '<')
            escaped += "&lt;";
        else if (c == '&')
            escaped += "&amp;";
        else if (c == '"')
            escaped += "&quot;";
        else if (static_cast<unsigned char>(c) < ' ')
            escaped += "&#" + std::to_string(int{c}) + ";";
        else
            escaped += c;
    }
    return escaped;
}

} // namespace platform
