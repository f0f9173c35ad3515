#pragma once

#include "base/src/internal_form.h"

#include <span>

namespace OpenAccess_4::impl {

/// How a hardware description language spells names.
struct HdlSyntax {
    /// The length of the identifier that `text` starts with; 0 when it starts with none.
    std::size_t (*identifierLength)(std::string_view text);
    /// The bytes of an identifier; nothing when another identifier is the spelling of them.
    std::optional<ReadMember> (*readIdentifier)(std::string_view identifier);
    std::string (*spellIdentifier)(std::string_view bytes);

    char openIndex;
    /// What stands between the two indices of a vector, which fall or rise.
    std::string_view falling;
    std::string_view rising;
    char closeIndex;

    char openBundle;
    char closeBundle;
    bool hasRepetition; // which then is `{2{a}}`
};

extern const HdlSyntax kVerilogSyntax;
extern const HdlSyntax kVhdlSyntax;

/// What a name space of a language reads.
struct HdlName {
    SimpleForm form;
    bool caseSensitive = false;
};

struct RepeatedHdlName {
    HdlName name;
    oaUInt4 repeat;
};

/// Nothing when the text is spelled otherwise.
std::optional<HdlName> readHdlName(const HdlSyntax& syntax, std::string_view text);
std::optional<std::vector<RepeatedHdlName>> readHdlBundle(const HdlSyntax& syntax,
                                                          std::string_view text);

/// Without steps.
std::string spellHdlName(const HdlSyntax& syntax, const SimpleForm& name);

/// Whether `word`, in lower case, is one of `words`, which are sorted.
bool isOneOf(std::span<const std::string_view> words, std::string_view word);

} // namespace OpenAccess_4::impl
