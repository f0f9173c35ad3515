#include <oa/oaBase.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace oa;

namespace {

template <class Name>
std::string spelled(const Name& name, const oaNameSpace& ns = oaNativeNS()) {
    oaString text("before");
    name.get(ns, text);
    return std::string(text);
}

template <class Name>
std::string baseOf(const Name& name) {
    oaString text;
    name.getBaseName(text);
    return std::string(text);
}

template <class Action>
oaUInt4 refusal(Action action) {
    try {
        action();
    } catch (const oaError& error) {
        return error.getMsgId();
    }
    return 0;
}

std::vector<std::string> bitsOf(const oaVectorName& name) {
    std::vector<std::string> bits;
    for (oaUInt4 bit = 0; bit < name.getNumBits(); ++bit) {
        oaString text;
        name.getBitName(oaCdbaNS(), bit, text);
        bits.push_back(std::string(text));
    }
    return bits;
}

const oaScalarName a(oaNativeNS(), "a");

} // namespace

TEST(VectorBitName, IsABaseAndAnIndex) {
    const oaVectorBitName bit(oaCdbaNS(), "a#20b<12>");
    EXPECT_EQ(bit.getIndex(), 12u);
    EXPECT_EQ(baseOf(bit), "a b");
    EXPECT_EQ(bit.getNumBits(), 1u);
    EXPECT_EQ(bit.getNumMembers(), 1u);
    EXPECT_EQ(spelled(bit), "a b[12]");
    EXPECT_EQ(spelled(bit, oaCdbaNS()), "a#20b<12>");
    EXPECT_EQ(spelled(bit, oaUnixNS()), "a#20b#5b12#5d");
    EXPECT_EQ(spelled(bit, oaWinNS()), "a#20b#5b12#5d");
    EXPECT_TRUE(bit == oaVectorBitName(oaNativeNS(), "a b", 12));
    EXPECT_TRUE(bit != oaVectorBitName(oaNativeNS(), "a b", 13));
    EXPECT_TRUE(oaVectorBitName(a, 4294967295u) == oaVectorBitName(oaNativeNS(), "a[4294967295]"));
}

TEST(VectorBitName, ChangesInParts) {
    oaVectorBitName bit(a, 3);
    bit.setIndex(5);
    bit.init(oaCdbaNS(), "b", true);
    EXPECT_EQ(spelled(bit), "b[5]");
    oaScalarName base;
    bit.getBaseName(base);
    EXPECT_TRUE(base == oaScalarName(oaNativeNS(), "b"));
}

TEST(VectorBitName, IsEmptyAtFirst) {
    const oaVectorBitName bit;
    EXPECT_TRUE(bit.isEmpty());
    EXPECT_EQ(spelled(bit), "");
    EXPECT_EQ(spelled(bit, oaCdbaNS()), "");
    EXPECT_EQ(bit.getNumMembers(), 0u);
}

TEST(VectorBitName, RefusesEveryOtherText) {
    for (const char* text : {"a", "a[", "a]", "[3]", "a[]", "a[x]", "a[-1]", "a[4294967296]",
                             "a[03]", "a[3:0]", "a[3]b", "a[3 ]"})
        EXPECT_EQ(refusal([&] { oaVectorBitName(oaNativeNS(), text); }),
                  oaUInt4(oacIndexedNameInvalid))
            << text;
    for (const char* text : {"a", "a<3:0>", "<3>", "a<>", "a[3]"})
        EXPECT_EQ(refusal([&] { oaVectorBitName(oaCdbaNS(), text); }),
                  oaUInt4(oacIndexedNameInvalid))
            << text;
    EXPECT_EQ(refusal([] { oaVectorBitName(oaCdbaNS(), ""); }), 41u);
    EXPECT_EQ(refusal([] { oaVectorBitName(oaNativeNS(), nullptr); }), 41u);
}

TEST(VectorName, IsABaseAndARange) {
    const oaVectorName vector(oaCdbaNS(), "a<7:0>");
    EXPECT_EQ(vector.getStart(), 7u);
    EXPECT_EQ(vector.getStop(), 0u);
    EXPECT_EQ(vector.getStep(), 1u);
    EXPECT_EQ(vector.getNumBits(), 8u);
    EXPECT_EQ(baseOf(vector), "a");
    EXPECT_EQ(spelled(vector), "a[7:0]");
    EXPECT_EQ(spelled(vector, oaUnixNS()), "a#5b7#3a0#5d");
    EXPECT_EQ(spelled(oaVectorName(oaWinNS(), "%a#5b7#3a0#5d"), oaCdbaNS()), "A<7:0>");
    EXPECT_TRUE(vector == oaVectorName(a, 7, 0));
    EXPECT_TRUE(vector != oaVectorName(a, 0, 7));
    EXPECT_EQ(oaVectorName(a, 0, 4294967295u).getNumBits(), 4294967295u);
}

