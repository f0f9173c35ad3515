#pragma once

#include "base/src/refs.h"
#include "base/src/table.h"
#include "design/src/given_param.h"
#include "design/src/table_numbers.h"
#include "oa/oaBlock.h"
#include "oa/oaInst.h"
#include "oa/oaInstHeader.h"
#include "oa/oaInstTerm.h"
#include "oa/oaLPPHeader.h"
#include "oa/oaNet.h"
#include "oa/oaOrient.h"
#include "oa/oaPin.h"
#include "oa/oaTerm.h"
#include "oa/oaType.h"

#include <cstdint>

namespace OpenAccess_4::impl {

/// What a design says of itself: one record.
struct DesignInfoRecord {
    std::int64_t createTime = 0;
    std::uint32_t cellType = oacNoCellType;
    std::uint32_t reserved = 0;

    using Handle = oaObject;
    static constexpr oaTypeEnum kType = oacUnknownType;

    template <class Self, class Visitor>
    static void describe(Self& self, Visitor& visitor) {
        visitor.enumerator(self.cellType, oacCoreWellTapCellType + 1);
        visitor.require(self.reserved == 0);
    }
};

/// The top block: at most one record.
struct BlockRecord {
    std::uint32_t visibleToModule = 1;

    using Handle = oaBlock;
    static constexpr oaTypeEnum kType = oacBlockType;

    template <class Self, class Visitor>
    static void describe(Self& self, Visitor& visitor) {
        visitor.enumerator(self.visibleToModule, 2);
    }
};

struct LayerHeaderRecord {
    std::uint32_t layer = 0;

    using Handle = oaLayerHeader;
    static constexpr oaTypeEnum kType = oacLayerHeaderType;

    template <class Self, class Visitor>
    static void describe(Self&, Visitor&) {}
};

struct LPPHeaderRecord {
    std::uint32_t layerHeader = 0;
    std::uint32_t purpose = 0;

    using Handle = oaLPPHeader;
    static constexpr oaTypeEnum kType = oacLPPHeaderType;

    template <class Self, class Visitor>
    static void describe(Self& self, Visitor& visitor) {
        visitor.slot(kLayerHeaderTable, self.layerHeader);
    }
};

struct NetRecord {
    StringId name = 0;
    std::uint8_t sigType = oacSignalSigType;
    std::uint8_t isGlobal = 0;
    std::uint8_t visibility = oacInheritFromTopBlock;
    std::uint8_t reserved = 0;

    using Handle = oaScalarNet;
    static constexpr oaTypeEnum kType = oacScalarNetType;

    template <class Self, class Visitor>
    static void describe(Self& self, Visitor& visitor) {
        visitor.string(self.name);
        visitor.require(self.name != 0); // no empty name
        visitor.enumerator(self.sigType, oacResetSigType + 1);
        visitor.enumerator(self.isGlobal, 2);
        visitor.enumerator(self.visibility, oacExcludeFromModuleDomain + 1);
        visitor.require(self.reserved == 0);
    }
};

struct TermRecord {
    StringId name = 0;
    std::uint32_t net = 0;
    std::uint32_t position = kNone;
    std::uint8_t termType = oacInputOutputTermType;
    std::uint8_t isInterface = 0;
    std::uint8_t visibility = oacInheritFromTopBlock;
    std::uint8_t reserved = 0;

    using Handle = oaScalarTerm;
    static constexpr oaTypeEnum kType = oacScalarTermType;

    template <class Self, class Visitor>
    static void describe(Self& self, Visitor& visitor) {
        visitor.string(self.name);
        visitor.require(self.name != 0); // no empty name
        visitor.slot(kNetTable, self.net);
        visitor.enumerator(self.termType, oacTristateTermType + 1);
        visitor.enumerator(self.isInterface, 2);
        visitor.enumerator(self.visibility, oacExcludeFromModuleDomain + 1);
        visitor.require(self.reserved == 0);
    }
};

struct PinRecord {
    StringId name = 0;
    std::uint32_t term = 0;
    std::uint32_t accessDir = oacNone;
    std::uint8_t status = oacNonePlacementStatus;
    std::uint8_t pinType = oacNonePinType;
    std::uint16_t reserved = 0;

    using Handle = oaPin;
    static constexpr oaTypeEnum kType = oacPinType;

    template <class Self, class Visitor>
    static void describe(Self& self, Visitor& visitor) {
        visitor.string(self.name);
        visitor.slot(kTermTable, self.term);
        visitor.enumerator(self.status, oacLockedPlacementStatus + 1);
        visitor.enumerator(self.pinType, oacBumpPinType + 1);
        visitor.require(self.reserved == 0);
    }
};

/// The names of a master, shared by all its instances, which the public header lists.
struct MasterRecord {
    StringId lib = 0;
    StringId cell = 0;
    StringId view = 0;

