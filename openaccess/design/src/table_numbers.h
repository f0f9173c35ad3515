#pragma once

#include "base/src/table_numbers.h"

namespace OpenAccess_4::impl {

// Tables that a design has once. Their numbers stand in design files.
inline constexpr std::uint32_t kDesignInfoTable = 8;
inline constexpr std::uint32_t kBlockTable = 9;
inline constexpr std::uint32_t kLayerHeaderTable = 10;
inline constexpr std::uint32_t kLPPHeaderTable = 11;
inline constexpr std::uint32_t kNetTable = 12;
inline constexpr std::uint32_t kTermTable = 13;
inline constexpr std::uint32_t kPinTable = 14;
inline constexpr std::uint32_t kMasterTable = 15;
inline constexpr std::uint32_t kInstTable = 16;
inline constexpr std::uint32_t kInstParamTable = 17;
inline constexpr std::uint32_t kFigNetTable = 18;
inline constexpr std::uint32_t kFigPinTable = 19;
inline constexpr std::uint32_t kMovedShapeTable = 20;
inline constexpr std::uint32_t kInstTermTable = 21;
inline constexpr std::uint32_t kSubHeaderTable = 22; // not stored, nor the next two
inline constexpr std::uint32_t kOccurrenceTable = 23;
inline constexpr std::uint32_t kOccInstTable = 24;
inline constexpr std::uint32_t kViaHeaderTable = 25;
inline constexpr std::uint32_t kViaSubHeaderTable = 26;
inline constexpr std::uint32_t kViaParamTable = 27;
inline constexpr std::uint32_t kViaTable = 28;
// 40 to 47 are the tables of pcells.
inline constexpr std::uint32_t kSuperMasterTable = 40;
inline constexpr std::uint32_t kPcellParamTable = 41;
inline constexpr bool isPcellTable(std::uint32_t table) {
    return table >= kSuperMasterTable && table <= kPcellParamTable;
}

// Kinds of the tables that a design has one of for each layer-purpose pair; their parameter is the
// slot of the pair's header.
inline constexpr std::uint32_t kFirstShapeKind = 48;
inline constexpr std::uint32_t kRectKind = 48;
inline constexpr std::uint32_t kPolygonKind = 49;
inline constexpr std::uint32_t kLineKind = 50;
inline constexpr std::uint32_t kPathKind = 51;
inline constexpr std::uint32_t kPathSegKind = 52;
inline constexpr std::uint32_t kArcKind = 53;
inline constexpr std::uint32_t kEllipseKind = 54;
inline constexpr std::uint32_t kDonutKind = 55;
inline constexpr std::uint32_t kDotKind = 56;
inline constexpr std::uint32_t kTextKind = 57;
inline constexpr std::uint32_t kEvalTextKind = 58;
inline constexpr std::uint32_t kPropDisplayKind = 59;
inline constexpr std::uint32_t kAttrDisplayKind = 60;
inline constexpr std::uint32_t kEndOfShapeKinds = 61;
inline constexpr std::uint32_t kShapeKinds = kEndOfShapeKinds - kFirstShapeKind;

/// All variable tables of a design hold shapes.
inline constexpr bool holdsShapes(std::uint32_t table) {
    return table >= kFirstVariableTable;
}

inline constexpr bool holdsFigures(std::uint32_t table) {
    return table == kInstTable || table == kViaTable || holdsShapes(table);
}

} // namespace OpenAccess_4::impl
