#include <oa/oaDesignDB.h>

#include "enum_values.h"

#include <gtest/gtest.h>

#include <vector>

using namespace oa;
using test::expectValues;

TEST(Enum, UserUnitsTypeHasItsValuesAndNames) {
    expectValues<oaUserUnitsType, oaUserUnitsTypeEnum>({
        {oacMicron, 0, "micron"},
        {oacMillimeter, 1, "millimeter"},
        {oacCentimeter, 2, "centimeter"},
        {oacMeter, 3, "meter"},
        {oacMil, 4, "mil"},
        {oacInch, 5, "inch"},
        {oacNanometer, 6, "nanometer"},
    });
}

TEST(Enum, MaterialHasItsValuesAndNames) {
    expectValues<oaMaterial, oaMaterialEnum>({
        {oacOtherMaterial, 0, "other"},
        {oacNWellMaterial, 1, "nWell"},
        {oacPWellMaterial, 2, "pWell"},
        {oacNDiffMaterial, 3, "nDiff"},
        {oacPDiffMaterial, 4, "pDiff"},
        {oacNImplantMaterial, 5, "nImplant"},
        {oacPImplantMaterial, 6, "pImplant"},
        {oacPolyMaterial, 7, "poly"},
        {oacCutMaterial, 8, "cut"},
        {oacMetalMaterial, 9, "metal"},
        {oacContactlessMetalMaterial, 10, "contactlessMetal"},
        {oacDiffMaterial, 11, "diffusion"},
        {oacRecognitionMaterial, 12, "recognition"},
        {oacPassivationCutMaterial, 13, "passivationCut"},
    });
}

TEST(Enum, PurposeTypeHasItsValuesAndNames) {
    expectValues<oaPurposeType, oaPurposeTypeEnum>({
        {oacDrawingPurposeType, 0, "drawing"},
        {oacFillPurposeType, 1, "fill"},
        {oacSlotPurposeType, 2, "slot"},
        {oacOPCSerifPurposeType, 3, "OPCSerif"},
        {oacOPCAntiSerifPurposeType, 4, "OPCAntiSerif"},
        {oacAnnotationPurposeType, 5, "annotation"},
        {oacGapFillPurposeType, 6, "gapFill"},
        {oacRedundantPurposeType, 7, "redundant"},
        {oacAnyPurposeType, 8, "oaAny"},
        {oacNoPurposeType, 9, "oaNo"},
        {oacFillOPCPurposeType, 10, "oaFillOPC"},
    });
}

TEST(Enum, PrefRoutingDirHasItsValuesAndNames) {
    expectValues<oaPrefRoutingDir, oaPrefRoutingDirEnum>({
        {oacNotApplicablePrefRoutingDir, 0, "notApplicable"},
        {oacNonePrefRoutingDir, 1, "none"},
        {oacHorzPrefRoutingDir, 2, "horizontal"},
        {oacVertPrefRoutingDir, 3, "vertical"},
        {oacLeftDiagPrefRoutingDir, 4, "leftDiag"},
        {oacRightDiagPrefRoutingDir, 5, "rightDiag"},
    });
}

TEST(Enum, LayerOpHasItsValuesAndNames) {
    expectValues<oaLayerOp, oaLayerOpEnum>({
        {oacAndLayerOp, 0, "AND"},
        {oacOrLayerOp, 1, "OR"},
        {oacNotLayerOp, 2, "NOT"},
        {oacXorLayerOp, 3, "XOR"},
        {oacTouchingLayerOp, 4, "TOUCHING"},
        {oacButtOnlyLayerOp, 5, "BUTTONLY"},
        {oacUserDefinedLayerOp, 6, "userDefined"},
        {oacInsideLayerOp, 7, "inside"},
        {oacOutsideLayerOp, 8, "outside"},
        {oacOverlappingLayerOp, 9, "overlapping"},
        {oacStraddlingLayerOp, 10, "straddling"},
        {oacAvoidingLayerOp, 11, "avoiding"},
        {oacButtingLayerOp, 12, "butting"},
        {oacCoincidentLayerOp, 13, "coincident"},
        {oacCoincidentOnlyLayerOp, 14, "coincidentOnly"},
        {oacEnclosingLayerOp, 15, "enclosing"},
        {oacButtingOrCoincidentLayerOp, 16, "buttingOrCoincident"},
        {oacButtingOrOverlappingLayerOp, 17, "buttingOrOverlapping"},
        {oacAreaLayerOp, 18, "area"},
        {oacGrowLayerOp, 19, "grow"},
        {oacShrinkLayerOp, 20, "shrink"},
        {oacGrowVerticalLayerOp, 21, "growVertical"},
        {oacGrowHorizontalLayerOp, 22, "growHorizontal"},
        {oacShrinkVerticalLayerOp, 23, "shrinkVertical"},
        {oacShrinkHorizontalLayerOp, 24, "shrinkHorizontal"},
    });
}

TEST(Enum, SizeOpHasItsValuesAndNames) {
    expectValues<oaSizeOp, oaSizeOpEnum>({
        {oacGrowSizeOp, 0, "GROW"},
        {oacShrinkSizeOp, 1, "SHRINK"},
    });
}

TEST(Enum, ViaParamTypeHasItsValuesAndNames) {
    expectValues<oaViaParamType, oaViaParamTypeEnum>({
        {oacLayer1EncViaParamType, 0, "layer1Enc"},
        {oacLayer2EncViaParamType, 1, "layer2Enc"},
        {oacImplant1EncViaParamType, 2, "implant1Enc"},
        {oacImplant2EncViaParamType, 3, "implant2Enc"},
        {oacLayer1OffsetViaParamType, 4, "layer1Offset"},
        {oacLayer2OffsetViaParamType, 5, "layer2Offset"},
        {oacCutSpacingViaParamType, 6, "cutSpacing"},
        {oacOriginOffsetViaParamType, 7, "originOffset"},
        {oacCutSizeViaParamType, 8, "cutSize"},
        {oacCutLayerViaParamType, 9, "cutLayer"},
        {oacCutColumnsViaParamType, 10, "cutColumns"},
        {oacCutRowsViaParamType, 11, "cutRows"},
        {oacCutWidthViaParamType, 12, "cutWidth"},
        {oacCutHeightViaParamType, 13, "cutHeight"},
    });
}

TEST(Enum, TechConflictTypeHasItsValues) {
    const std::vector<int> values = {
        oacLayerNameTechConflictType,           oacLayerNumTechConflictType,
        oacDerivedLayerTechConflictType,        oacPurposeNameTechConflictType,
        oacPurposeNumTechConflictType,          oacSiteDefNameTechConflictType,
        oacViaDefNameTechConflictType,          oacViaSpecTechConflictType,
        oacAnalysisLibNameTechConflictType,     oacConstraintNameTechConflictType,
        oacConstraintGroupNameTechConflictType, oacViaVariantNameTechConflictType,
        oacStdViaVariantTechConflictType,       oacCustomViaVariantTechConflictType};
    for (std::size_t i = 0; i < values.size(); ++i)
        EXPECT_EQ(values[i], static_cast<int>(i));
    EXPECT_EQ(values.size(), 14u);
}

TEST(Enum, TechModTypeHasItsValues) {
    const std::vector<int> values = {oacSetDBUPerUUTechModType,
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
                                     oacUnsetRefsTechModType};
    for (std::size_t i = 0; i < values.size(); ++i)
        EXPECT_EQ(values[i], static_cast<int>(i));
    EXPECT_EQ(values.size(), 14u);
}
