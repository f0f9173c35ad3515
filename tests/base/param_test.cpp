#include <oa/oaBase.h>

#include <gtest/gtest.h>

#include <vector>

using namespace oa;

namespace {

oaString nameOf(const oaParam& param) {
    oaString name;
    param.getName(name);
    return name;
}

std::vector<oaByte> bytesOf(const oaParam& param) {
    std::vector<oaByte> bytes(param.getNumBytes());
    param.getAppVal(bytes.data());
    return bytes;
}

const oaByte someBytes[] = {1, 0, 255};

} // namespace

TEST(Param, IsTheNamelessIntegerZeroAtFirst) {
    const oaParam param;
    EXPECT_EQ(nameOf(param), "");
    EXPECT_EQ(param.getType(), oacIntParamType);
    EXPECT_EQ(param.getIntVal(), 0);
}

TEST(Param, TakesItsKindFromTheValue) {
    EXPECT_EQ(oaParam("n", 7).getIntVal(), 7);
    EXPECT_FLOAT_EQ(oaParam("n", 1.5f).getFloatVal(), 1.5f);
    EXPECT_DOUBLE_EQ(oaParam("n", 2.5).getDoubleVal(), 2.5);
    EXPECT_STREQ(oaParam("n", oaString("text")).getStringVal(), "text");
    EXPECT_EQ(oaParam("n", 7).getType(), oacIntParamType);
    EXPECT_EQ(oaParam("n", 1.5f).getType(), oacFloatParamType);
    EXPECT_EQ(oaParam("n", 2.5).getType(), oacDoubleParamType);
    EXPECT_EQ(oaParam("n", oaString("text")).getType(), oacStringParamType);
    EXPECT_EQ(oaParam("n", "app", 3, someBytes).getType(), oacAppParamType);
}

TEST(Param, TakesAPlainTextAsAString) {
    const char* text = "text";
    const oaParam param("name", text);
    oaString value;
    param.getStringVal(value);
    EXPECT_EQ(param.getType(), oacStringParamType);
    EXPECT_EQ(value, "text");
    EXPECT_EQ(oaParam("name", "literal").getType(), oacStringParamType);
}

TEST(Param, HoldsBytesForAnApplication) {
    const oaParam param("n", "app", 3, someBytes);
    oaString appType;
    param.getAppType(appType);
    EXPECT_EQ(appType, "app");
    EXPECT_EQ(bytesOf(param), (std::vector<oaByte>{1, 0, 255}));
}

TEST(Param, ChangesItsKindWithItsValue) {
    oaParam param("n", 7);
    param.setFloatVal(0.5f);
    EXPECT_EQ(param.getType(), oacFloatParamType);
    param.setDoubleVal(0.25);
    EXPECT_EQ(param.getType(), oacDoubleParamType);
    EXPECT_DOUBLE_EQ(param.getDoubleVal(), 0.25);
    param.setBooleanVal(3);
    EXPECT_EQ(param.getType(), oacBooleanParamType);
    EXPECT_EQ(param.getBooleanVal(), 1);
    param.setTimeVal(5000000000LL);
    EXPECT_EQ(param.getType(), oacTimeParamType);
    EXPECT_EQ(param.getTimeVal(), 5000000000LL);
    param.setStringVal("abc");
    EXPECT_EQ(param.getType(), oacStringParamType);
    param.setStringVal(param.getStringVal() + 1);
    EXPECT_STREQ(param.getStringVal(), "bc");
    param.setIntVal(-1);
    EXPECT_EQ(param.getIntVal(), -1);
    EXPECT_EQ(nameOf(param), "n");
    param.setName("m");
    EXPECT_EQ(nameOf(param), "m");
}

TEST(Param, KeepsTypeAndBytesOfAnApplicationApart) {
    oaParam param("n", 7);
    oaString appType("before");
    param.setAppVal(3, someBytes);
    param.getAppType(appType);
    EXPECT_EQ(param.getType(), oacAppParamType);
    EXPECT_EQ(appType, "");
    param.setAppType("app");
    EXPECT_EQ(bytesOf(param), (std::vector<oaByte>{1, 0, 255}));
    param.setAppVal(0, nullptr);
    param.getAppType(appType);
    EXPECT_EQ(appType, "app");
    EXPECT_EQ(param.getNumBytes(), 0u);
}

TEST(Param, KnowsItsSizeInBytes) {
    oaParam param("n", 7);
    EXPECT_EQ(param.getNumBytes(), 4u);
    param.setBooleanVal(1);
    EXPECT_EQ(param.getNumBytes(), 4u);
    param.setFloatVal(1);
    EXPECT_EQ(param.getNumBytes(), 4u);
    param.setDoubleVal(1);
    EXPECT_EQ(param.getNumBytes(), 8u);
    param.setTimeVal(1);
    EXPECT_EQ(param.getNumBytes(), 8u);
    param.setStringVal("four");
    EXPECT_EQ(param.getNumBytes(), 4u);
}

TEST(Param, RefusesToAnswerAValueOfAnotherKind) {
    try {
        oaParam("width", 1.5).getIntVal();
        FAIL();
    } catch (const oaError& error) {
        EXPECT_EQ(error.getMsgId(), oaUInt4(oacParamTypeMismatch));
        EXPECT_EQ(error.getMsg(), "Parameter 'width' has type doubleParam, not intParam.");
    }
}

TEST(Param, ComparesNameKindAndValue) {
    EXPECT_TRUE(oaParam("n", 1) == oaParam("n", 1));
    EXPECT_TRUE(oaParam("n", 1) != oaParam("m", 1));
    EXPECT_TRUE(oaParam("n", 1) != oaParam("n", 2));
    EXPECT_TRUE(oaParam("n", 1) != oaParam("n", 1.0));
    EXPECT_TRUE(oaParam("n", "app", 3, someBytes) == oaParam("n", "app", 3, someBytes));
    EXPECT_TRUE(oaParam("n", "app", 3, someBytes) != oaParam("n", "app", 2, someBytes));
    EXPECT_TRUE(oaParam("n", "app", 3, someBytes) != oaParam("n", "other", 3, someBytes));
}

TEST(ParamArray, FindsAParameterByNameAndByValue) {
    oaParamArray params(4);
    params.append(oaParam("a", 1));
    params.append(oaParam("b", 2));
    params.append(oaParam("a", 3));
    oaParam found("before", 0);
    EXPECT_TRUE(params.find("a", found));
    EXPECT_EQ(found, oaParam("a", 1));
    EXPECT_FALSE(params.find("c", found));
    EXPECT_EQ(found, oaParam("a", 1));
    EXPECT_EQ(params.find(oaParam("a", 3)), 2u);
    EXPECT_EQ(params.find(oaParam("b", 3)), oacNullIndex);
}

TEST(ParamArray, ComparesElementByElement) {
    oaParamArray params;
    params.append(oaParam("a", 1));
    oaParamArray other(20);
    EXPECT_TRUE(params != other);
    other.append(oaParam("a", 1));
    EXPECT_TRUE(params == other);
    other[0].setIntVal(2);
    EXPECT_TRUE(params != other);
}
