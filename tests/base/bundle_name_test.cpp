#include "names.h"

#include <gtest/gtest.h>

using namespace oa;
using namespace ovalis::test;

namespace {

const oaNativeNS native;
const oaCdbaNS cdba;

std::string cdbaText(const oaBundleName& name) {
    return spelled(name, cdba);
}

} // namespace

TEST(BundleName, IsAListOfNamesThatMayRepeat) {
    oaBundleName bundle(oaScalarName(native, "a"), 2);
    bundle.append(oaVectorBitName(native, "b", 3));
    bundle.append(oaVectorName(native, "c", 1, 0), 3);
    bundle.append(oaSimpleName(cdba, "top/d"));
    EXPECT_EQ(bundle.getNumMembers(), 4u);
    EXPECT_EQ(bundle.getNumBits(), 10u);
    EXPECT_EQ(bundle[0].getRepeat(), 2u);
    EXPECT_EQ(spelled(bundle[2]), "c[1:0]");
    EXPECT_EQ(cdbaText(bundle), "<*2>a,b<3>,<*3>c<1:0>,top/d");
    EXPECT_EQ(spelled(bundle), "{2*a,b[3],3*c[1:0],top/d}");
    EXPECT_EQ(spelled(bundle, oaVerilogNS()), "{{2{a}},b[3],{3{c[1:0]}},top.d}");
    EXPECT_EQ(spelled(bundle, oaVhdlNS()),
              "(a,a,b(3),c(1 downto 0),c(1 downto 0),c(1 downto 0),top.d)");
    for (const oaNameSpace* ns : std::initializer_list<const oaNameSpace*>{&native, &cdba})
        EXPECT_TRUE(bundle == oaBundleName(*ns, spelled(bundle, *ns).c_str()));
}

TEST(BundleName, CountsItsBits) {
    const oaBundleName bundle(cdba, "<*2>a<1:0>,b,<*2>(c,d<5>)");
    std::vector<std::string> bits;
    for (oaUInt4 bit = 0; bit < bundle.getNumBits(); ++bit) {
        oaString text;
        bundle.getBitName(cdba, bit, text);
        bits.push_back(std::string(text));
    }
    EXPECT_EQ(bits, (std::vector<std::string>{"a<1>", "a<0>", "a<1>", "a<0>", "b", "c", "d<5>", "c",
                                              "d<5>"}));
    oaString text;
    EXPECT_EQ(refusal([&] { bundle.getBitName(cdba, 9, text); }), oaUInt4(oacIndexedNameInvalid));
    oaBundleName huge(oaVectorName(native, "a", 0, 4294967295u), 4294967295u);
    huge.append(oaScalarName(native, "b"));
    EXPECT_EQ(huge.getNumBits(), 4294967295u);
}

TEST(BundleName, IsTheSameHoweverItWasPutTogether) {
    EXPECT_TRUE(oaBundleName(cdba, "<*2>a,b") == oaBundleName(cdba, "a,a,b"));
    EXPECT_TRUE(oaBundleName(cdba, "a,<*3>b") == oaBundleName(cdba, "a,<*2>b,b"));
    EXPECT_TRUE(oaBundleName(cdba, "a,b") != oaBundleName(cdba, "a,b,b"));
    EXPECT_TRUE(oaBundleName(cdba, "a,b") != oaBundleName(cdba, "b,a"));
    EXPECT_TRUE(oaBundleName() == oaBundleName());
    EXPECT_TRUE(cdba.isEqual(oaBundleName(cdba, "<*2>a"), oaBundleName(cdba, "a,a")));
    EXPECT_FALSE(cdba.isEqual(oaName(cdba, "a,b"), oaName(cdba, "a,c")));
}