TEST(VectorName, StepsThroughItsRange) {
    oaVectorName vector(oaCdbaNS(), "a<0:6:2>");
    EXPECT_EQ(vector.getStep(), 2u);
    EXPECT_EQ(spelled(vector, oaCdbaNS()), "a<0:6:2>");
    EXPECT_EQ(bitsOf(vector), (std::vector<std::string>{"a<0>", "a<2>", "a<4>", "a<6>"}));
    vector.setStart(7);
    vector.setStop(2);
    vector.setStep(3);
    EXPECT_EQ(bitsOf(vector), (std::vector<std::string>{"a<7>", "a<4>"}));
    oaString text;
    EXPECT_EQ(refusal([&] { vector.getBitName(oaNativeNS(), 2, text); }),
              oaUInt4(oacIndexedNameInvalid));
    EXPECT_EQ(refusal([&] { vector.setStep(0); }), oaUInt4(oacVectorNameInvalid));
    EXPECT_EQ(refusal([] { oaVectorName(a, 0, 1, 0); }), oaUInt4(oacVectorNameInvalid));
}

TEST(VectorName, RefusesEveryOtherText) {
    for (const char* text : {"a", "a[3]", "a[3:]", "a[:3]", "a[3:0:0]", "a[3:0:1]", "a[3:0:2:1]"})
        EXPECT_EQ(refusal([&] { oaVectorName(oaNativeNS(), text); }), oaUInt4(oacVectorNameInvalid))
            << text;
    EXPECT_EQ(spelled(oaVectorName(oaCdbaNS(), "a<03:0:1>")), "a[3:0]");
    EXPECT_EQ(refusal([] { oaVectorName(oaCdbaNS(), "a\\b<3:0>"); }),
              oaUInt4(oacScalarNameInvalid));
}

TEST(SimpleName, TakesTheFormOfItsText) {
    const oaSimpleName bit(oaNativeNS(), "a[3]");
    EXPECT_EQ(bit.getType(), oacVectorBitNameType);
    EXPECT_EQ(bit.getScalar(), nullptr);
    EXPECT_EQ(bit.getVector(), nullptr);
    ASSERT_NE(bit.getVectorBit(), nullptr);
    EXPECT_EQ(bit.getVectorBit()->getIndex(), 3u);
    const oaName vector(oaCdbaNS(), "a<3:1>");
    EXPECT_EQ(vector.getType(), oacVectorNameType);
    ASSERT_NE(vector.getVector(), nullptr);
    EXPECT_EQ(vector.getNumBits(), 3u);
    EXPECT_EQ(spelled(vector), "a[3:1]");
    EXPECT_TRUE(vector == oaName(oaVectorName(a, 3, 1)));
    EXPECT_TRUE(vector != oaName(a));
    EXPECT_EQ(oaSimpleName(oaNativeNS(), "a[03]").getType(), oacScalarNameType);
    oaString text;
    vector.getBitName(oaNativeNS(), 2, text);
    EXPECT_EQ(text, "a[1]");
    oaSimpleName(a).getBitName(oaNativeNS(), 0, text);
    EXPECT_EQ(text, "a");
    EXPECT_EQ(refusal([&] { bit.getBitName(oaNativeNS(), 1, text); }),
              oaUInt4(oacIndexedNameInvalid));
    EXPECT_EQ(refusal([] { oaName(oaCdbaNS(), "a>"); }), oaUInt4(oacIndexedNameInvalid));
}

TEST(NameSpace, ComparesNamesOfEveryForm) {
    const oaCdbaNS ns;
    EXPECT_TRUE(ns.isEqual(oaVectorBitName(a, 1), oaVectorBitName(oaCdbaNS(), "a<1>")));
    EXPECT_FALSE(ns.isEqual(oaVectorBitName(a, 1), oaVectorBitName(a, 2)));
    EXPECT_TRUE(ns.isEqual(oaVectorName(a, 1, 2), oaVectorName(a, 1, 2, 1)));
    EXPECT_FALSE(ns.isEqual(oaVectorName(a, 1, 2), oaVectorName(a, 2, 1)));
    EXPECT_FALSE(ns.isEqual(oaSimpleName(a), oaSimpleName(oaVectorBitName(a, 0))));
    EXPECT_TRUE(ns.isEqual(oaName(oaVectorName(a, 1, 2)), oaName(oaNativeNS(), "a[1:2]")));
    EXPECT_TRUE(ns.isEqual(oaName(), oaName()));
    EXPECT_FALSE(ns.isEqual(oaName(), oaName(a)));
}
