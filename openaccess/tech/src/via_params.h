#pragma once

#include "base/src/string_pool.h"
#include "oa/oaViaParam.h"

#include <array>
#include <cstdint>
#include <string>

namespace OpenAccess_4::impl {

/// The parameters of a standard via as databases keep them. Parameters that are not set have their
/// first values, so that equal ones are equal byte for byte.
struct StoredViaParam {
    static constexpr std::uint32_t kVectors = oacOriginOffsetViaParamType + 1;
    static constexpr std::uint32_t kCutPattern = oacCutHeightViaParamType + 1;

    std::uint32_t given =
        0; // bit n: the oaViaParamTypeEnum n is set; the next bit: the cut pattern
    std::uint32_t cutLayer = 0;
    std::uint32_t cutColumns = 1;
    std::uint32_t cutRows = 1;
    std::uint32_t cutWidth = 0;
    std::uint32_t cutHeight = 0;
    std::array<std::array<std::int32_t, 2>, kVectors> vectors{}; // by type
    StringId missingCuts = 0; // row and column of each, 32 bits each, in order

    friend bool operator==(const StoredViaParam&, const StoredViaParam&) = default;

    template <class Self, class Visitor>
    static void describe(Self& self, Visitor& visitor) {
        const auto isSet = [&](std::uint32_t param) { return (self.given >> param & 1) != 0; };
        visitor.require(self.given < (2u << kCutPattern) && !isSet(oacCutSizeViaParamType));
        visitor.require(isSet(oacCutLayerViaParamType) || self.cutLayer == 0);
        visitor.require(isSet(oacCutColumnsViaParamType) ? self.cutColumns > 0
                                                         : self.cutColumns == 1);
        visitor.require(isSet(oacCutRowsViaParamType) ? self.cutRows > 0 : self.cutRows == 1);
        visitor.require(isSet(oacCutWidthViaParamType) || self.cutWidth == 0);
        visitor.require(isSet(oacCutHeightViaParamType) || self.cutHeight == 0);
        for (std::uint32_t i = 0; i < kVectors; ++i)
            visitor.require(isSet(i) || self.vectors[i] == std::array<std::int32_t, 2>{});
        visitor.string(self.missingCuts);
        visitor.require(isSet(kCutPattern) || self.missingCuts == 0);
    }
};

/// What the packages do with parameters of vias beyond what clients can.
class ViaParams {
public:
    static StoredViaParam store(const oaViaParam& params, StringPool& strings);
    static oaViaParam load(const StoredViaParam& stored, const StringPool& strings);
    /// True when the missing cuts are what store() writes.
    static bool isSound(const StoredViaParam& stored, const StringPool& strings);

    /// Those of a via, with the values of its definition for parameters that have their defaults.
    static oaViaParam overlaid(const oaViaParam& definition, const oaViaParam& given);
    /// Bytes that are the same for the same values, whether these are defaults or not.
    static std::string key(const oaViaParam& params);

    /// @throws oaTechError  oacInvalidViaParam: there are more cuts than can be drawn
    static void requireDrawable(const oaViaParam& params);
    static bool isDrawable(const oaViaParam& params);
};

} // namespace OpenAccess_4::impl