    using Handle = oaInstHeader;
    static constexpr oaTypeEnum kType = oacInstHeaderType;

    template <class Self, class Visitor>
    static void describe(Self& self, Visitor& visitor) {
        visitor.string(self.lib);
        visitor.string(self.cell);
        visitor.string(self.view);
    }
};

/// The instances of a master that were given the same parameters. Not stored.
struct SubHeaderRecord {
    std::uint32_t master = 0;
    const std::string* params = nullptr; // what they are found by
    oaDesign* bound = nullptr;           // the submaster; no longer valid when it is purged

    using Handle = oaInstHeader;
    static constexpr oaTypeEnum kType = oacInstHeaderType;
};

enum class InstKind : std::uint8_t {
    Scalar,
    Array,
    Vector,
    VectorBit,
    ImplicitBit, // of a vector, which it shows in everything but its name
    Count
};

struct InstRecord {
    StringId name = 0; // of vectors and bits with their indices
    std::uint32_t master = 0;
    std::int32_t x = 0;
    std::int32_t y = 0;
    std::int32_t dX = 0; // the last four are of arrays, and zero for other instances
    std::int32_t dY = 0;
    std::uint32_t rows = 0; // of an implicit bit, the slot of its vector
    std::uint32_t cols = 0;
    std::uint8_t orient = oacR0;
    InstKind kind = InstKind::Scalar;
    std::uint8_t status = oacNonePlacementStatus;
    std::uint8_t visibility = oacInheritFromTopBlock;

    bool isArray() const { return kind == InstKind::Array; }
    bool isVector() const { return kind == InstKind::Vector; }
    bool isImplicit() const { return kind == InstKind::ImplicitBit; }
    std::uint32_t vector() const { return rows; }

    oaTypeEnum type() const;
    oaObject* construct(void* where) const;

    template <class Self, class Visitor>
    static void describe(Self& self, Visitor& visitor) {
        visitor.string(self.name);
        visitor.require(self.name != 0); // no empty name
        visitor.slot(kMasterTable, self.master);
        visitor.enumerator(self.orient, oacMXR90 + 1);
        visitor.enumerator(std::uint32_t(self.kind), std::uint32_t(InstKind::Count));
        visitor.enumerator(self.status, oacLockedPlacementStatus + 1);
        visitor.enumerator(self.visibility, oacExcludeFromModuleDomain + 1);
        visitor.require(self.isArray() == (self.rows > 0 && self.cols > 0));
        if (self.isImplicit())
            visitor.slot(kInstTable, self.rows);
    }
};

/// A connection of an instance: to the terminal of its master with that name or, when there is no
/// name, at that position.
struct InstTermRecord {
    std::uint32_t net = kNone;
    std::uint32_t inst = 0;
    StringId name = 0;
    std::uint32_t position = kNone;
    std::uint8_t visibility = oacInheritFromTopBlock;
    std::uint8_t reserved[3] = {};

    using Handle = oaInstTerm;
    static constexpr oaTypeEnum kType = oacInstTermType;

    template <class Self, class Visitor>
    static void describe(Self& self, Visitor& visitor) {
        visitor.optionalSlot(kNetTable, self.net);
        visitor.slot(kInstTable, self.inst);
        visitor.string(self.name);
        visitor.require((self.name != 0) != (self.position != kNone));
        visitor.enumerator(self.visibility, oacExcludeFromModuleDomain + 1);
        for (const std::uint8_t byte : self.reserved)
            visitor.require(byte == 0);
    }
};

using InstParamRecord = GivenParamRecord<kInstTable>;

/// A figure and what it belongs to. It stands beside the figure's own record, so that a figure that
/// belongs to nothing pays nothing.
template <std::uint32_t ownerTable, bool (*mayBelong)(std::uint32_t figTable)>
struct FigOwnerRecord {
    ObjectRef fig;
    std::uint32_t owner = 0;
    static constexpr std::uint32_t kOwnerTable = ownerTable;

    using Handle = oaObject;
    static constexpr oaTypeEnum kType = oacUnknownType;

    template <class Self, class Visitor>
    static void describe(Self& self, Visitor& visitor) {
        visitor.require(mayBelong(self.fig.table));
        visitor.object(self.fig);
        visitor.slot(kOwnerTable, self.owner);
    }
};

/// A figure on a net.
using FigNetRecord = FigOwnerRecord<kNetTable, holdsFigures>;

/// A figure of a pin.
using FigPinRecord = FigOwnerRecord<kPinTable, holdsFigures>;

/// A shape that was moved to another layer-purpose pair after it was made: its record stays in the
/// table of its first pair, so that pointers to it stay valid.
using MovedShapeRecord = FigOwnerRecord<kLPPHeaderTable, holdsShapes>;

} // namespace OpenAccess_4::impl