TEST(BundleName, IsOneOfTheFormsOfAName) {
    const oaName name(cdba, "a,b<3>");
    EXPECT_EQ(name.getType(), oacBundleNameType);
    ASSERT_NE(name.getBundle(), nullptr);
    EXPECT_EQ(name.getScalar(), nullptr);
    EXPECT_EQ(name.getVector(), nullptr);
    EXPECT_EQ(name.getVectorBit(), nullptr);
    EXPECT_EQ(name.getNumBits(), 2u);
    oaString bit;
    name.getBitName(native, 1, bit);
    EXPECT_EQ(bit, "b[3]");
    EXPECT_EQ(spelled(name), "{a,b[3]}");
    EXPECT_TRUE(name == oaBundleName(native, "{a,b[3]}"));
    EXPECT_TRUE(name != oaName(cdba, "a"));
    EXPECT_EQ(oaName(oaBundleName()).getType(), oacEmptyNameType);
}

TEST(BundleName, GetsAPathAboveEveryName) {
    oaName name(cdba, "a,<*2>b<3>");
    name.addHierPath(oaVectorBitName(cdba, "i<1>"));
    EXPECT_EQ(spelled(name, cdba), "i<1>/a,<*2>i<1>/b<3>");
}

TEST(BundleName, OfOneNameIsAnotherThanThatName) {
    const oaBundleName bundle(oaScalarName(native, "a"));
    EXPECT_EQ(cdbaText(bundle), "<*1>a");
    EXPECT_EQ(spelled(bundle), "{a}");
    EXPECT_TRUE(oaName(cdba, "<*1>a") == oaName(bundle));
}

TEST(BundleName, MarksWhatWouldMisleadInItsNames) {
    oaBundleName bundle(oaScalarName(cdba, "a#2cb"));
    bundle.append(oaScalarName(cdba, "2*c"));
    bundle.append(oaScalarName(native, "d[3]"));
    EXPECT_EQ(spelled(bundle), "{a\\,b,2\\*c,d\\[3]}");
    EXPECT_TRUE(bundle == oaBundleName(native, "{a\\,b,2\\*c,d\\[3]}"));
    EXPECT_EQ(cdbaText(bundle), "a#2cb,2*c,d[3]");
}

TEST(BundleName, MakesRoom) {
    oaBundleName bundle(cdba, "a,b,c");
    bundle.resize(10);
    EXPECT_GE(bundle.getSize(), 10u);
    EXPECT_EQ(bundle.getNumMembers(), 3u);
    bundle.resize(2);
    EXPECT_EQ(cdbaText(bundle), "a,b");
}

TEST(BundleName, RefusesEveryOtherText) {
    for (const char* text : {",", "a,", ",a", "a,,b", "(a", "(a))", "<*0>a", "<*a>b", "<*2a",
                             "<*2>", "()", "(a)b", "<*70000>(a,b)"})
        EXPECT_EQ(refusal([&] { oaBundleName(cdba, text); }), oaUInt4(oacBundleNameInvalid))
            << text;
    for (const char* text : {"a", "a,b", "{}", "{a", "{a,}", "{1*a}", "{02*a}", "{a[03]}", "{a b",
                             "{a[3[3]}", "{2[3*a}", "{a[3:0]/b}"})
        EXPECT_EQ(refusal([&] { oaBundleName(native, text); }), oaUInt4(oacBundleNameInvalid))
            << text;
    EXPECT_EQ(refusal([] { oaBundleName(cdba, ""); }), 41u);
    EXPECT_EQ(refusal([] { oaBundleName(native, nullptr); }), 41u);
    EXPECT_EQ(refusal([] { oaBundleName{oaScalarName()}; }), oaUInt4(oacBundleNameInvalid));
    EXPECT_EQ(refusal([] { oaBundleName(oaScalarName(native, "a"), 0); }),
              oaUInt4(oacBundleNameInvalid));
    EXPECT_EQ(refusal([] { oaBundleName(cdba, std::string(100, '(').c_str()); }),
              oaUInt4(oacBundleNameInvalid));
}
