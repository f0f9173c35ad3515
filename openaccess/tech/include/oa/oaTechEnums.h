#pragma once

#include "oaNamedEnum.h"

namespace OpenAccess_4 {

enum oaUserUnitsTypeEnum {
    oacMicron,
    oacMillimeter,
    oacCentimeter,
    oacMeter,
    oacMil,
    oacInch,
    oacNanometer,
};

/// The unit in which users give lengths.
OA_NAMED_ENUM(oaUserUnitsType);

enum oaMaterialEnum {
    oacOtherMaterial,
    oacNWellMaterial,
    oacPWellMaterial,
    oacNDiffMaterial,
    oacPDiffMaterial,
    oacNImplantMaterial,
    oacPImplantMaterial,
    oacPolyMaterial,
    oacCutMaterial,
    oacMetalMaterial,
    oacContactlessMetalMaterial,
    oacDiffMaterial,
    oacRecognitionMaterial,
    oacPassivationCutMaterial,
};

/// What a physical layer is made of.
OA_NAMED_ENUM(oaMaterial);

enum oaPurposeTypeEnum {
    oacDrawingPurposeType,
    oacFillPurposeType,
    oacSlotPurposeType,
    oacOPCSerifPurposeType,
    oacOPCAntiSerifPurposeType,
    oacAnnotationPurposeType,
    oacGapFillPurposeType,
    oacRedundantPurposeType,
    oacAnyPurposeType,
    oacNoPurposeType,
    oacFillOPCPurposeType,
};

/// The meaning of a purpose.
OA_NAMED_ENUM(oaPurposeType);

enum oaPrefRoutingDirEnum {
    oacNotApplicablePrefRoutingDir,
    oacNonePrefRoutingDir,
    oacHorzPrefRoutingDir,
    oacVertPrefRoutingDir,
    oacLeftDiagPrefRoutingDir,
    oacRightDiagPrefRoutingDir,
};

/// The direction in which a layer is routed.
OA_NAMED_ENUM(oaPrefRoutingDir);

enum oaLayerOpEnum {
    oacAndLayerOp,
    oacOrLayerOp,
    oacNotLayerOp,
    oacXorLayerOp,
    oacTouchingLayerOp,
    oacButtOnlyLayerOp,
    oacUserDefinedLayerOp,
    oacInsideLayerOp,
    oacOutsideLayerOp,
    oacOverlappingLayerOp,
    oacStraddlingLayerOp,
    oacAvoidingLayerOp,
    oacButtingLayerOp,
    oacCoincidentLayerOp,
    oacCoincidentOnlyLayerOp,
    oacEnclosingLayerOp,
    oacButtingOrCoincidentLayerOp,
    oacButtingOrOverlappingLayerOp,
    oacAreaLayerOp,
    oacGrowLayerOp,
    oacShrinkLayerOp,
    oacGrowVerticalLayerOp,
    oacGrowHorizontalLayerOp,
    oacShrinkVerticalLayerOp,
    oacShrinkHorizontalLayerOp,
};

/// How a derived layer follows from other layers.
OA_NAMED_ENUM(oaLayerOp);

enum oaSizeOpEnum {
    oacGrowSizeOp,
    oacShrinkSizeOp,
};

/// How a sized layer follows from its layer.
OA_NAMED_ENUM(oaSizeOp);

enum oaViaParamTypeEnum {
    oacLayer1EncViaParamType,
    oacLayer2EncViaParamType,
    oacImplant1EncViaParamType,
    oacImplant2EncViaParamType,
    oacLayer1OffsetViaParamType,
    oacLayer2OffsetViaParamType,
    oacCutSpacingViaParamType,
    oacOriginOffsetViaParamType,
    oacCutSizeViaParamType,
    oacCutLayerViaParamType,
    oacCutColumnsViaParamType,
    oacCutRowsViaParamType,
    oacCutWidthViaParamType,
    oacCutHeightViaParamType,
};

/// One parameter of a standard via.
OA_NAMED_ENUM(oaViaParamType);

enum oaClearanceMeasureEnum {
    oacEuclidianClearanceMeasure,
    oacMaxXYClearanceMeasure,
};

/// How the distance between two shapes is measured.
OA_NAMED_ENUM(oaClearanceMeasure);

enum oaDerivedLayerParamTypeEnum {
    oacConnectivityTypeDerivedLayerParamType,
    oacSelectShapesInRangeDerivedLayerParamType,
    oacRangeDerivedLayerParamType,
    oacAreaRangeDerivedLayerParamType,
    oacExclusiveDerivedLayerParamType,
    oacDistanceDerivedLayerParamType,
};

/// The parameters of derived layers that are built in.
OA_NAMED_ENUM(oaDerivedLayerParamType);

enum oaRangeTypeEnum {
    oacLessThanRangeType,
    oacLessThanEqualRangeType,
    oacGreaterThanRangeType,
    oacGreaterThanEqualRangeType,
    oacClosedRangeType,
    oacOpenRangeType,
    oacOpenLeftRangeType,
    oacOpenRightRangeType,
};

/// Which bounds a range has, and whether they belong to it.
OA_NAMED_ENUM(oaRangeType);

enum oaSiteDefTypeEnum {
    oacCoreSiteDefType,
    oacPadSiteDefType,
};

/// What is placed on the sites of a definition.
OA_NAMED_ENUM(oaSiteDefType);

/// What two technologies of one reference chain both define.
enum oaTechConflictTypeEnum {
    oacLayerNameTechConflictType,
    oacLayerNumTechConflictType,
    oacDerivedLayerTechConflictType,
    oacPurposeNameTechConflictType,
    oacPurposeNumTechConflictType,
    oacSiteDefNameTechConflictType,
    oacViaDefNameTechConflictType,
    oacViaSpecTechConflictType,
    oacAnalysisLibNameTechConflictType,
    oacConstraintNameTechConflictType,
    oacConstraintGroupNameTechConflictType,
    oacViaVariantNameTechConflictType,
    oacStdViaVariantTechConflictType,
    oacCustomViaVariantTechConflictType,
};

/// What changed in a technology.
enum oaTechModTypeEnum {
    oacSetDBUPerUUTechModType,
    oacSetUserUnitsTechModType,
    oacSetClearanceMeasureTechModType,
    oacSetDefaultManufacturingGridTechModType,
    oacSetDefaultConstraintGroupTechModType,
    oacSetFoundryConstraintGroupTechModType,
    oacSetRefsTechModType,
    oacSetGateGroundedTechModType,
    oacUnsetDBUPerUUTechModType,
    oacUnsetUserUnitsTechModType,
    oacUnsetClearanceMeasureTechModType,
    oacUnsetDefaultManufacturingGridTechModType,
    oacUnsetGateGroundedTechModType,
    oacUnsetRefsTechModType,
};

/// Whether a collection of a technology shows those that it refers to as well.
inline constexpr oaUInt4 oacLayerIterAll = 0;
inline constexpr oaUInt4 oacLayerIterLocal = 1;
inline constexpr oaUInt4 oacPurposeIterAll = 0;
inline constexpr oaUInt4 oacPurposeIterLocal = 1;
inline constexpr oaUInt4 oacTechValueIterAll = 0;
inline constexpr oaUInt4 oacTechValueIterLocal = 1;
inline constexpr oaUInt4 oacViaDefIterAll = 0;
inline constexpr oaUInt4 oacViaDefIterLocal = 1;
inline constexpr oaUInt4 oacSiteDefIterAll = 0;
inline constexpr oaUInt4 oacSiteDefIterLocal = 1;

} // namespace OpenAccess_4

// Clients use these names without a qualifier and without a using-directive.
using OpenAccess_4::oacLayerIterAll;
using OpenAccess_4::oacLayerIterLocal;
using OpenAccess_4::oacPurposeIterAll;
using OpenAccess_4::oacPurposeIterLocal;
using OpenAccess_4::oacSiteDefIterAll;
using OpenAccess_4::oacSiteDefIterLocal;
using OpenAccess_4::oacTechValueIterAll;
using OpenAccess_4::oacTechValueIterLocal;
using OpenAccess_4::oacViaDefIterAll;
using OpenAccess_4::oacViaDefIterLocal;
