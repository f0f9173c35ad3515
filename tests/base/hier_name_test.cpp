#include "names.h"

#include <gtest/gtest.h>

using namespace oa;
using namespace ovalis::test;

namespace {

const oaNativeNS native;
const oaCdbaNS cdba;

template <class Name>
std::string cdbaText(const Name& name) {
    return spelled(name, cdba);
}

} // namespace

TEST(HierName, HasItsMembersInARow) {
    const oaScalarName name(cdba, "top/i<2>/net#20a");
    EXPECT_EQ(name.getNumMembers(), 3u);
    EXPECT_TRUE(name.isHier());
    EXPECT_EQ(spelled(name), "top/i[2]/net a");
    EXPECT_EQ(cdbaText(name), "top/i<2>/net#20a");
    EXPECT_EQ(spelled(name, oaVerilogNS()), "top.i[2].\\net#20a ");
    EXPECT_EQ(spelled(name, oaVhdlNS()), "top.i(2).\\net a\\");
    EXPECT_EQ(spelled(name, oaUnixNS()), "top#2fi#5b2#5d#2fnet#20a");
    EXPECT_TRUE(name == oaScalarName(native, "top/i[2]/net a"));
    EXPECT_TRUE(name == oaScalarName(oaUnixNS(), "top#2fi#5b2#5d#2fnet#20a"));
}

TEST(HierName, IsAnotherThanTheNameWithItsDelimiter) {
    const oaScalarName one(cdba, "a#2fb");
    EXPECT_EQ(one.getNumMembers(), 1u);
    EXPECT_FALSE(one.isHier());
    EXPECT_EQ(spelled(one), "a\\/b");
    EXPECT_TRUE(one != oaScalarName(cdba, "a/b"));
    EXPECT_TRUE(one == oaScalarName(native, "a\\/b"));
    EXPECT_EQ(spelled(oaScalarName(cdba, "a#5c#2fb")), "a\\\\\\/b");
    EXPECT_EQ(spelled(oaScalarName(cdba, "a#5cb")), "a\\b");
}

TEST(HierName, HasNoEmptyMembers) {
    for (const char* text : {"/", "/a", "a/", "a//b"}) {
        const oaScalarName name(native, text);
        EXPECT_EQ(name.getNumMembers(), 1u) << text;
        EXPECT_EQ(spelled(name), text);
    }
}

TEST(HierName, GrowsAtBothEnds) {
    oaScalarName name;
    EXPECT_EQ(name.getNumMembers(), 0u);
    name.append(cdba, "net#20axyz", 7);
    name.append(oaNameMem("b", true));
    name.addHierMem(oaNameMem("i<2>", true));
    name.addHierMem(native, "top", 3);
    EXPECT_EQ(cdbaText(name), "top/i<2>/net#20a/b");
    name.addHierPath(oaScalarName(cdba, "x/y"));
    EXPECT_EQ(cdbaText(name), "x/y/top/i<2>/net#20a/b");
    EXPECT_EQ(name.getNumMembers(), 6u);
    name.addHierPath(oaScalarName());
    EXPECT_EQ(name.getNumMembers(), 6u);
    EXPECT_EQ(refusal([&] { name.append(oaNameMem("c<1>", true)); }),
              oaUInt4(oacScalarNameInvalid));
    EXPECT_EQ(refusal([&] { name.append(cdba, "", 0); }), 41u);
}

TEST(HierName, OfABitOrAVectorKeepsItsIndices) {
    oaVectorBitName bit(cdba, "a<3>");
    bit.addHierPath(oaVectorBitName(cdba, "top/i<2>"));
    EXPECT_EQ(cdbaText(bit), "top/i<2>/a<3>");
    EXPECT_EQ(spelled(bit), "top/i[2]/a[3]");
    EXPECT_TRUE(bit == oaVectorBitName(cdba, "top/i<2>/a<3>"));
    EXPECT_EQ(bit.getNumMembers(), 3u);
    bit.append(native, "b", 1);
    EXPECT_EQ(cdbaText(bit), "top/i<2>/a/b<3>");
    oaVectorName vector(cdba, "a<0:6:2>");
    vector.addHierMem(cdba, "top", 3);
    EXPECT_EQ(cdbaText(vector), "top/a<0:6:2>");
    oaString text;
    vector.getBitName(cdba, 1, text);
    EXPECT_EQ(text, "top/a<2>");
    vector.getBaseName(cdba, text);
    EXPECT_EQ(text, "top/a");
    EXPECT_TRUE(oaName(cdba, "top/a<0:6:2>") == oaName(vector));
}

TEST(HierName, OfAnEmptyNameIsThePathAlone) {
    oaScalarName name;
    name.addHierPath(oaScalarName(cdba, "top/i"));
    EXPECT_EQ(cdbaText(name), "top/i");
    oaScalarName none;
    EXPECT_EQ(refusal([&] { none.addHierPath(oaVectorBitName(cdba, "i<2>")); }),
              oaUInt4(oacHierNameInvalid));
    EXPECT_TRUE(none.isEmpty());
}

TEST(HierName, OfAnyFormGetsAPath) {
    oaName name(cdba, "a<3>");
    name.addHierMem(cdba, "top", 3);
    EXPECT_EQ(cdbaText(name), "top/a<3>");
    oaSimpleName simple(cdba, "b");
    simple.addHierPath(oaVectorBitName(cdba, "i<2>"));
    EXPECT_EQ(cdbaText(simple), "i<2>/b");
    EXPECT_EQ(simple.getNumMembers(), 2u);
}

TEST(NameMem, MayHaveAnIndex) {
    const oaNameMem bit("a#20b<12>", true);
    EXPECT_TRUE(bit.hasIndex());
    EXPECT_EQ(bit.getIndex(), 12u);
    oaString base;
    bit.getBaseName(base);
    EXPECT_EQ(base, "a#20b");
    for (const char* text : {"a", "a<", "a<3:0>", "a<03>", "<3>", ""}) {
        const oaNameMem member(text, true);
        EXPECT_FALSE(member.hasIndex()) << text;
        EXPECT_EQ(member.getIndex(), 0u);
        member.getBaseName(base);
        EXPECT_EQ(base, text);
    }
}

TEST(NameSpace, WritesRowsOfMembers) {
    const oaNameMem members[] = {oaNameMem("top", true), oaNameMem("i<2>", true),
                                 oaNameMem("a#20b", true)};
    oaString out("> ");
    oaUInt4 loc = 2;
    cdba.getMemberArray(members, 3, out, loc);
    EXPECT_EQ(out, "> top/i<2>/a#20b");
    EXPECT_EQ(loc, out.getLength());
    loc = 0;
    oaVerilogNS().getMemberArray(members, 2, out, loc);
    EXPECT_EQ(out, "top.i[2]");
    loc = 0;
    native.getVectorBitName(members, 3, 7, out, loc);
    EXPECT_EQ(out, "top/i[2]/a b[7]");
    loc = 0;
    cdba.getMemberArray(members, 0, out, loc);
    EXPECT_EQ(loc, 0u);
}
