#include <oa/oaDesignDB.h>

#include "enum_values.h"

#include <gtest/gtest.h>

#include <vector>

using namespace oa;
using test::expectValues;

TEST(Enum, TextAlignHasItsValuesAndNames) {
    expectValues<oaTextAlign, oaTextAlignEnum>({
        {oacUpperLeftTextAlign, 0, "upperLeft"},
        {oacCenterLeftTextAlign, 1, "centerLeft"},
        {oacLowerLeftTextAlign, 2, "lowerLeft"},
        {oacUpperCenterTextAlign, 3, "upperCenter"},
        {oacCenterCenterTextAlign, 4, "centerCenter"},
        {oacLowerCenterTextAlign, 5, "lowerCenter"},
        {oacUpperRightTextAlign, 6, "upperRight"},
        {oacCenterRightTextAlign, 7, "centerRight"},
        {oacLowerRightTextAlign, 8, "lowerRight"},
    });
}

TEST(Enum, FontHasItsValuesAndNames) {
    expectValues<oaFont, oaFontEnum>({
        {oacEuroStyleFont, 0, "euroStyle"},
        {oacGothicFont, 1, "gothic"},
        {oacMathFont, 2, "math"},
        {oacRomanFont, 3, "roman"},
        {oacScriptFont, 4, "script"},
        {oacStickFont, 5, "stick"},
        {oacFixedFont, 6, "fixed"},
        {oacSwedishFont, 7, "swedish"},
        {oacMilSpecFont, 8, "milSpec"},
    });
}

TEST(Enum, TextDisplayFormatHasItsValuesAndNames) {
    expectValues<oaTextDisplayFormat, oaTextDisplayFormatEnum>({
        {oacNameTextDisplayFormat, 0, "name"},
        {oacValueTextDisplayFormat, 1, "value"},
        {oacNameValueTextDisplayFormat, 2, "nameValue"},
    });
}

TEST(Enum, TermTypeHasItsValuesAndNames) {
    expectValues<oaTermType, oaTermTypeEnum>({
        {oacInputTermType, 0, "input"},
        {oacOutputTermType, 1, "output"},
        {oacInputOutputTermType, 2, "inputOutput"},
        {oacSwitchTermType, 3, "switch"},
        {oacJumperTermType, 4, "jumper"},
        {oacUnusedTermType, 5, "unused"},
        {oacTristateTermType, 6, "tristate"},
    });
}

TEST(Enum, SigTypeHasItsValuesAndNames) {
    expectValues<oaSigType, oaSigTypeEnum>({
        {oacSignalSigType, 0, "signal"},
        {oacPowerSigType, 1, "power"},
        {oacGroundSigType, 2, "ground"},
        {oacClockSigType, 3, "clock"},
        {oacTieoffSigType, 4, "tieoff"},
        {oacTieHiSigType, 5, "tieHi"},
        {oacTieLoSigType, 6, "tieLo"},
        {oacAnalogSigType, 7, "analog"},
        {oacScanSigType, 8, "scan"},
        {oacResetSigType, 9, "reset"},
    });
}

TEST(Enum, BlockDomainVisibilityHasItsValuesAndNames) {
    expectValues<oaBlockDomainVisibility, oaBlockDomainVisibilityEnum>({
        {oacInheritFromTopBlock, 0, "inheritFromTopBlock"},
        {oacExcludeFromModuleDomain, 1, "excludeFromModuleDomain"},
    });
}

TEST(Enum, PlacementStatusHasItsValuesAndNames) {
    expectValues<oaPlacementStatus, oaPlacementStatusEnum>({
        {oacNonePlacementStatus, 0, "none"},
        {oacUnplacedPlacementStatus, 1, "unplaced"},
        {oacPlacedPlacementStatus, 2, "placed"},
        {oacFixedPlacementStatus, 3, "fixed"},
        {oacLockedPlacementStatus, 4, "locked"},
    });
}

TEST(Enum, PinTypeHasItsValuesAndNames) {
    expectValues<oaPinType, oaPinTypeEnum>({
        {oacNonePinType, 0, "none"},
        {oacCorePinType, 1, "core"},
        {oacBumpPinType, 2, "bump"},
    });
}

TEST(Enum, PathStyleHasItsValuesAndNames) {
    expectValues<oaPathStyle, oaPathStyleEnum>({
        {oacTruncatePathStyle, 0, "truncate"},
        {oacExtendPathStyle, 1, "extend"},
        {oacRoundPathStyle, 2, "round"},
        {oacVariablePathStyle, 3, "variable"},
    });
}

TEST(Enum, CellTypeHasItsValuesAndNames) {
    expectValues<oaCellType, oaCellTypeEnum>({
        {oacNoCellType, 0, "none"},
        {oacBlockCellType, 1, "block"},
        {oacBlockRingCellType, 2, "blockRing"},
        {oacCoverCellType, 3, "cover"},
        {oacCoverBumpCellType, 4, "coverBump"},
        {oacPadCellType, 5, "pad"},
        {oacPadSpacerCellType, 6, "padSpacer"},
        {oacCoreCellType, 7, "core"},
        {oacCoreSpacerCellType, 8, "coreSpacer"},
        {oacCoreAntennaCellType, 9, "coreAntenna"},
        {oacCornerCellType, 10, "corner"},
        {oacSoftMacroCellType, 11, "softMacro"},
        {oacViaCellType, 12, "via"},
        {oacBlockBlackBoxCellType, 13, "blockBlackBox"},
        {oacPadAreaIOCellType, 14, "padAreaIO"},
        {oacCoreWellTapCellType, 15, "coreWellTap"},
    });
}

TEST(Enum, BitOrderHasItsValuesAndNames) {
    expectValues<oaBitOrder, oaBitOrderEnum>({
        {oacNoneBitOrder, 0, "none"},
        {oacAscendingBitOrder, 1, "ascending"},
        {oacDescendingBitOrder, 2, "descending"},
    });
}

TEST(Enum, PcellErrorTypeHasItsValues) {
    const std::vector<int> values = {
        oacPcellBindError,  oacPcellUnbindError,       oacPcellEvalError,  oacPcellReadError,
        oacPcellWriteError, oacPcellCalcDiskSizeError, oacPcellPlugInError};
    for (std::size_t i = 0; i < values.size(); ++i)
        EXPECT_EQ(values[i], static_cast<int>(i));
    EXPECT_EQ(values.size(), 7u);
}

TEST(Enum, DesignModTypeHasItsValues) {
    const std::vector<int> values = {oacSetCellTypeDesignModType, oacSetTopModDesignModType,
                                     oacSetDefaultConstraintGroupDesignModType,
                                     oacSetSymmetricConnectivityDesignModType};
    for (std::size_t i = 0; i < values.size(); ++i)
        EXPECT_EQ(values[i], static_cast<int>(i));
    EXPECT_EQ(values.size(), 4u);
}

TEST(Enum, PinModTypeHasItsValues) {
    const std::vector<int> values = {oacSetTermPinModType, oacSetNamePinModType,
                                     oacSetAccessDirPinModType, oacSetPlacementStatusPinModType};
    for (std::size_t i = 0; i < values.size(); ++i)
        EXPECT_EQ(values[i], static_cast<int>(i));
    EXPECT_EQ(values.size(), 4u);
}
