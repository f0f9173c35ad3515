#pragma once

#include "base/src/indexed_name.h"
#include "oaBaseEnums.h"

#include <string>
#include <variant>
#include <vector>

namespace OpenAccess_4::impl {

/// One member of a name: its bytes, and its index when it is a bit.
struct NamePart {
    std::string text;
    std::optional<oaUInt4> index = std::nullopt;

    bool operator==(const NamePart&) const = default;
};
using NamePath = std::vector<NamePart>;

/// The indices of a vector.
struct NameRange {
    oaUInt4 start;
    oaUInt4 stop;
    oaUInt4 step;

    bool operator==(const NameRange&) const = default;
};

/// A scalar name; a bit, when its last member has an index; a vector, when it has a range.
struct SimpleForm {
    NamePath path;
    std::optional<NameRange> range = std::nullopt;

    bool operator==(const SimpleForm&) const = default;
    oaNameTypeEnum type() const;
};

struct RepeatedForm {
    SimpleForm name;
    oaUInt4 repeat = 1;
};
using BundleForm = std::vector<RepeatedForm>;

using NameForm = std::variant<SimpleForm, BundleForm>;

/// The form of a name with these indices.
SimpleForm withIndices(NamePath base, const Indices& indices);

// Native spelling. What is read is spelled as it was, and what is spelled is read as it was: a
// name is written plainly when it is then taken for itself, else with "\" in front of the
// characters that would mislead. Texts are not empty, nor are the members of paths.

/// As if there were scalar names only.
NamePath readScalarText(std::string_view text);
std::string spellScalarText(const NamePath& path);

/// Where a name of any form may stand.
NameForm readNameText(std::string_view text);
std::string spellSimpleText(const SimpleForm& name);
std::string spellBundleText(const BundleForm& bundle);

/// Whether every scalar name with this text has the same text among names of any form, and the
/// other way round.
bool isScalarEverywhere(std::string_view text);

} // namespace OpenAccess_4::impl
