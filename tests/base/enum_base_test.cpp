#include <oa/oaDesignDB.h>

#include "enum_values.h"

#include <gtest/gtest.h>

#include <vector>

using namespace oa;
using test::expectValues;

TEST(Enum, ParamTypeHasItsValuesAndNames) {
    expectValues<oaParamType, oaParamTypeEnum>({
        {oacIntParamType, 0, "intParam"},
        {oacFloatParamType, 1, "floatParam"},
        {oacStringParamType, 2, "stringParam"},
        {oacAppParamType, 3, "appParam"},
        {oacDoubleParamType, 4, "doubleParam"},
        {oacBooleanParamType, 5, "booleanParam"},
        {oacTimeParamType, 6, "timeParam"},
    });
}

TEST(Enum, EndStyleHasItsValuesAndNames) {
    expectValues<oaEndStyle, oaEndStyleEnum>({
        {oacTruncateEndStyle, 0, "truncate"},
        {oacExtendEndStyle, 1, "extend"},
        {oacVariableEndStyle, 2, "variable"},
        {oacChamferEndStyle, 3, "chamfer"},
        {oacCustomEndStyle, 4, "custom"},
    });
}

TEST(Enum, GroupTypeHasItsValuesAndNames) {
    expectValues<oaGroupType, oaGroupTypeEnum>({
        {oacCollectionGroupType, 0, "collection"},
        {oacSetGroupType, 1, "set"},
    });
}

TEST(Enum, GroupDeleteWhenHasItsValuesAndNames) {
    expectValues<oaGroupDeleteWhen, oaGroupDeleteWhenEnum>({
        {oacNeverGroupDeleteWhen, 0, "never"},
        {oacOnFirstGroupDeleteWhen, 1, "onFirst"},
        {oacOnLastGroupDeleteWhen, 2, "onLast"},
    });
}

TEST(Enum, DomainHasItsValuesAndNames) {
    expectValues<oaDomain, oaDomainEnum>({
        {oacFutureDomain, 0, "future"},
        {oacNoDomain, 1, "none"},
        {oacBlockDomain, 2, "block"},
        {oacOccDomain, 3, "occurrence"},
        {oacModDomain, 4, "module"},
    });
}

TEST(Enum, NameTypeHasItsValuesAndNames) {
    expectValues<oaNameType, oaNameTypeEnum>({
        {oacEmptyNameType, 0, "empty"},
        {oacScalarNameType, 1, "scalarName"},
        {oacVectorNameType, 2, "vectorName"},
        {oacVectorBitNameType, 3, "vectorBitName"},
        {oacBundleNameType, 4, "bundleName"},
    });
}

TEST(Enum, DBTypeHasItsValuesAndNames) {
    expectValues<oaDBType, oaDBTypeEnum>({
        {oacFutureDBType, 0, "future"},
        {oacBaseDBType, 1, "base"},
        {oacDesignDBType, 2, "design"},
        {oacTechDBType, 3, "tech"},
        {oacLibDBType, 4, "lib"},
        {oacWaferDBType, 5, "wafer"},
        {oacSessionDBType, 6, "session"},
        {oacDMDataDBType, 7, "DMData"},
    });
}

TEST(Enum, OrientHasItsValuesAndNames) {
    expectValues<oaOrient, oaOrientEnum>({
        {oacR0, 0, "R0"},
        {oacR90, 1, "R90"},
        {oacR180, 2, "R180"},
        {oacR270, 3, "R270"},
        {oacMY, 4, "MY"},
        {oacMYR90, 5, "MYR90"},
        {oacMX, 6, "MX"},
        {oacMXR90, 7, "MXR90"},
    });
}

TEST(Enum, DirIterModeHasItsValues) {
    const std::vector<int> values = {oacFilesDirIterMode, oacDirsDirIterMode, oacAllDirIterMode};
    for (std::size_t i = 0; i < values.size(); ++i)
        EXPECT_EQ(values[i], static_cast<int>(i));
    EXPECT_EQ(values.size(), 3u);
}
