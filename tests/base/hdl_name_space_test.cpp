#include "names.h"

#include <gtest/gtest.h>

using namespace oa;
using namespace ovalis::test;

namespace {

const oaVerilogNS verilog;
const oaVhdlNS vhdl;

std::string written(const oaNameSpace& ns, const char* nativeText) {
    return spelled(oaName(oaNativeNS(), nativeText), ns);
}

std::string read(const oaNameSpace& ns, const char* text) {
    return spelled(oaName(ns, text));
}

} // namespace

TEST(VerilogNS, SpellsIdentifiers) {
    EXPECT_EQ(written(verilog, "Net_1$a"), "Net_1$a");
    EXPECT_EQ(written(verilog, "1a"), "\\1a ");
    EXPECT_EQ(written(verilog, "$a"), "\\$a ");
    EXPECT_EQ(written(verilog, "begin"), "\\begin ");
    EXPECT_EQ(written(verilog, "Begin"), "Begin");
    EXPECT_EQ(written(verilog, "a+b"), "\\a+b ");
    EXPECT_EQ(written(verilog, "a b"), "\\a#20b ");
    EXPECT_EQ(written(verilog, "a#20b"), "\\a#2320b ");
    EXPECT_EQ(written(verilog, "\xC3\xA9"), "\\#c3#a9 ");
    EXPECT_EQ(written(verilog, "a\\[3]"), "\\a[3] ");
}

TEST(VerilogNS, SpellsBitsVectorsBundlesAndHierarchies) {
    EXPECT_EQ(written(verilog, "a[3]"), "a[3]");
    EXPECT_EQ(written(verilog, "a+b[3:0]"), "\\a+b [3:0]");
    EXPECT_EQ(written(verilog, "a/b+/c"), "a.\\b+ .c");
    EXPECT_EQ(written(verilog, "{a,2*b[1:0]}"), "{a,{2{b[1:0]}}}");
    EXPECT_EQ(read(verilog, "{ a , {2{b[1:0]}} }"), "{a,2*b[1:0]}");
    EXPECT_EQ(read(verilog, "top.i[2].\\x.y [3]"), "top/i[2]/x.y[3]");
}

TEST(VerilogNS, ReadsAnEscapedIdentifierAsThePlainOne) {
    EXPECT_TRUE(oaName(verilog, "\\abc ") == oaName(verilog, "abc"));
    EXPECT_EQ(read(verilog, "\\a+b"), "a+b");
}

TEST(VerilogNS, RefusesEveryOtherText) {
    for (const char* text : {"begin", "1a", "a b", "a+b", "\\ ", "\\", "a.", ".a", "a..b", "a#20",
                             "\\a#41 ", "\\a#2Fb ", "\\\xC3\xA9 ", "a[3", "a[3]b", "a[3:0].b"}) {
        EXPECT_EQ(verilog.getType(text), oacEmptyNameType) << text;
        EXPECT_EQ(refusal([&] { oaScalarName(verilog, text); }), oaUInt4(oacScalarNameInvalid))
            << text;
    }
    EXPECT_EQ(refusal([] { oaVectorName(verilog, "a[3]"); }), oaUInt4(oacVectorNameInvalid));
    EXPECT_EQ(refusal([] { oaVectorBitName(verilog, "a"); }), oaUInt4(oacIndexedNameInvalid));
    EXPECT_EQ(refusal([] { oaBundleName(verilog, "{a,}"); }), oaUInt4(oacBundleNameInvalid));
    EXPECT_EQ(refusal([] { oaScalarName(verilog, ""); }), 41u);
    EXPECT_EQ(verilog.getType(nullptr), oacEmptyNameType);
}

TEST(VerilogNS, HasNoSteps) {
    EXPECT_EQ(refusal([] { written(verilog, "a[0:6:2]"); }), oaUInt4(oacVectorNameInvalid));
    EXPECT_EQ(refusal([] { written(vhdl, "a[0:6:2]"); }), oaUInt4(oacVectorNameInvalid));
}

TEST(VhdlNS, SpellsIdentifiers) {
    EXPECT_EQ(written(vhdl, "net_1"), "net_1");
    EXPECT_EQ(written(vhdl, "Net"), "\\Net\\");
    EXPECT_EQ(written(vhdl, "1a"), "\\1a\\");
    EXPECT_EQ(written(vhdl, "_a"), "\\_a\\");
    EXPECT_EQ(written(vhdl, "a_"), "\\a_\\");
    EXPECT_EQ(written(vhdl, "a__b"), "\\a__b\\");
    EXPECT_EQ(written(vhdl, "signal"), "\\signal\\");
    EXPECT_EQ(written(vhdl, "a b"), "\\a b\\");
    EXPECT_EQ(written(vhdl, "a\\b"), "\\a\\\\b\\");
    EXPECT_EQ(written(vhdl, "\xC3\xA9"), "\\#c3#a9\\");
}

TEST(VhdlNS, TakesBasicIdentifiersWithoutCase) {
    EXPECT_EQ(read(vhdl, "NET_1"), "net_1");
    EXPECT_TRUE(oaName(vhdl, "NET_1") == oaName(vhdl, "net_1"));
    EXPECT_TRUE(oaName(vhdl, "\\Net\\") != oaName(vhdl, "\\nEt\\"));
    oaString internal;
    oaBoolean caseSensitive = 1;
    vhdl.getInternalMember("Net", internal, caseSensitive, 3);
    EXPECT_EQ(internal, "net");
    EXPECT_EQ(caseSensitive, 0);
    vhdl.getInternalMember("\\Net\\", internal, caseSensitive, 5);
    EXPECT_EQ(internal, "Net");
    EXPECT_EQ(caseSensitive, 1);
}

TEST(VhdlNS, SpellsBitsVectorsBundlesAndHierarchies) {
    EXPECT_EQ(written(vhdl, "a[3]"), "a(3)");
    EXPECT_EQ(written(vhdl, "a[3:0]"), "a(3 downto 0)");
    EXPECT_EQ(written(vhdl, "a[0:3]"), "a(0 to 3)");
    EXPECT_EQ(written(vhdl, "{a,2*b[1]}"), "(a,b(1),b(1))");
    EXPECT_EQ(written(vhdl, "top/i[2]/B"), "top.i(2).\\B\\");
    EXPECT_EQ(read(vhdl, "A(3 DOWNTO 0)"), "a[3:0]");
    EXPECT_EQ(read(vhdl, "a(3 downto 3)"), "a[3:3]");
    EXPECT_EQ(read(vhdl, "( a, b(1) )"), "{a,b[1]}");
    EXPECT_EQ(refusal([] { written(vhdl, "{100000*a}"); }), oaUInt4(oacBundleNameInvalid));
}

TEST(VhdlNS, RefusesEveryOtherText) {
    for (const char* text :
         {"Signal", "_a", "a_", "a__b", "1a", "a b", "\\a", "\\\\", "\\abc\\", "\\a\\b\\", "a.",
          "a(3 to 0)", "a(0 downto 3)", "a(3)(2)", "a(1 to 2).b", "\\a#41\\"}) {
        EXPECT_EQ(vhdl.getType(text), oacEmptyNameType) << text;
        EXPECT_EQ(refusal([&] { oaScalarName(vhdl, text); }), oaUInt4(oacScalarNameInvalid))
            << text;
    }
}
