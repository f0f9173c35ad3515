#pragma once

#include "base/src/record_visitors.h"
#include "base/src/table.h"
#include "base/src/table_numbers.h"
#include "oa/oaTechEnums.h"

#include <array>
#include <cstdint>

namespace OpenAccess_4 {
class oaDerivedLayerParam;
class oaPurpose;
class oaTechHeader;
} // namespace OpenAccess_4

namespace OpenAccess_4::impl {

// Tables of a technology.
inline constexpr std::uint32_t kLayerTable = kFirstPackageTable;
inline constexpr std::uint32_t kPurposeTable = kFirstPackageTable + 1;
inline constexpr std::uint32_t kValueTable = kFirstPackageTable + 2;
inline constexpr std::uint32_t kSettingsTable = kFirstPackageTable + 3;
inline constexpr std::uint32_t kReservedPurposeTable = kFirstPackageTable + 4;
inline constexpr std::uint32_t kTechRefTable = kFirstPackageTable + 5;
inline constexpr std::uint32_t kMoreSettingsTable = kFirstPackageTable + 6;
inline constexpr std::uint32_t kExclusionTable = kFirstPackageTable + 7;
inline constexpr std::uint32_t kLayerParamDefTable = kFirstPackageTable + 8;
inline constexpr std::uint32_t kLayerParamTable = kFirstPackageTable + 9;
inline constexpr std::uint32_t kViaDefTable = kFirstPackageTable + 10;
inline constexpr std::uint32_t kSiteDefTable = kFirstPackageTable + 11;
inline constexpr std::uint32_t kSiteRefTable = kFirstPackageTable + 12;

enum class LayerKind : std::uint32_t { Physical, Derived, Sized, Count };

/// A layer of any kind; fields of the other kinds keep their first values.
struct LayerRecord {
    StringId name = 0;
    std::uint32_t number = 0;
    LayerKind kind = LayerKind::Physical;
    std::uint32_t what = 0; // physical: oaMaterialEnum; derived: oaLayerOpEnum; sized: oaSizeOpEnum

    std::uint32_t maskNumber = kNone;
    std::uint32_t routingDir = oacNotApplicablePrefRoutingDir;
    std::uint32_t grid = kNone;

    std::uint32_t sources = 0; // how many of the next two are meant
    std::array<std::uint32_t, 2> sourceNumbers{};
    StringId def = 0;           // of an operation that an application defined
    std::uint32_t distance = 0; // by which a sized layer grows or shrinks

    oaTypeEnum type() const { return oaTypeEnum(oacPhysicalLayerType + std::uint32_t(kind)); }
    oaObject* construct(void* where) const;

    template <class Self, class Visitor>
    static void describe(Self& self, Visitor& visitor) {
        visitor.string(self.name);
        visitor.enumerator(std::uint32_t(self.kind), std::uint32_t(LayerKind::Count));
        switch (self.kind) {
        case LayerKind::Physical:
            visitor.enumerator(self.what, oacPassivationCutMaterial + 1);
            break;
        case LayerKind::Derived:
            visitor.enumerator(self.what, oacShrinkHorizontalLayerOp + 1);
            break;
        default:
            visitor.enumerator(self.what, oacShrinkSizeOp + 1);
            break;
        }
        visitor.enumerator(self.routingDir, oacRightDiagPrefRoutingDir + 1);
        visitor.enumerator(self.sources, std::uint32_t(self.sourceNumbers.size()) + 1);
        visitor.string(self.def);
    }
};

/// A purpose. The reserved ones lie in a table of their own that files leave out: their slots are
/// their types, and their names those of the types.
struct PurposeRecord {
    StringId name = 0;
    std::uint32_t number = 0;

    static constexpr oaTypeEnum kType = oacPurposeType;
    using Handle = oaPurpose;

