#include <oa/oaBase.h>

#include <gtest/gtest.h>

using namespace oa;

namespace {

oaString nativeTextOf(const oaScalarName& name) {
    oaString text("before");
    name.get(text);
    return text;
}

// Takes what a client passes where a name of any form is wanted.
oaString textOfAny(const oaName& name) {
    oaString text;
    name.get(text);
    return text;
}

oaString textOfSimple(const oaSimpleName& name) {
    oaString text;
    name.get(oaNativeNS(), text);
    return text;
}

} // namespace

TEST(ScalarName, IsEmptyAtFirst) {
    const oaScalarName name;
    oaString text("before");
    name.get(oaUnixNS(), text);
    EXPECT_EQ(text, "");
    EXPECT_EQ(nativeTextOf(name), "");
    EXPECT_TRUE(name.isEmpty());
    EXPECT_EQ(name.getNumMembers(), 0u);
}

TEST(ScalarName, IsReadInOneNameSpaceAndWrittenInAnother) {
    const oaScalarName name(oaUnixNS(), "top#2dcell");
    oaString text;
    name.get(oaWinNS(), text);
    EXPECT_EQ(nativeTextOf(name), "top-cell");
    EXPECT_EQ(text, "top#2dcell");
    EXPECT_EQ(name.getNumMembers(), 1u);
    EXPECT_EQ(name.getNumBits(), 1u);
}

TEST(ScalarName, IsReadAgain) {
    oaScalarName name(oaNativeNS(), "a");
    name.init(oaNativeNS(), "longer name");
    EXPECT_EQ(nativeTextOf(name), "longer name");
}

TEST(ScalarName, ComparesItsTextWithCase) {
    EXPECT_TRUE(oaScalarName(oaNativeNS(), "a") == oaScalarName(oaCdbaNS(), "a"));
    EXPECT_TRUE(oaScalarName(oaNativeNS(), "a") != oaScalarName(oaNativeNS(), "A"));
    EXPECT_TRUE(oaScalarName() != oaScalarName(oaNativeNS(), "a"));
}

TEST(Name, IsTakenFromAScalarName) {
    const oaScalarName scalar(oaNativeNS(), "a b");
    EXPECT_EQ(textOfAny(scalar), "a b");
    EXPECT_EQ(textOfSimple(scalar), "a b");
    EXPECT_EQ(textOfAny(oaSimpleName(scalar)), "a b");
    EXPECT_TRUE(oaName(scalar) == scalar);
    EXPECT_TRUE(oaName(scalar) != oaName());
    EXPECT_TRUE(oaSimpleName(scalar) == scalar);
    EXPECT_TRUE(oaSimpleName(scalar) != oaSimpleName());
}

TEST(Name, KnowsItsForm) {
    oaName name;
    EXPECT_EQ(name.getType(), oacEmptyNameType);
    EXPECT_EQ(name.getScalar(), nullptr);
    name.init(oaNativeNS(), "net");
    EXPECT_EQ(name.getType(), oacScalarNameType);
    ASSERT_NE(name.getScalar(), nullptr);
    EXPECT_EQ(nativeTextOf(*name.getScalar()), "net");
    EXPECT_EQ(name.getNumBits(), 1u);
}

TEST(SimpleName, KnowsItsForm) {
    oaSimpleName name;
    EXPECT_EQ(name.getType(), oacEmptyNameType);
    EXPECT_EQ(name.getScalar(), nullptr);
    EXPECT_EQ(name.getNumMembers(), 0u);
    name.init(oaCdbaNS(), "net#20a");
    EXPECT_EQ(name.getType(), oacScalarNameType);
    EXPECT_EQ(nativeTextOf(*name.getScalar()), "net a");
    EXPECT_EQ(name.getNumMembers(), 1u);
    EXPECT_EQ(name.getNumBits(), 1u);
    EXPECT_EQ(oaSimpleName(oaNativeNS(), "x").getType(), oacScalarNameType);
}

TEST(NameMem, ComparesWithoutCaseWhenOneOfTheTwoHasNone) {
    EXPECT_TRUE(oaNameMem("a", true) == oaNameMem(oaString("a"), true));
    EXPECT_TRUE(oaNameMem("a", true) != oaNameMem("A", true));
    EXPECT_TRUE(oaNameMem("a", false) == oaNameMem("A", true));
    EXPECT_TRUE(oaNameMem("a", true) == oaNameMem("A", false));
    EXPECT_TRUE(oaNameMem().isCaseSensitive());
    EXPECT_EQ(oaNameMem("a", false).getValue(), "a");
}
