#pragma once

#include "oaNamedEnum.h"

namespace OpenAccess_4 {

enum oaTextAlignEnum {
    oacUpperLeftTextAlign,
    oacCenterLeftTextAlign,
    oacLowerLeftTextAlign,
    oacUpperCenterTextAlign,
    oacCenterCenterTextAlign,
    oacLowerCenterTextAlign,
    oacUpperRightTextAlign,
    oacCenterRightTextAlign,
    oacLowerRightTextAlign,
};

/// The point of a text that lies on its origin.
OA_NAMED_ENUM(oaTextAlign);

enum oaFontEnum {
    oacEuroStyleFont,
    oacGothicFont,
    oacMathFont,
    oacRomanFont,
    oacScriptFont,
    oacStickFont,
    oacFixedFont,
    oacSwedishFont,
    oacMilSpecFont,
};

/// The font of a text.
OA_NAMED_ENUM(oaFont);

enum oaTextDisplayFormatEnum {
    oacNameTextDisplayFormat,
    oacValueTextDisplayFormat,
    oacNameValueTextDisplayFormat,
};

/// What a displayed property or attribute shows.
OA_NAMED_ENUM(oaTextDisplayFormat);

enum oaTermTypeEnum {
    oacInputTermType,
    oacOutputTermType,
    oacInputOutputTermType,
    oacSwitchTermType,
    oacJumperTermType,
    oacUnusedTermType,
    oacTristateTermType,
};

/// The direction of a terminal.
OA_NAMED_ENUM(oaTermType);

enum oaSigTypeEnum {
    oacSignalSigType,
    oacPowerSigType,
    oacGroundSigType,
    oacClockSigType,
    oacTieoffSigType,
    oacTieHiSigType,
    oacTieLoSigType,
    oacAnalogSigType,
    oacScanSigType,
    oacResetSigType,
};

/// The use of a net.
OA_NAMED_ENUM(oaSigType);

enum oaBlockDomainVisibilityEnum {
    oacInheritFromTopBlock,
    oacExcludeFromModuleDomain,
};

/// Whether an object of a block also shows in the module domain.
OA_NAMED_ENUM(oaBlockDomainVisibility);

enum oaPlacementStatusEnum {
    oacNonePlacementStatus,
    oacUnplacedPlacementStatus,
    oacPlacedPlacementStatus,
    oacFixedPlacementStatus,
    oacLockedPlacementStatus,
};

/// How firmly an instance or a pin is placed.
OA_NAMED_ENUM(oaPlacementStatus);

enum oaPinTypeEnum {
    oacNonePinType,
    oacCorePinType,
    oacBumpPinType,
};

/// What a pin connects to.
OA_NAMED_ENUM(oaPinType);

enum oaPathStyleEnum {
    oacTruncatePathStyle,
    oacExtendPathStyle,
    oacRoundPathStyle,
    oacVariablePathStyle,
};

/// The shape of the ends of a path.
OA_NAMED_ENUM(oaPathStyle);

enum oaCellTypeEnum {
    oacNoCellType,
    oacBlockCellType,
    oacBlockRingCellType,
    oacCoverCellType,
    oacCoverBumpCellType,
    oacPadCellType,
    oacPadSpacerCellType,
    oacCoreCellType,
    oacCoreSpacerCellType,
    oacCoreAntennaCellType,
    oacCornerCellType,
    oacSoftMacroCellType,
    oacViaCellType,
    oacBlockBlackBoxCellType,
    oacPadAreaIOCellType,
    oacCoreWellTapCellType,
};

/// The role of a cell in a chip.
OA_NAMED_ENUM(oaCellType);

enum oaBitOrderEnum {
    oacNoneBitOrder,
    oacAscendingBitOrder,
    oacDescendingBitOrder,
};

/// The direction in which the bits of a bus count.
OA_NAMED_ENUM(oaBitOrder);

/// The step in the life of a pcell that failed. Evaluators may report numbers of their own as well.
enum oaPcellErrorTypeEnum : oaUInt4 {
    oacPcellBindError,
    oacPcellUnbindError,
    oacPcellEvalError,
    oacPcellReadError,
    oacPcellWriteError,
    oacPcellCalcDiskSizeError,
    oacPcellPlugInError,
};

/// What changed in a design.
enum oaDesignModTypeEnum {
    oacSetCellTypeDesignModType,
    oacSetTopModDesignModType,
    oacSetDefaultConstraintGroupDesignModType,
    oacSetSymmetricConnectivityDesignModType,
};

/// What changed in a pin.
enum oaPinModTypeEnum {
    oacSetTermPinModType,
    oacSetNamePinModType,
    oacSetAccessDirPinModType,
    oacSetPlacementStatusPinModType,
};

/// The sides from which a pin is reached, joined with `|`.
inline constexpr oaUInt4 oacNone = 0;
inline constexpr oaUInt4 oacTop = 1;
inline constexpr oaUInt4 oacBottom = 2;
inline constexpr oaUInt4 oacLeft = 4;
inline constexpr oaUInt4 oacRight = 8;

/// Which nets a collection shows, joined with `|`. 0 is no filter.
inline constexpr oaUInt4 oacNetIterAll = 0;
inline constexpr oaUInt4 oacNetIterSingleBit = 1;
inline constexpr oaUInt4 oacNetIterBundle = 2;
inline constexpr oaUInt4 oacNetIterPreferred = 4;
inline constexpr oaUInt4 oacNetIterGlobal = 8;
inline constexpr oaUInt4 oacNetIterNotImplicit = 16;

/// Which terminals a collection shows, joined with `|`.
inline constexpr oaUInt4 oacTermIterAll = 0;
inline constexpr oaUInt4 oacTermIterSingleBit = 1;
inline constexpr oaUInt4 oacTermIterBundle = 2;
inline constexpr oaUInt4 oacTermIterEquivNets = 4;
inline constexpr oaUInt4 oacTermIterAllNotHidden = 8;
inline constexpr oaUInt4 oacTermIterNotImplicit = 16;

/// Which instances a collection shows, joined with `|`.
inline constexpr oaUInt4 oacInstIterAll = 0;
inline constexpr oaUInt4 oacInstIterSingleBit = 1;
inline constexpr oaUInt4 oacInstIterNotImplicit = 16;

/// Which instance terminals a collection shows, joined with `|`.
inline constexpr oaUInt4 oacInstTermIterAll = 0;
inline constexpr oaUInt4 oacInstTermIterSingleBit = 1;
inline constexpr oaUInt4 oacInstTermIterEquivNets = 4;
inline constexpr oaUInt4 oacInstTermIterAllNotHidden = 8;
inline constexpr oaUInt4 oacInstTermIterNotImplicit = 16;

/// Which shapes of a net a collection shows, joined with `|`.
inline constexpr oaUInt4 oacShapeIterNetOnly = 1;
inline constexpr oaUInt4 oacShapeIterNetPins = 2;
inline constexpr oaUInt4 oacShapeIterNetRoutes = 4;

/// Which vias of a net a collection shows, joined with `|`.
inline constexpr oaUInt4 oacViaIterNetOnly = 1;
inline constexpr oaUInt4 oacViaIterNetPins = 2;
inline constexpr oaUInt4 oacViaIterNetRoutes = 4;

/// Which groups a collection shows by the domain of their members, joined with `|`.
inline constexpr oaUInt4 oacGroupIterNoDomain = 1;
inline constexpr oaUInt4 oacGroupIterBlockDomain = 2;
inline constexpr oaUInt4 oacGroupIterModDomain = 4;
inline constexpr oaUInt4 oacGroupIterOccDomain = 8;

} // namespace OpenAccess_4

