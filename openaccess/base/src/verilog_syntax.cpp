#include "base/src/hdl_syntax.h"
#include "base/src/name_chars.h"

namespace OpenAccess_4::impl {

namespace {

constexpr std::string_view kKeywords[] = {
    "always",
    "and",
    "assign",
    "automatic",
    "begin",
    "buf",
    "bufif0",
    "bufif1",
    "case",
    "casex",
    "casez",
    "cell",
    "cmos",
    "config",
    "deassign",
    "default",
    "defparam",
    "design",
    "disable",
    "edge",
    "else",
    "end",
    "endcase",
    "endconfig",
    "endfunction",
    "endgenerate",
    "endmodule",
    "endprimitive",
    "endspecify",
    "endtable",
    "endtask",
    "event",
    "for",
    "force",
    "forever",
    "fork",
    "function",
    "generate",
    "genvar",
    "highz0",
    "highz1",
    "if",
    "ifnone",
    "incdir",
    "include",
    "initial",
    "inout",
    "input",
    "instance",
    "integer",
    "join",
    "large",
    "liblist",
    "library",
    "localparam",
    "macromodule",
    "medium",
    "module",
    "nand",
    "negedge",
    "nmos",
    "nor",
    "noshowcancelled",
    "not",
    "notif0",
    "notif1",
    "or",
    "output",
    "parameter",
    "pmos",
    "posedge",
    "primitive",
    "pull0",
    "pull1",
    "pulldown",
    "pullup",
    "pulsestyle_ondetect",
    "pulsestyle_onevent",
    "rcmos",
    "real",
    "realtime",
    "reg",
    "release",
    "repeat",
    "rnmos",
    "rpmos",
    "rtran",
    "rtranif0",
    "rtranif1",
    "scalared",
    "showcancelled",
    "signed",
    "small",
    "specify",
    "specparam",
    "strong0",
    "strong1",
    "supply0",
    "supply1",
    "table",
    "task",
    "time",
    "tran",
    "tranif0",
    "tranif1",
    "tri",
    "tri0",
    "tri1",
    "triand",
    "trior",
    "trireg",
    "unsigned",
    "use",
    "uwire",
    "vectored",
    "wait",
    "wand",
    "weak0",
    "weak1",
    "while",
    "wire",
    "wor",
    "xnor",
    "xor",
};

bool isWordChar(oaChar c) {
    return isInternalNormalChar(static_cast<oaByte>(c)) || c == '$';
}

std::size_t simpleLength(std::string_view text) {
    if (text.empty() || !isWordChar(text.front()) || text.front() == '$' ||
        (text.front() >= '0' && text.front() <= '9'))
        return 0;
    std::size_t length = 1;
    while (length < text.size() && isWordChar(text[length]))
        ++length;
    return isOneOf(kKeywords, text.substr(0, length)) ? 0 : length;
}

bool isGraphic(oaChar c) {
    return c > ' ' && c < 0x7f;
}

// An escaped identifier ends with a blank, which may be missing at the end of the text.
std::size_t identifierLength(std::string_view text) {
    if (text.empty() || text.front() != '\\')
        return simpleLength(text);
    const std::size_t end = text.find(' ');
    return end == std::string_view::npos ? text.size() : end + 1;
}

std::optional<ReadMember> readIdentifier(std::string_view identifier) {
    if (identifier.front() != '\\')
        return ReadMember{std::string(identifier), true};
    std::string_view body = identifier.substr(1);
    if (!body.empty() && body.back() == ' ')
        body.remove_suffix(1);
    std::string bytes = decoded(body);
    if (bytes.empty() || encodedBytes(bytes, isGraphic) != body)
        return std::nullopt;
    return ReadMember{std::move(bytes), true};
}

std::string spellIdentifier(std::string_view bytes) {
    if (simpleLength(bytes) == bytes.size())
        return std::string(bytes);
    return '\\' + encodedBytes(bytes, isGraphic) + ' ';
}

} // namespace

constinit const HdlSyntax kVerilogSyntax = {
    .identifierLength = identifierLength,
    .readIdentifier = readIdentifier,
    .spellIdentifier = spellIdentifier,
    .openIndex = '[',
    .falling = ":",
    .rising = ":",
    .closeIndex = ']',
    .openBundle = '{',
    .closeBundle = '}',
    .hasRepetition = true,
};

} // namespace OpenAccess_4::impl
