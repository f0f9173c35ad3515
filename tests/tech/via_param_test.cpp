#include "tech_tests.h"

#include <functional>

using namespace oa;
using namespace ovalis::test;

namespace {

/// Every vector among the parameters: its type and how it is set and read.
struct VectorParam {
    oaViaParamTypeEnum type;
    std::function<void(oaViaParam&, const oaVector&)> set;
    std::function<oaVector(const oaViaParam&)> get;
};

const VectorParam vectorParams[] = {
    {oacLayer1EncViaParamType, &oaViaParam::setLayer1Enc, &oaViaParam::getLayer1Enc},
    {oacLayer2EncViaParamType, &oaViaParam::setLayer2Enc, &oaViaParam::getLayer2Enc},
    {oacImplant1EncViaParamType, &oaViaParam::setImplant1Enc, &oaViaParam::getImplant1Enc},
    {oacImplant2EncViaParamType, &oaViaParam::setImplant2Enc, &oaViaParam::getImplant2Enc},
    {oacLayer1OffsetViaParamType, &oaViaParam::setLayer1Offset, &oaViaParam::getLayer1Offset},
    {oacLayer2OffsetViaParamType, &oaViaParam::setLayer2Offset, &oaViaParam::getLayer2Offset},
    {oacCutSpacingViaParamType, &oaViaParam::setCutSpacing, &oaViaParam::getCutSpacing},
    {oacOriginOffsetViaParamType, &oaViaParam::setOriginOffset, &oaViaParam::getOriginOffset},
};

/// The same for the numbers.
struct NumberParam {
    oaViaParamTypeEnum type;
    oaUInt4 byDefault;
    std::function<void(oaViaParam&, oaUInt4)> set;
    std::function<oaUInt4(const oaViaParam&)> get;
};

const NumberParam numberParams[] = {
    {oacCutLayerViaParamType, 0, &oaViaParam::setCutLayer, &oaViaParam::getCutLayer},
    {oacCutColumnsViaParamType, 1, &oaViaParam::setCutColumns, &oaViaParam::getCutColumns},
    {oacCutRowsViaParamType, 1, &oaViaParam::setCutRows, &oaViaParam::getCutRows},
    {oacCutWidthViaParamType, 0, &oaViaParam::setCutWidth, &oaViaParam::getCutWidth},
    {oacCutHeightViaParamType, 0, &oaViaParam::setCutHeight, &oaViaParam::getCutHeight},
};

} // namespace

TEST(ViaParam, HasDefaults) {
    const oaViaParam params;
    for (int type = 0; type <= oacCutHeightViaParamType; ++type)
        EXPECT_TRUE(params.hasDefault(oaViaParamTypeEnum(type))) << type;
    EXPECT_TRUE(params.hasDefaultCutPattern());
    EXPECT_TRUE(params.getCutPatternVal(0, 0));
}

TEST(ViaParam, KeepsEachVectorAlone) {
    for (const VectorParam& param : vectorParams) {
        oaViaParam params;
        param.set(params, oaVector(3, -4));
        for (const VectorParam& other : vectorParams) {
            const bool isSame = other.type == param.type;
            EXPECT_EQ(other.get(params), isSame ? oaVector(3, -4) : oaVector()) << other.type;
            EXPECT_EQ(params.hasDefault(other.type), !isSame) << other.type;
        }
        params.setDefault(param.type);
        EXPECT_TRUE(params.isEqual(oaViaParam())) << param.type;
    }
}

TEST(ViaParam, KeepsEachNumberAlone) {
    for (const NumberParam& param : numberParams) {
        oaViaParam params;
        param.set(params, 7);
        for (const NumberParam& other : numberParams) {
            const bool isSame = other.type == param.type;
            EXPECT_EQ(other.get(params), isSame ? 7 : other.byDefault) << other.type;
            EXPECT_EQ(params.hasDefault(other.type), !isSame) << other.type;
        }
        params.setDefault(param.type);
        EXPECT_TRUE(params.isEqual(oaViaParam())) << param.type;
    }
}

TEST(ViaParam, ThatIsSetToTheDefaultIsSet) {
    oaViaParam params;
    params.setCutRows(1);
    EXPECT_FALSE(params.hasDefault(oacCutRowsViaParamType));
    EXPECT_FALSE(params.isEqual(oaViaParam()));
}

TEST(ViaParam, TakesTheSizeOfCutsForTheirWidthAndHeight) {
    oaViaParam params;
    params.setCutHeight(5);
    EXPECT_FALSE(params.hasDefault(oacCutSizeViaParamType));
    params.setCutWidth(6);
    params.setDefault(oacCutSizeViaParamType);
    EXPECT_TRUE(params.isEqual(oaViaParam()));
}

TEST(ViaParam, RefusesAnArrayWithoutCuts) {
    oaViaParam params;
    EXPECT_EQ(thrown<oaTechError>(oacInvalidViaParam, [&] { params.setCutRows(0); }),
              "The parameter 'cutRows' of a via cannot be 0.");
    EXPECT_EQ(thrown<oaTechError>(oacInvalidViaParam, [&] { params.setCutColumns(0); }),
              "The parameter 'cutColumns' of a via cannot be 0.");
    EXPECT_TRUE(params.isEqual(oaViaParam()));
}

TEST(ViaParam, HasACutWhereNoneIsTakenOut) {
    oaViaParam params;
    params.setCutPatternVal(1, 2, false);
    params.setCutPatternVal(0, 5, false);
    params.setCutPatternVal(1, 2, false);
    EXPECT_FALSE(params.getCutPatternVal(1, 2));
    EXPECT_TRUE(params.getCutPatternVal(2, 1));
    EXPECT_FALSE(params.hasDefaultCutPattern());
    oaViaParam other;
    other.setCutPatternVal(0, 5, false);
    EXPECT_FALSE(params.isEqual(other));
    params.setCutPatternVal(1, 2, true);
    EXPECT_TRUE(params.getCutPatternVal(1, 2));
    EXPECT_TRUE(params.isEqual(other));
    params.setDefaultCutPattern();
    EXPECT_TRUE(params.isEqual(oaViaParam()));
}
