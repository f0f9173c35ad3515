#pragma once

#include "base/src/record_visitors.h"
#include "base/src/table.h"
#include "oa/oaOrient.h"
#include "tech/src/records.h"
#include "tech/src/via_params.h"

#include <array>
#include <cstdint>

namespace OpenAccess_4::impl {

enum class ViaDefKind : std::uint32_t { Standard, Custom, Count };

/// A via definition of any kind; fields of the other kind keep their first values.
struct ViaDefRecord {
    StringId name = 0;
    ViaDefKind kind = ViaDefKind::Standard;
    float resistancePerCut = 0;
    std::array<std::uint32_t, 2> layers{};               // numbers
    std::array<std::uint32_t, 2> implants{kNone, kNone}; // the same, where there are any
    std::array<StringId, 3> master{};                    // native names of library, cell and view
    StoredViaParam params;

    oaTypeEnum type() const {
        return kind == ViaDefKind::Standard ? oacStdViaDefType : oacCustomViaDefType;
    }
    oaObject* construct(void* where) const;

    template <class Self, class Visitor>
    static void describe(Self& self, Visitor& visitor) {
        visitor.string(self.name);
        visitor.enumerator(std::uint32_t(self.kind), std::uint32_t(ViaDefKind::Count));
        for (auto& part : self.master)
            visitor.string(part);
        StoredViaParam::describe(self.params, visitor);
        if (self.kind == ViaDefKind::Standard) {
            visitor.require(self.master == std::array<StringId, 3>{});
        } else {
            visitor.require(self.params.given == 0);
            visitor.require(self.implants == std::array<std::uint32_t, 2>{kNone, kNone});
        }
    }
};

/// A site definition of either kind; an array has no size of its own.
struct SiteDefRecord {
    StringId name = 0;
    std::uint32_t width = 0;
    std::uint32_t height = 0;
    std::uint8_t siteType = oacCoreSiteDefType;
    std::uint8_t isArray = 0;
    std::uint8_t symmetry = 0; // bits 0 to 2: in X, in Y, when turned
    std::uint8_t reserved = 0;

    oaTypeEnum type() const { return isArray ? oacArraySiteDefType : oacScalarSiteDefType; }
    oaObject* construct(void* where) const;

    template <class Self, class Visitor>
    static void describe(Self& self, Visitor& visitor) {
        visitor.string(self.name);
        visitor.require(!self.isArray || (self.width == 0 && self.height == 0));
        visitor.enumerator(self.siteType, oacPadSiteDefType + 1);
        visitor.enumerator(self.isArray, 2);
        visitor.enumerator(self.symmetry, 8);
        visitor.require(self.reserved == 0);
    }
};

/// A site of the pattern of an array, in the order of the pattern.
struct SiteRefRecord {
    std::uint32_t array = 0;
    StringId site = 0;
    std::int32_t x = 0;
    std::int32_t y = 0;
    std::uint32_t orient = oacR0;

    static constexpr oaTypeEnum kType = oacUnknownType;
    using Handle = oaObject;

    template <class Self, class Visitor>
    static void describe(Self& self, Visitor& visitor) {
        visitor.slot(kSiteDefTable, self.array);
        visitor.string(self.site);
        visitor.enumerator(self.orient, oacMXR90 + 1);
    }
};

} // namespace OpenAccess_4::impl
