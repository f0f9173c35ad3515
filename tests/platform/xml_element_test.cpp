#include <stdexcept>
#include <string>

#include <gtest/gtest.h>

#include <platform/xml_element.h>

namespace platform {
namespace {

std::string failureOf(const std::string& text) {
    try {
        parseXml(text);
    } catch (const std::runtime_error& error) {
        return error.what();
    }
    return "none";
}

std::string nested(int depth) {
    std::string text;
    for (int i = 0; i < depth; ++i)
        text += "<a>";
    for (int i = 0; i < depth; ++i)
        text += "</a>";
    return text;
}

TEST(XmlElement, HasAttributesAndChildren) {
    const XmlElement root = parseXml("\xef\xbb\xbf<?xml version='1.0'?>\r\n<!DOCTYPE a>\n"
                                     "<!-- <none/> --><a b = \"1'2\" c='\"'>\n\t<d/><d e=''></d >"
                                     "<!---->\n</a>\n<!-- end -->");
    EXPECT_EQ(root.name, "a");
    ASSERT_EQ(root.attributes.size(), 2U);
    EXPECT_EQ(*root.attribute("b"), "1'2");
    EXPECT_EQ(*root.attribute("c"), "\"");
    EXPECT_EQ(root.attribute("d"), nullptr);
    ASSERT_EQ(root.children.size(), 2U);
    EXPECT_EQ(root.child("d"), &root.children[0]);
    EXPECT_EQ(*root.children[1].attribute("e"), "");
    EXPECT_EQ(root.child("a"), nullptr);
}

TEST(XmlElement, KnowsCharactersByNameAndByNumber) {
    EXPECT_EQ(*parseXml("<a b='&lt;&gt;&amp;&quot;&apos;&#65;&#x42;'/>").attribute("b"),
              "<>&\"'AB");
    EXPECT_EQ(
        *parseXml("<a b='&#127;&#128;&#x7ff;&#x800;&#xffff;&#x10000;&#x10ffff;'/>").attribute("b"),
        "\x7f\xc2\x80\xdf\xbf\xe0\xa0\x80\xef\xbf\xbf\xf0\x90\x80\x80\xf4\x8f\xbf\xbf");
    for (const char* wrong : {"&nbsp;", "&#0;", "&#x110000;", "&#xd800;", "&#xdfff;", "&#;",
                              "&#-1;", "&#99999999999;", "&lt", "&"})
        EXPECT_EQ(failureOf(std::string("<a b='") + wrong + "'/>"),
                  "line 1: unknown character entity")
            << wrong;
}

TEST(XmlElement, AnEscapedTextIsReadBack) {
    const std::string text = "<a b=\"c\" & 'd'>\n\t\xc3\xa9";
    EXPECT_EQ(xmlEscaped(text), "&lt;a b=&quot;c&quot; &amp; 'd'>&#10;&#9;\xc3\xa9");
    EXPECT_EQ(*parseXml("<e f=\"" + xmlEscaped(text) + "\"/>").attribute("f"), text);
}

TEST(XmlElement, NamesAreThoseOfXml) {
    for (const char* name : {"a", "_", "Zz9", "a-b.c:d", "\xc3\xa9"})
        EXPECT_TRUE(isXmlName(name)) << name;
    for (const char* name : {"", "1", "-a", ":a", "a b", "a="})
        EXPECT_FALSE(isXmlName(name)) << name;
}

TEST(XmlElement, SaysInWhichLineItIsMalformed) {
    EXPECT_EQ(failureOf(""), "line 1: expected '<' before the end of the file");
    EXPECT_EQ(failureOf("\n\ntext"), "line 3: expected '<'");
    EXPECT_EQ(failureOf("<a/>\n<b/>"), "line 2: unexpected text after the end of <a>");
    EXPECT_EQ(failureOf("<!-- "), "line 1: '-->' is missing");
    EXPECT_EQ(failureOf("<?xml"), "line 1: '?>' is missing");
    EXPECT_EQ(failureOf("<!DOCTYPE"), "line 1: '>' is missing");
    EXPECT_EQ(failureOf("<1/>"), "line 1: expected a name");
    EXPECT_EQ(failureOf("<a 1=''/>"), "line 1: expected a name");
    EXPECT_EQ(failureOf("<a b/>"), "line 1: expected '='");
    EXPECT_EQ(failureOf("<a b=c/>"), "line 1: expected a value in quotes");
    EXPECT_EQ(failureOf("<a b='c/>"), "line 1: the closing quote of a value is missing");
    EXPECT_EQ(failureOf("<a b='<'/>"), "line 1: the closing quote of a value is missing");
    EXPECT_EQ(failureOf("<a b='' b=''/>"), "line 1: attribute 'b' stands twice");
    EXPECT_EQ(failureOf("<a>\n</b>"), "line 2: the end of <a> is missing");
    EXPECT_EQ(failureOf("<a></a"), "line 1: expected '>' before the end of the file");
    EXPECT_EQ(failureOf("<a>text</a>"), "line 1: expected '<'");
}

TEST(XmlElement, DeepNestingIsRefusedBeforeTheStackIsUsedUp) {
    EXPECT_EQ(failureOf(nested(16)), "none");
    EXPECT_EQ(failureOf(nested(17)), "line 1: elements are nested too deeply");
    EXPECT_EQ(failureOf(nested(1'000'000)), "line 1: elements are nested too deeply");
}

} // namespace
} // namespace platform
