#pragma once

#include "base/src/table.h"
#include "design/src/given_param.h"
#include "design/src/table_numbers.h"
#include "oa/oaOrient.h"
#include "tech/src/via_def_records.h"

#include <cstdint>

namespace OpenAccess_4::impl {

/// The vias of one definition. Of a name there may be vias of either kind.
struct ViaHeaderRecord {
    StringId name = 0;
    ViaDefKind kind = ViaDefKind::Standard;

    oaTypeEnum type() const;
    oaObject* construct(void* where) const;

    template <class Self, class Visitor>
    static void describe(Self& self, Visitor& visitor) {
        visitor.string(self.name);
        visitor.enumerator(std::uint32_t(self.kind), std::uint32_t(ViaDefKind::Count));
    }
};

/// Those of them that were given the same parameters.
struct ViaSubHeaderRecord {
    std::uint32_t header = 0;
    ViaDefKind kind = ViaDefKind::Standard; // as the header
    StoredViaParam params;                  // of standard vias

    oaTypeEnum type() const;
    oaObject* construct(void* where) const;

    template <class Self, class Visitor>
    static void describe(Self& self, Visitor& visitor) {
        visitor.slot(kViaHeaderTable, self.header);
        visitor.enumerator(std::uint32_t(self.kind), std::uint32_t(ViaDefKind::Count));
        StoredViaParam::describe(self.params, visitor);
        visitor.require(self.kind == ViaDefKind::Standard || self.params.given == 0);
    }
};

/// A parameter that custom vias were given.
using ViaParamRecord = GivenParamRecord<kViaSubHeaderTable>;

struct ViaRecord {
    std::uint32_t sub = 0;
    std::int32_t x = 0;
    std::int32_t y = 0;
    std::uint8_t orient = oacR0;
    std::uint8_t isCustom = 0; // as the header
    std::uint16_t reserved = 0;

    oaTypeEnum type() const { return isCustom ? oacCustomViaType : oacStdViaType; }
    oaObject* construct(void* where) const;

    template <class Self, class Visitor>
    static void describe(Self& self, Visitor& visitor) {
        visitor.slot(kViaSubHeaderTable, self.sub);
        visitor.enumerator(self.orient, oacMXR90 + 1);
        visitor.enumerator(self.isCustom, 2);
        visitor.require(self.reserved == 0);
    }
};

} // namespace OpenAccess_4::impl