    template <class Self, class Visitor>
    static void describe(Self& self, Visitor& visitor) {
        visitor.string(self.name);
    }
};

inline constexpr std::uint32_t kReservedPurposes = oacFillOPCPurposeType + 1;
inline constexpr std::uint32_t kFirstReservedPurposeNumber = 0xFFFF0000u;

inline constexpr std::uint32_t reservedPurposeNumber(std::uint32_t type) {
    return 0xFFFFFFFFu - type;
}

enum class ValueKind : std::uint32_t {
    Int,
    Float,
    Boolean,
    String,
    IntRange,
    UInt8,
    UInt8Range,
    Layer,
    DualInt,
    Count
};

struct ValueRecord {
    ValueKind kind = ValueKind::Int;
    StringId text = 0;      // of the kind that is a text, and the bytes of ranges
    std::uint64_t bits = 0; // of the others

    oaTypeEnum type() const;
    oaObject* construct(void* where) const;

    template <class Self, class Visitor>
    static void describe(Self& self, Visitor& visitor) {
        visitor.enumerator(std::uint32_t(self.kind), std::uint32_t(ValueKind::Count));
        visitor.string(self.text);
    }
};

/// The kinds of designs that have units.
inline constexpr std::size_t kDesignViewTypes = 5;

/// What a technology says once. Every technology has one such record.
struct SettingsRecord {
    std::array<std::uint32_t, kDesignViewTypes> dbuPerUU{}; // 0: not set
    std::array<std::uint32_t, kDesignViewTypes> userUnits{kNone, kNone, kNone, kNone, kNone};
    std::uint32_t grid = kNone;
    StringId processFamily = 0;

    static constexpr oaTypeEnum kType = oacUnknownType;
    using Handle = oaObject;

    template <class Self, class Visitor>
    static void describe(Self& self, Visitor& visitor) {
        for (const std::uint32_t units : self.userUnits)
            visitor.require(units == kNone || units <= oacNanometer);
        visitor.string(self.processFamily);
    }
};

/// What was not among the settings at first: one record, or none when nothing of it is set.
struct MoreSettingsRecord {
    std::uint32_t clearanceMeasure = kNone;
    std::uint32_t gateGrounded = kNone;

    static constexpr oaTypeEnum kType = oacUnknownType;
    using Handle = oaObject;

    template <class Self, class Visitor>
    static void describe(Self& self, Visitor& visitor) {
        visitor.require(self.clearanceMeasure == kNone ||
                        self.clearanceMeasure <= oacMaxXYClearanceMeasure);
        visitor.require(self.gateGrounded == kNone || self.gateGrounded <= 1);
    }
};

/// A reference to the technology of another library.
struct TechRefRecord {
    StringId libName = 0; // native spelling

    static constexpr oaTypeEnum kType = oacTechHeaderType;
    using Handle = oaTechHeader;

    template <class Self, class Visitor>
    static void describe(Self& self, Visitor& visitor) {
        visitor.string(self.libName);
    }
};

/// A layer must not be with another one, which may be of any technology.
struct ExclusionRecord {
    std::uint32_t layer = 0;
    std::uint32_t number = 0;

    static constexpr oaTypeEnum kType = oacUnknownType;
    using Handle = oaObject;

    template <class Self, class Visitor>
    static void describe(Self& self, Visitor& visitor) {
        visitor.slot(kLayerTable, self.layer);
    }
};

/// A definition of parameters of derived layers as a technology keeps it.
struct StoredLayerParamDefRecord {
    StringId name = 0;
    std::uint32_t valueType = oacIntValueType;

    static constexpr oaTypeEnum kType = oacUnknownType;
    using Handle = oaObject;

    template <class Self, class Visitor>
    static void describe(Self& self, Visitor& visitor) {
        visitor.string(self.name);
        visitor.enumerator(self.valueType, oacStringValueType + 1);
    }
};

/// A parameter of a derived layer, or of none.
struct LayerParamRecord {
    std::uint32_t def = 0;
    std::uint32_t value = 0;
    std::uint32_t layer = kNone;

    static constexpr oaTypeEnum kType = oacDerivedLayerParamType;
    using Handle = oaDerivedLayerParam;

    template <class Self, class Visitor>
    static void describe(Self& self, Visitor& visitor) {
        visitor.slot(kLayerParamDefTable, self.def);
        visitor.slot(kValueTable, self.value);
        visitor.optionalSlot(kLayerTable, self.layer);
    }
};

} // namespace OpenAccess_4::impl