// Clients use these names without a qualifier and without a using-directive.
using OpenAccess_4::oacBottom;
using OpenAccess_4::oacGroupIterBlockDomain;
using OpenAccess_4::oacGroupIterModDomain;
using OpenAccess_4::oacGroupIterNoDomain;
using OpenAccess_4::oacGroupIterOccDomain;
using OpenAccess_4::oacInstIterAll;
using OpenAccess_4::oacInstIterNotImplicit;
using OpenAccess_4::oacInstIterSingleBit;
using OpenAccess_4::oacInstTermIterAll;
using OpenAccess_4::oacInstTermIterAllNotHidden;
using OpenAccess_4::oacInstTermIterEquivNets;
using OpenAccess_4::oacInstTermIterNotImplicit;
using OpenAccess_4::oacInstTermIterSingleBit;
using OpenAccess_4::oacLeft;
using OpenAccess_4::oacNetIterAll;
using OpenAccess_4::oacNetIterBundle;
using OpenAccess_4::oacNetIterGlobal;
using OpenAccess_4::oacNetIterNotImplicit;
using OpenAccess_4::oacNetIterPreferred;
using OpenAccess_4::oacNetIterSingleBit;
using OpenAccess_4::oacNone;
using OpenAccess_4::oacRight;
using OpenAccess_4::oacShapeIterNetOnly;
using OpenAccess_4::oacShapeIterNetPins;
using OpenAccess_4::oacShapeIterNetRoutes;
using OpenAccess_4::oacTermIterAll;
using OpenAccess_4::oacTermIterAllNotHidden;
using OpenAccess_4::oacTermIterBundle;
using OpenAccess_4::oacTermIterEquivNets;
using OpenAccess_4::oacTermIterNotImplicit;
using OpenAccess_4::oacTermIterSingleBit;
using OpenAccess_4::oacTop;
using OpenAccess_4::oacViaIterNetOnly;
using OpenAccess_4::oacViaIterNetPins;
using OpenAccess_4::oacViaIterNetRoutes;
