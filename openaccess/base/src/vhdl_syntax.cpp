#include "base/src/hdl_syntax.h"

#include <algorithm>

namespace OpenAccess_4::impl {

namespace {

constexpr std::string_view kKeywords[] = {
    "abs",          "access",     "after",   "alias",      "all",       "and",
    "architecture", "array",      "assert",  "attribute",  "begin",     "block",
    "body",         "buffer",     "bus",     "case",       "component", "configuration",
    "constant",     "disconnect", "downto",  "else",       "elsif",     "end",
    "entity",       "exit",       "file",    "for",        "function",  "generate",
    "generic",      "group",      "guarded", "if",         "impure",    "in",
    "inertial",     "inout",      "is",      "label",      "library",   "linkage",
    "literal",      "loop",       "map",     "mod",        "nand",      "new",
    "next",         "nor",        "not",     "null",       "of",        "on",
    "open",         "or",         "others",  "out",        "package",   "port",
    "postponed",    "procedure",  "process", "protected",  "pure",      "range",
    "record",       "register",   "reject",  "rem",        "report",    "return",
    "rol",          "ror",        "select",  "severity",   "shared",    "signal",
    "sla",          "sll",        "sra",     "srl",        "subtype",   "then",
    "to",           "transport",  "type",    "unaffected", "units",     "until",
    "use",          "variable",   "wait",    "when",       "while",     "with",
    "xnor",         "xor",
};

bool isLower(char c) {
    return c >= 'a' && c <= 'z';
}

char lower(char c) {
    return c >= 'A' && c <= 'Z' ? char(c | 0x20) : c;
}

bool isAlphanumeric(char c) {
    return isLower(lower(c)) || (c >= '0' && c <= '9');
}

std::string lowered(std::string_view text) {
    std::string result(text);
    std::transform(result.begin(), result.end(), result.begin(), lower);
    return result;
}

// Single "_" may stand between letters and digits.
std::size_t basicLength(std::string_view text) {
    if (text.empty() || !isLower(lower(text.front())))
        return 0;
    std::size_t length = 1;
    while (length < text.size()) {
        const bool joins = text[length] == '_' && length + 1 < text.size();
        const std::size_t next = length + (joins ? 1 : 0);
        if (!isAlphanumeric(text[next]))
            break;
        length = next + 1;
    }
    return isOneOf(kKeywords, lowered(text.substr(0, length))) ? 0 : length;
}

bool isGraphic(oaChar c) {
    return c >= ' ' && c < 0x7f;
}

std::string spellExtended(std::string_view bytes) {
    std::string text = "\\";
    for (const char c : encodedBytes(bytes, isGraphic))
        text += c == '\\' ? "\\\\" : std::string(1, c);
    return text + '\\';
}

std::string spellIdentifier(std::string_view bytes) {
    const bool isBasic = basicLength(bytes) == bytes.size() && lowered(bytes) == bytes;
    return isBasic ? std::string(bytes) : spellExtended(bytes);
}

// Within an extended identifier, "\" is doubled.
std::size_t identifierLength(std::string_view text) {
    if (text.empty() || text.front() != '\\')
        return basicLength(text);
    for (std::size_t i = 1; i < text.size(); ++i) {
        if (text[i] != '\\')
            continue;
        if (i + 1 == text.size() || text[i + 1] != '\\')
            return i + 1;
        ++i;
    }
    return 0;
}

std::optional<ReadMember> readIdentifier(std::string_view identifier) {
    if (identifier.front() != '\\')
        return ReadMember{lowered(identifier), false};
    std::string body;
    for (std::size_t i = 1; i + 1 < identifier.size(); ++i) {
        body += identifier[i];
        i += identifier[i] == '\\' ? 1 : 0;
    }
    std::string bytes = decoded(body);
    if (bytes.empty() || spellIdentifier(bytes) != identifier)
        return std::nullopt;
    return ReadMember{std::move(bytes), true};
}

} // namespace

constinit const HdlSyntax kVhdlSyntax = {
    .identifierLength = identifierLength,
    .readIdentifier = readIdentifier,
    .spellIdentifier = spellIdentifier,
    .openIndex = '(',
    .falling = " downto ",
    .rising = " to ",
    .closeIndex = ')',
    .openBundle = '(',
    .closeBundle = ')',
    .hasRepetition = false,
};

} // namespace OpenAccess_4::impl
