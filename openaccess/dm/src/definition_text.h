#pragma once

#include <array>
#include <cstdint>
#include <deque>
#include <string>
#include <string_view>

namespace OpenAccess_4::impl {

/// Texts that stay where they are until the store goes.
class TextStore {
public:
    std::string_view keep(std::string text) { return texts_.emplace_back(std::move(text)); }

private:
    std::deque<std::string> texts_;
};

/// What a line of a library definition file says.
enum class DefinitionKind : std::uint8_t {
    Nothing, // blank, or a comment
    Define,
    Include,
    Assign,
    Undefine,
    Unassign,
    Wrong,
};

struct DefinitionLine {
    DefinitionKind kind = DefinitionKind::Nothing;
    bool soft = false; // missing is no fault
    std::uint32_t number = 0;
    std::string_view text;                  // with its end
    std::array<std::string_view, 3> fields; // behind the keyword, without quotation marks
    std::string wrong;                      // what is wrong with it
};

/// Reads a library definition file line by line.
class DefinitionReader {
public:
    /// `joined` takes the fields that are not written in one piece.
    DefinitionReader(std::string_view text, TextStore& joined);

    /// False at the end.
    bool next(DefinitionLine& line);

private:
    void read(DefinitionLine& line);
    bool readField(std::string_view& rest, std::string_view& field, DefinitionLine& line);
    bool joinField(std::string_view& rest, std::string_view& field, DefinitionLine& line);

    std::string_view rest_;
    TextStore& joined_;
    std::uint32_t lines_ = 0;
};

/// One field as a definition file holds it, quoted where it must be.
std::string writtenField(std::string_view text);

/// `line` with another text for one of its fields, of which the keyword is number 0.
std::string withField(std::string_view line, std::size_t number, std::string_view text);

/// True for what writtenField() can write.
bool isWritableField(std::string_view text);

/// Replaces `$NAME`, `${NAME}` and `$(NAME)` by the values of environment variables; what is not
/// set stays as it is. Answers the name of the first that is not set, else nothing.
std::string_view expandVariables(std::string_view text, std::string& expanded);

/// The names and attributes of these files mean the same in upper and lower case.
bool sameIgnoringCase(std::string_view first, std::string_view second);

} // namespace OpenAccess_4::impl
