#include <ovalis/core.h>

#include <gtest/gtest.h>

using namespace ovalis;

TEST(Conversion, KeepsTheBytesOfAText) {
    for (const char* text : {"", "lib", "größe µm 日本", "a\tb\n", "\xFF\xFE"}) {
        EXPECT_STREQ(static_cast<const char*>(toOa(text)), text);
        EXPECT_EQ(fromOa(oa::oaString(text)), text);
    }
}

TEST(Conversion, EndsAtTheFirstNul) {
    EXPECT_STREQ(static_cast<const char*>(toOa(std::string("ab\0cd", 5))), "ab");
    EXPECT_EQ(toOa(std::string("ab\0cd", 5)).getLength(), 2U);
    EXPECT_EQ(fromOa(toOa(std::string("\0cd", 3))), "");
}

TEST(Conversion, OfAnEmptyDatabaseTextIsEmpty) {
    EXPECT_EQ(fromOa(oa::oaString()), "");
}

TEST(Pair, KeepsItsNamesInOrder) {
    TStringPair pair = ovalis::make_pair("cell", "größe");
    EXPECT_EQ(pair.get<0>(), "cell");
    EXPECT_EQ(pair.get<1>(), "größe");
    pair.get<1>() = "layout";
    EXPECT_EQ(pair, TStringPair("cell", "layout"));
}

TEST(Pair, ComparesBytes) {
    const TStringPair pair("cell", "layout");
    EXPECT_TRUE(pair == TStringPair("cell", "layout"));
    EXPECT_FALSE(pair == TStringPair("cell", "Layout"));
    EXPECT_FALSE(pair == TStringPair("Cell", "layout"));
    EXPECT_FALSE(pair == TStringPair("layout", "cell"));
    EXPECT_FALSE(pair == TStringPair("cell", "layout "));
    EXPECT_FALSE(TStringPair("ab", "c") == TStringPair("a", "bc"));
}

TEST(Pair, CanBeCopiedMovedAndAssigned) {
    const TStringPair pair("cell", "layout");
    TStringPair copy(pair);
    TStringPair moved(std::move(copy));
    EXPECT_EQ(moved, pair);
    EXPECT_FALSE(copy == pair); // holds no strings any more
    copy = moved;
    EXPECT_EQ(copy, pair);
    copy = TStringPair("a", "b");
    EXPECT_EQ(copy, TStringPair("a", "b"));
}

TEST(Triplet, KeepsItsNamesInOrder) {
    TStringTriplet triplet = make_triplet("cell", "layout", "maskLayout");
    EXPECT_EQ(triplet.get<0>(), "cell");
    EXPECT_EQ(triplet.get<1>(), "layout");
    EXPECT_EQ(std::as_const(triplet).get<2>(), "maskLayout");
    triplet.get<0>() = "größe";
    EXPECT_EQ(triplet, TStringTriplet("größe", "layout", "maskLayout"));
}

TEST(Triplet, ComparesBytes) {
    const TStringTriplet triplet("a", "b", "c");
    EXPECT_TRUE(triplet == TStringTriplet("a", "b", "c"));
    EXPECT_FALSE(triplet == TStringTriplet("A", "b", "c"));
    EXPECT_FALSE(triplet == TStringTriplet("a", "B", "c"));
    EXPECT_FALSE(triplet == TStringTriplet("a", "b", "C"));
}

TEST(Triplet, CanBeCopiedMovedAndAssigned) {
    const TStringTriplet triplet("a", "b", "c");
    TStringTriplet copy(triplet);
    const TStringTriplet moved(std::move(copy));
    EXPECT_EQ(moved, triplet);
    EXPECT_FALSE(copy == triplet); // holds no strings any more
    copy = moved;
    EXPECT_EQ(copy, triplet);
}
