#pragma once

#include "oaBaseTypes.h"

#include <optional>
#include <string>
#include <string_view>

namespace OpenAccess_4::impl {

/// The indices behind a base name.
struct Indices {
    std::string_view base;
    oaUInt4 start = 0;
    oaUInt4 stop = 0;
    oaUInt4 step = 1;
    bool isRange = false; // else `start` is the index of a bit
};

/// How a name space writes indices.
struct IndexMarks {
    char open;
    char close;
    bool oneSpellingOnly; // leading zeros and a step of 1 are no indices
};

inline constexpr IndexMarks kNativeIndexMarks{'[', ']', true};
inline constexpr IndexMarks kCdbaIndexMarks{'<', '>', false};
inline constexpr IndexMarks kInternalIndexMarks{'<', '>', true};

/// Takes the indices off a name; nothing when it does not end with any.
std::optional<Indices> readIndices(std::string_view text, const IndexMarks& marks);

/// Writes indices with their marks.
std::string spellIndices(const Indices& indices, const IndexMarks& marks);

} // namespace OpenAccess_4::impl
