#pragma once

#include "base/src/properties.h"
#include "base/src/refs.h"
#include "base/src/table.h"
#include "design/src/table_numbers.h"
#include "oa/oaArc.h"
#include "oa/oaBaseEnums.h"
#include "oa/oaBox.h"
#include "oa/oaDonut.h"
#include "oa/oaDot.h"
#include "oa/oaEllipse.h"
#include "oa/oaEvalText.h"
#include "oa/oaLine.h"
#include "oa/oaPath.h"
#include "oa/oaPathSeg.h"
#include "oa/oaPolygon.h"
#include "oa/oaRect.h"
#include "oa/oaTextDisplay.h"

#include <cmath>
#include <cstdint>

/// The records of shapes. Layer and purpose are those of the table.
namespace OpenAccess_4::impl {

inline bool hasArea(const oaBox& box) {
    return box.left() < box.right() && box.bottom() < box.top();
}

struct RectRecord {
    oaBox box;

    using Handle = oaRect;
    static constexpr oaTypeEnum kType = oacRectType;
    static constexpr std::uint32_t kKind = kRectKind;

    template <class Self, class Visitor>
    static void describe(Self& self, Visitor& visitor) {
        visitor.require(hasArea(self.box));
    }
};
static_assert(sizeof(RectRecord) == 16);

struct PolygonRecord {
    PointsRef points;

    using Handle = oaPolygon;
    static constexpr oaTypeEnum kType = oacPolygonType;
    static constexpr std::uint32_t kKind = kPolygonKind;

    template <class Self, class Visitor>
    static void describe(Self& self, Visitor& visitor) {
        visitor.points(self.points, 3);
    }
};

struct LineRecord {
    PointsRef points;

    using Handle = oaLine;
    static constexpr oaTypeEnum kType = oacLineType;
    static constexpr std::uint32_t kKind = kLineKind;

    template <class Self, class Visitor>
    static void describe(Self& self, Visitor& visitor) {
        visitor.points(self.points, 2);
    }
};

struct PathRecord {
    PointsRef points;
    std::uint32_t width = 0;
    std::uint32_t style = oacTruncatePathStyle;
    std::uint32_t beginExt = 0;
    std::uint32_t endExt = 0;

    using Handle = oaPath;
    static constexpr oaTypeEnum kType = oacPathType;
    static constexpr std::uint32_t kKind = kPathKind;

    template <class Self, class Visitor>
    static void describe(Self& self, Visitor& visitor) {
        visitor.points(self.points, 2);
        visitor.enumerator(self.style, oacVariablePathStyle + 1);
    }
};

/// One end of a path segment, as oaSegStyle has it.
struct SegEnd {
    std::uint32_t style = oacTruncateEndStyle;
    std::uint32_t ext = 0;
    std::uint32_t leftDiagExt = 0;
    std::uint32_t rightDiagExt = 0;
    std::uint32_t rightHalfWidth = 0;
};

struct PathSegRecord {
    oaPoint begin;
    oaPoint end;
    std::uint32_t width = 0;
    SegEnd beginEnd;
    SegEnd endEnd;

    using Handle = oaPathSeg;
    static constexpr oaTypeEnum kType = oacPathSegType;
    static constexpr std::uint32_t kKind = kPathSegKind;

    template <class Self, class Visitor>
    static void describe(Self& self, Visitor& visitor) {
        visitor.require(self.begin != self.end);
        visitor.enumerator(self.beginEnd.style, oacCustomEndStyle + 1);
        visitor.enumerator(self.endEnd.style, oacCustomEndStyle + 1);
    }
};

struct ArcRecord {
    oaBox ellipse;
    double startAngle = 0;
    double stopAngle = 0;

    using Handle = oaArc;
    static constexpr oaTypeEnum kType = oacArcType;
    static constexpr std::uint32_t kKind = kArcKind;

    template <class Self, class Visitor>
    static void describe(Self& self, Visitor& visitor) {
        visitor.require(hasArea(self.ellipse));
        visitor.require(std::isfinite(self.startAngle) && std::isfinite(self.stopAngle));
    }
};

struct EllipseRecord {
    oaBox box;

    using Handle = oaEllipse;
    static constexpr oaTypeEnum kType = oacEllipseType;
    static constexpr std::uint32_t kKind = kEllipseKind;

    template <class Self, class Visitor>
    static void describe(Self& self, Visitor& visitor) {
        visitor.require(hasArea(self.box));
    }
};

struct DonutRecord {
    oaPoint center;
    std::uint32_t radius = 0;
    std::uint32_t holeRadius = 0;

    using Handle = oaDonut;
    static constexpr oaTypeEnum kType = oacDonutType;
    static constexpr std::uint32_t kKind = kDonutKind;

    template <class Self, class Visitor>
    static void describe(Self& self, Visitor& visitor) {
        visitor.require(self.holeRadius < self.radius);
    }
};

struct DotRecord {
    oaPoint location;
    std::uint32_t width = 0;
    std::uint32_t height = 0;

    using Handle = oaDot;
    static constexpr oaTypeEnum kType = oacDotType;
    static constexpr std::uint32_t kKind = kDotKind;

