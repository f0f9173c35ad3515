#pragma once

#include "base/src/refs.h"

#include <string>
#include <string_view>
#include <vector>

namespace OpenAccess_4::impl {

class DesignDatabase;

/// The most bits that a vector instance may have.
inline constexpr std::uint32_t kMostInstBits = 65536;

/// What the name of a vector or a bit says.
struct InstRange {
    std::string_view base;
    std::uint32_t start = 0;
    std::uint32_t stop = 0;
    bool isVector = false; // else it is a bit, with its index in `start` and `stop`

    std::uint32_t bits() const;
    bool contains(std::uint32_t index) const;
    /// The index of the bit at that place.
    std::uint32_t index(std::uint32_t bit) const {
        return start <= stop ? start + bit : start - bit;
    }
    std::string bitName(std::uint32_t bit) const;
};

/// Takes a name apart. A name that an instance cannot have as a vector or a bit has no base.
InstRange rangeOf(std::string_view name);

/// The native spelling of a range, and of a bit.
std::string rangeName(std::string_view base, std::uint32_t start, std::uint32_t stop);
std::string bitName(std::string_view base, std::uint32_t index);

/// Checks that a vector can have this name, and that nothing but the bits `own` has the name of one
/// of its bits.
/// @throws oaDesignError  oacInstNameExists, oacInvalidInstName
void requireFreeBits(DesignDatabase& database, std::string_view name,
                     std::vector<std::uint32_t> own);

} // namespace OpenAccess_4::impl
