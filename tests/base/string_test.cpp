#include <oa/oaString.h>

#include <gtest/gtest.h>

#include <sstream>

using namespace oa;

TEST(String, IsEmptyAtFirst) {
    const oaString text;
    EXPECT_TRUE(text.isEmpty());
    EXPECT_EQ(text.getLength(), 0u);
    EXPECT_STREQ(text, "");
}

TEST(String, CopiesTextUpToItsEnd) {
    EXPECT_EQ(oaString("abc"), "abc");
    EXPECT_EQ(oaString("abcdef", 3u), "abc");
    EXPECT_EQ(oaString("ab", 9u), "ab");
    EXPECT_EQ(oaString(nullptr), "");
}

TEST(String, IsTakenWhereACharacterPointerIsWanted) {
    const oaString text("abc");
    const oaChar* pointer = text;
    std::ostringstream stream;
    stream << text;
    EXPECT_STREQ(pointer, "abc");
    EXPECT_EQ(std::string(text), "abc");
    EXPECT_EQ(stream.str(), "abc");
}

TEST(String, AssignsCharacterTextAndString) {
    oaString text("long enough");
    text = 'x';
    EXPECT_EQ(text, "x");
    text = "yz";
    EXPECT_EQ(text, "yz");
    text = oaString("w");
    EXPECT_EQ(text, "w");
    text = static_cast<const oaChar*>(nullptr);
    EXPECT_EQ(text, "");
}

TEST(String, AppendsAndJoins) {
    oaString text("a");
    text += 'b';
    text += "cd";
    text += oaString("e");
    text += text;
    EXPECT_EQ(text, "abcdeabcde");
    EXPECT_EQ(oaString("a") + "b", "ab");
    EXPECT_EQ("a" + oaString("b"), "ab");
    EXPECT_EQ(oaString("a") + oaString("b") + "c", "abc");
}

TEST(String, AppendsItsOwnTail) {
    oaString text("a rather long text that does not fit into a small buffer");
    const std::string expected = std::string(text) + "buffer";
    text += static_cast<const oaChar*>(text) + (text.getLength() - 6);
    EXPECT_EQ(text, expected.c_str());
}

TEST(String, AppendsBehindTheTextWhenThereIsRoomLeft) {
    oaString text(16u);
    text += "ab";
    text.resize(20);
    text += 'c';
    EXPECT_EQ(text, "abc");
    EXPECT_EQ(text.getLength(), 3u);
}

TEST(String, ComparesByBytes) {
    const oaString text("bc");
    EXPECT_TRUE(text == oaString("bc") && text == "bc" && "bc" == text);
    EXPECT_TRUE(text != oaString("b") && text != "bcd" && "" != text);
    EXPECT_TRUE(text < oaString("bd") && text < "c" && "b" < text);
    EXPECT_TRUE(text > oaString("b") && text > "BC" && "bd" > text);
    EXPECT_TRUE(text <= oaString("bc") && text <= "bd" && "bc" <= text);
    EXPECT_TRUE(text >= oaString("bc") && text >= "b" && "bc" >= text);
}

TEST(String, IsWrittenThroughItsRoom) {
    oaString text("ab");
    text.resize(4);
    EXPECT_EQ(text.getSize(), 4u);
    EXPECT_EQ(text.getLength(), 2u);
    text[2] = 'c';
    text[3] = 'd';
    EXPECT_EQ(text, "abcd");
    text[1] = '\0';
    EXPECT_EQ(text, "a");
    text.resize(1);
    EXPECT_EQ(text.getSize(), 1u);
}

TEST(String, MakesRoomOnRequest) {
    const oaString text(12u);
    EXPECT_EQ(text.getSize(), 12u);
    EXPECT_TRUE(text.isEmpty());
}

TEST(String, ReadsNumbers) {
    EXPECT_EQ(oaString("42 pieces").toInt(), 42);
    EXPECT_EQ(oaString("-7").toInt(), -7);
    EXPECT_EQ(oaString("none").toInt(), 0);
    EXPECT_EQ(oaString("99999999999").toInt(), 2147483647);
    EXPECT_DOUBLE_EQ(oaString("2.5e3um").toDouble(), 2500.0);
    EXPECT_DOUBLE_EQ(oaString("").toDouble(), 0.0);
}

TEST(String, ChangesTheCaseOfAsciiLettersOnly) {
    oaString text("aZ_1\xC3\xA4");
    text.toUpper();
    EXPECT_EQ(text, "AZ_1\xC3\xA4");
    text.toLower();
    EXPECT_EQ(text, "az_1\xC3\xA4");
}

TEST(String, FindsACharacter) {
    const oaString text("abcab");
    EXPECT_EQ(text.index('b'), 1u);
    EXPECT_EQ(text.index('b', 2), 4u);
    EXPECT_EQ(text.index('x'), 5u);
    EXPECT_EQ(text.index('a', 9), 5u);
}

TEST(String, FindsAPart) {
    const oaString text("abcab");
    EXPECT_EQ(text.substr("ab"), 0u);
    EXPECT_EQ(text.substr("ab", 1), 3u);
    EXPECT_EQ(text.substr("ac"), 5u);
    EXPECT_EQ(text.substr("ab", 9), 5u);
}

TEST(String, ComparesWithoutCaseOnRequest) {
    EXPECT_TRUE(oaString("aBc").isEqual("AbC", true));
    EXPECT_FALSE(oaString("aBc").isEqual("AbC", false));
    EXPECT_FALSE(oaString("abc").isEqual("abcd", true));
    EXPECT_FALSE(oaString("@").isEqual("`", true));
}

TEST(String, FormatsAsPrintfDoes) {
    oaString text("before");
    text.format("%s-%d-%.2f", "net", 7, 1.5);
    EXPECT_EQ(text, "net-7-1.50");
    text.format(5u, "%s", "cut short");
    EXPECT_EQ(text, "cut s");
    text.format("%s!", static_cast<const oaChar*>(text));
    EXPECT_EQ(text, "cut s!");
    text.format("%0300d", 1);
    EXPECT_EQ(text.getLength(), 300u);
    text.format(nullptr);
    EXPECT_EQ(text, "");
}
