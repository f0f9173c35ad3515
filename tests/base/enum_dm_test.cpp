#include <oa/oaDesignDB.h>

#include "enum_values.h"

#include <gtest/gtest.h>

#include <vector>

using namespace oa;
using test::expectValues;

TEST(Enum, LibAccessHasItsValuesAndNames) {
    expectValues<oaLibAccess, oaLibAccessEnum>({
        {oacReadLibAccess, 0, "read"},
        {oacWriteLibAccess, 1, "write"},
    });
}

TEST(Enum, LibAccessLevelHasItsValuesAndNames) {
    expectValues<oaLibAccessLevel, oaLibAccessLevelEnum>({
        {oacNoLibAccessLevel, 0, "no access"},
        {oacReadLibAccessLevel, 1, "read access"},
        {oacWriteLibAccessLevel, 2, "write access"},
    });
}

TEST(Enum, LibModeHasItsValuesAndNames) {
    expectValues<oaLibMode, oaLibModeEnum>({
        {oacSharedLibMode, 0, "shared"},
        {oacNonSharedLibMode, 1, "nonShared"},
        {oacReadOnlyLibMode, 2, "readOnly"},
    });
}

TEST(Enum, DMLockStatusHasItsValuesAndNames) {
    expectValues<oaDMLockStatus, oaDMLockStatusEnum>({
        {oacNotLocked, 0, "not locked"},
        {oacLockedByCurrentProcess, 1, "locked by current process"},
        {oacLockedByForeignProcess, 2, "locked by foreign process"},
    });
}

TEST(Enum, ReservedViewTypeHasItsValuesAndNames) {
    expectValues<oaReservedViewType, oaReservedViewTypeEnum>({
        {oacMaskLayout, 0, "maskLayout"},
        {oacSchematic, 1, "schematic"},
        {oacSchematicSymbol, 2, "schematicSymbol"},
        {oacNetlist, 3, "netlist"},
        {oacWafer, 4, "wafer"},
        {oacVerilogAMSText, 5, "verilogAMSText"},
        {oacVHDLAMSText, 6, "VHDLAMSText"},
        {oacVerilogText, 7, "verilogText"},
        {oacVHDLText, 8, "VHDLText"},
        {oacVerilogAText, 9, "verilogAText"},
        {oacHierDesign, 10, "oaHierDesign"},
        {oacSystemVerilogText, 11, "systemVerilogText"},
        {oacSPECTREText, 12, "SPECTREText"},
        {oacSPICEText, 13, "SPICEText"},
        {oacHSPICEText, 14, "HSPICEText"},
        {oacCDLText, 15, "CDLText"},
    });
}

TEST(Enum, LibDefListWarningTypeHasItsValues) {
    const std::vector<int> values = {
        oacNoDefaultLibDefListWarning,        oacCannotOpenDefaultLibDefListWarning,
        oacSyntaxErrorLibDefListWarning,      oacCannotOpenIncludeLibDefListWarning,
        oacRecursiveIncludeLibDefListWarning, oacMultiDefinitionsLibDefListWarning,
        oacCannotOpenLibLibDefListWarning,    oacUndefinedVarLibDefListWarning,
        oacLibNameUndefinedLibDefListWarning};
    for (std::size_t i = 0; i < values.size(); ++i)
        EXPECT_EQ(values[i], static_cast<int>(i));
    EXPECT_EQ(values.size(), 9u);
}

TEST(Enum, DMLibModTypeHasItsValues) {
    const std::vector<int> values = {oacSetAttributesLibModType};
    for (std::size_t i = 0; i < values.size(); ++i)
        EXPECT_EQ(values[i], static_cast<int>(i));
    EXPECT_EQ(values.size(), 1u);
}