    template <class Self, class Visitor>
    static void describe(Self&, Visitor&) {}
};

/// How a text stands and looks.
struct TextStyle {
    oaPoint origin;
    std::uint32_t height = 0;
    std::uint8_t alignment = oacLowerLeftTextAlign;
    std::uint8_t orient = oacR0;
    std::uint8_t font = oacStickFont;
    std::uint8_t flags = kVisible | kDrafting;

    static constexpr std::uint8_t kOverbar = 1;
    static constexpr std::uint8_t kVisible = 2;
    static constexpr std::uint8_t kDrafting = 4;

    template <class Self, class Visitor>
    static void describe(Self& self, Visitor& visitor) {
        visitor.enumerator(self.alignment, oacLowerRightTextAlign + 1);
        visitor.enumerator(self.orient, oacMXR90 + 1);
        visitor.enumerator(self.font, oacMilSpecFont + 1);
        visitor.enumerator(self.flags, 8);
    }
};

struct TextRecord {
    TextStyle style;
    StringId text = 0;

    using Handle = oaText;
    static constexpr oaTypeEnum kType = oacTextType;
    static constexpr std::uint32_t kKind = kTextKind;

    template <class Self, class Visitor>
    static void describe(Self& self, Visitor& visitor) {
        TextStyle::describe(self.style, visitor);
        visitor.string(self.text);
    }
};

struct EvalTextRecord {
    TextStyle style;
    StringId text =
        0; // the expression; at the same place as in TextRecord, its base class's record
    StringId link = 0; // the evaluator's name

    using Handle = oaEvalText;
    static constexpr oaTypeEnum kType = oacEvalTextType;
    static constexpr std::uint32_t kKind = kEvalTextKind;

    template <class Self, class Visitor>
    static void describe(Self& self, Visitor& visitor) {
        TextStyle::describe(self.style, visitor);
        visitor.string(self.text);
        visitor.string(self.link);
    }
};

struct PropDisplayRecord {
    TextStyle style;
    std::uint32_t format = oacNameTextDisplayFormat;
    std::uint32_t prop = 0;

    using Handle = oaPropDisplay;
    static constexpr oaTypeEnum kType = oacPropDisplayType;
    static constexpr std::uint32_t kKind = kPropDisplayKind;

    ObjectRef shown() const { return {kPropTable, prop}; }

    template <class Self, class Visitor>
    static void describe(Self& self, Visitor& visitor) {
        TextStyle::describe(self.style, visitor);
        visitor.enumerator(self.format, oacNameValueTextDisplayFormat + 1);
        visitor.slot(kPropTable, self.prop);
    }
};

/// The number of attributes that the objects of a table have.
inline constexpr std::uint32_t attributesOf(std::uint32_t table) {
    switch (table) {
    case kDatabaseItself.table:
        return oacLastSavedTimeDesignAttrType + 1;
    case kNetTable:
        return oacNumBitsNetAttrType + 1;
    case kTermTable:
        return oacNumBitsTermAttrType + 1;
    case kInstTable:
        return oacIsBoundInstAttrType + 1;
    default:
        return 0;
    }
}

struct AttrDisplayRecord {
    TextStyle style;
    std::uint32_t format = oacNameTextDisplayFormat;
    std::uint32_t attribute = 0;
    ObjectRef object;

    using Handle = oaAttrDisplay;
    static constexpr oaTypeEnum kType = oacAttrDisplayType;
    static constexpr std::uint32_t kKind = kAttrDisplayKind;

    ObjectRef shown() const { return object; }

    template <class Self, class Visitor>
    static void describe(Self& self, Visitor& visitor) {
        TextStyle::describe(self.style, visitor);
        visitor.enumerator(self.format, oacNameValueTextDisplayFormat + 1);
        visitor.enumerator(self.attribute, attributesOf(self.object.table));
        visitor.object(self.object);
    }
};

/// Calls `use.operator()<Record>()` with the record type of a shape kind.
template <class Use>
decltype(auto) withShapeRecord(std::uint32_t kind, Use&& use) {
    switch (kind) {
    case kPolygonKind:
        return use.template operator()<PolygonRecord>();
    case kLineKind:
        return use.template operator()<LineRecord>();
    case kPathKind:
        return use.template operator()<PathRecord>();
    case kPathSegKind:
        return use.template operator()<PathSegRecord>();
    case kArcKind:
        return use.template operator()<ArcRecord>();
    case kEllipseKind:
        return use.template operator()<EllipseRecord>();
    case kDonutKind:
        return use.template operator()<DonutRecord>();
    case kDotKind:
        return use.template operator()<DotRecord>();
    case kTextKind:
        return use.template operator()<TextRecord>();
    case kEvalTextKind:
        return use.template operator()<EvalTextRecord>();
    case kPropDisplayKind:
        return use.template operator()<PropDisplayRecord>();
    case kAttrDisplayKind:
        return use.template operator()<AttrDisplayRecord>();
    default:
        return use.template operator()<RectRecord>();
    }
}

} // namespace OpenAccess_4::impl
