#include <oa/oaDesignDB.h>

#include <gtest/gtest.h>

#include <set>
#include <string>

using namespace oa;

namespace {

oaUInt4 valueInASwitch(const oaType& type) {
    switch (type) {
    case oacRectType:
        return 1;
    case oacPinType:
        return 2;
    default:
        return 0;
    }
}

} // namespace

TEST(Type, IsUnknownAtFirst) {
    EXPECT_EQ(oaType(), oacUnknownType);
}

TEST(Type, KeepsItsNumbers) {
    EXPECT_EQ(static_cast<int>(oacArcType), 11);
    EXPECT_EQ(static_cast<int>(oacPinType), 32);
    EXPECT_EQ(static_cast<int>(oacInstTermType), 64);
    EXPECT_EQ(static_cast<int>(oacOccArrayInstType), 122);
    EXPECT_EQ(static_cast<int>(oacIntPropType), 166);
    EXPECT_EQ(static_cast<int>(oacCellViewType), 195);
    EXPECT_EQ(static_cast<int>(oacLayerValueType), 233);
    EXPECT_EQ(static_cast<int>(oacDoubleAppDefType), 245);
    EXPECT_EQ(static_cast<int>(oacFigGroupType), 257);
    EXPECT_EQ(static_cast<int>(oacDerivedLayerDefType), 270);
    EXPECT_EQ(static_cast<int>(oacStringValueType), 271);
}

TEST(Type, HasTheNameOfItsClass) {
    const std::pair<oaTypeEnum, const char*> names[] = {
        {oacUnknownType, "Unknown"},
        {oacRectType, "Rect"},
        {oacScalarInstType, "ScalarInst"},
        {oacStringPropType, "StringProp"},
        {oacCellType, "Cell"},
        {oacViewType, "View"},
        {oacViewTypeType, "ViewType"},
        {oacDMFileType, "DMFile"},
        {oacLPPHeaderType, "LPPHeader"},
        {oacIntAppDefType, "AppIntDef"},
        {oacDoubleAppDefType, "AppDoubleDef"},
        {oacVarDataAppDefType, "AppVarDataDef"},
        {oacInterPointerAppDefType, "AppInterPointerDef"},
        {oacAppObjectDefType, "AppObjectDef"},
    };
    for (const auto& [type, name] : names) {
        EXPECT_EQ(oaType(type).getName(), name);
        EXPECT_EQ(oaType(oaString(name)), type) << name;
    }
}

TEST(Type, HasADifferentNameForEachValue) {
    std::set<std::string> names;
    for (int i = 0; i <= oacStringValueType; ++i)
        names.insert(std::string(oaType(static_cast<oaTypeEnum>(i)).getName()));
    EXPECT_EQ(names.size(), 272u);
}

TEST(Type, IsUsedLikeItsEnumerator) {
    EXPECT_EQ(valueInASwitch(oacRectType), 1u);
    EXPECT_EQ(valueInASwitch(oaType(oacPinType)), 2u);
    EXPECT_TRUE(oaType(oacDotType) == oaType(oacDotType));
    EXPECT_TRUE(oaType(oacDotType) != oacRectType);
}

TEST(Type, RefusesAnUnknownNameWithAText) {
    try {
        oaType(oaString("Teapot"));
        FAIL();
    } catch (const oaError& error) {
        EXPECT_EQ(error.getMsg(), "'Teapot' is not a name of oaType.");
    }
}
