#include "dm/src/definition_text.h"

#include "platform/environment.h"

#include <algorithm>
#include <span>

namespace OpenAccess_4::impl {

namespace {

struct Statement {
    std::string_view keyword;
    DefinitionKind kind;
    bool soft;
    std::size_t fields;
    const char* form;
};

constexpr Statement statements[] = {
    {"DEFINE", DefinitionKind::Define, false, 2, "DEFINE name path"},
    {"INCLUDE", DefinitionKind::Include, false, 1, "INCLUDE path"},
    {"ASSIGN", DefinitionKind::Assign, false, 3, "ASSIGN name attribute value"},
    {"SOFTDEFINE", DefinitionKind::Define, true, 2, "SOFTDEFINE name path"},
    {"SOFTINCLUDE", DefinitionKind::Include, true, 1, "SOFTINCLUDE path"},
    {"UNDEFINE", DefinitionKind::Undefine, false, 1, "UNDEFINE name"},
    {"UNASSIGN", DefinitionKind::Unassign, false, 2, "UNASSIGN name attribute"},
};

char lower(char c) {
    return c >= 'A' && c <= 'Z' ? char(c - 'A' + 'a') : c;
}

enum CharClass : unsigned char { plainChar, blankChar, controlChar, quoteChar };

// One look per character: these files may be long.
constexpr auto charClasses = [] {
    std::array<CharClass, 256> classes{};
    for (int c = 0; c < ' '; ++c)
        classes[std::size_t(c)] = controlChar;
    for (const char c : {' ', '\t', '\r', '\v', '\f'})
        classes[std::size_t(c)] = blankChar;
    classes['"'] = quoteChar;
    return classes;
}();

CharClass classOf(char c) {
    return charClasses[static_cast<unsigned char>(c)];
}

bool isBlank(char c) {
    return classOf(c) == blankChar;
}

bool isControl(char c) {
    return classOf(c) == controlChar;
}

bool startsComment(std::string_view text) {
    return text.starts_with('#') || text.starts_with("--");
}

bool isNameChar(char c) {
    return c == '_' || (c >= '0' && c <= '9') || (lower(c) >= 'a' && lower(c) <= 'z');
}

const Statement* findStatement(std::string_view keyword) {
    for (const Statement& statement : statements)
        if (sameIgnoringCase(keyword, statement.keyword))
            return &statement;
    return nullptr;
}

void fault(DefinitionLine& line, std::string reason) {
    line.kind = DefinitionKind::Wrong;
    line.wrong = std::move(reason);
}

/// The name behind a "$" and how long it is written; an empty name for a "$" that means itself.
struct Variable {
    std::string_view name;
    std::size_t length = 0;
};

Variable variableAt(std::string_view behindDollar) {
    if (behindDollar.starts_with('{') || behindDollar.starts_with('(')) {
        const std::size_t end = behindDollar.find(behindDollar.front() == '{' ? '}' : ')');
        if (end == std::string_view::npos)
            return {};
        return {behindDollar.substr(1, end - 1), end + 1};
    }
    std::size_t end = 0;
    while (end < behindDollar.size() && isNameChar(behindDollar[end]))
        ++end;
    return {behindDollar.substr(0, end), end};
}

} // namespace

bool sameIgnoringCase(std::string_view first, std::string_view second) {
    return std::ranges::equal(first, second, {}, lower, lower);
}

DefinitionReader::DefinitionReader(std::string_view text, TextStore& joined)
    : rest_(text), joined_(joined) {}

bool DefinitionReader::next(DefinitionLine& line) {
    if (rest_.empty())
        return false;
    const std::size_t end = std::min(rest_.find('\n'), rest_.size() - 1) + 1;
    line.text = rest_.substr(0, end);
    line.number = ++lines_;
    line.kind = DefinitionKind::Nothing;
    line.soft = false;
    rest_.remove_prefix(end);
    read(line);
    return true;
}

void DefinitionReader::read(DefinitionLine& line) {
    std::string_view rest = line.text;
    if (rest.ends_with('\n'))
        rest.remove_suffix(1);
    std::string_view keyword;
    if (!readField(rest, keyword, line))
        return;
    std::size_t count = 0;
    std::string_view field;
    while (count <= line.fields.size() && readField(rest, field, line)) {
        if (count < line.fields.size())
            line.fields[count] = field;
        ++count;
    }
    if (line.kind == DefinitionKind::Wrong)
        return;
    const Statement* statement = findStatement(keyword);
    if (!statement)
        return fault(line, "'" + std::string(keyword) + "' is no statement");
    const auto taken = std::span(line.fields).first(std::min(count, line.fields.size()));
    if (count != statement->fields || std::ranges::count(taken, std::string_view()) > 0)
        return fault(line, std::string("the form is '") + statement->form + "'");
    line.kind = statement->kind;
    line.soft = statement->soft;
}

/// Answers false at the end of what the line says and where it is wrong.
bool DefinitionReader::readField(std::string_view& rest, std::string_view& field,
                                 DefinitionLine& line) {
    std::size_t at = 0;
    while (at < rest.size() && isBlank(rest[at]))
        ++at;
    rest.remove_prefix(at);
    if (rest.empty() || startsComment(rest))
        return false;
    std::size_t end = 0;
    while (end < rest.size() && classOf(rest[end]) == plainChar)
        ++end;
    if (end < rest.size() && !isBlank(rest[end]))
        return joinField(rest, field, line);
    field = rest.substr(0, end);
    rest.remove_prefix(end);
    return true;
}

bool DefinitionReader::joinField(std::string_view& rest, std::string_view& field,
                                 DefinitionLine& line) {
    std::string text;
    bool quoted = false;
    std::size_t at = 0;
    for (; at < rest.size() && (quoted || !isBlank(rest[at])); ++at) {
        if (isControl(rest[at])) {
            fault(line, "there is a control character");
            return false;
        }
        if (rest[at] == '"')
            quoted = !quoted;
        else
            text += rest[at];
    }
    if (quoted) {
        fault(line, "a quotation mark is not closed");
        return false;
    }
    field = joined_.keep(std::move(text));
    rest.remove_prefix(at);
    return true;
}

bool isWritableField(std::string_view text) {
    return !text.empty() && std::ranges::none_of(text, [](char c) {
        return c == '"' || c == '\r' || c == '\v' || c == '\f' || isControl(c);
    });
}

std::string writtenField(std::string_view text) {
    if (!startsComment(text) && std::ranges::none_of(text, isBlank))
        return std::string(text);
    return '"' + std::string(text) + '"';
}

std::string withField(std::string_view line, std::size_t number, std::string_view text) {
    std::size_t begin = 0;
    std::size_t end = 0;
    for (std::size_t i = 0; i <= number; ++i) {
        begin = end;
        while (begin < line.size() && isBlank(line[begin]))
            ++begin;
        bool quoted = false;
        for (end = begin; end < line.size() && line[end] != '\n'; ++end) {
            if (!quoted && isBlank(line[end]))
                break;
            quoted = quoted != (line[end] == '"');
        }
    }
    return std::string(line.substr(0, begin)) + writtenField(text) + std::string(line.substr(end));
}

std::string_view expandVariables(std::string_view text, std::string& expanded) {
    std::string_view missing;
    expanded.clear();
    for (std::size_t dollar; (dollar = text.find('$')) != std::string_view::npos;) {
        const Variable variable = variableAt(text.substr(dollar + 1));
        expanded += text.substr(0, dollar);
        const auto value = variable.name.empty()
                               ? std::nullopt
                               : platform::environmentVariable(std::string(variable.name));
        if (!value && !variable.name.empty() && missing.empty())
            missing = variable.name;
        expanded += value ? *value : std::string(text.substr(dollar, variable.length + 1));
        text.remove_prefix(dollar + 1 + variable.length);
    }
    expanded += text;
    return missing;
}

} // namespace OpenAccess_4::impl
