#include "drawing/geometry.h"

#include <gtest/gtest.h>

#include "drawing/svg_text.h"

namespace drawing {
namespace {

TEST(Decimal, WritesAsFewCharactersAsItCan) {
    EXPECT_EQ(decimal(0), "0");
    EXPECT_EQ(decimal(-0.001), "0");
    EXPECT_EQ(decimal(12.5), "12.5");
    EXPECT_EQ(decimal(12.344), "12.34");
    EXPECT_EQ(decimal(-3.999), "-4");
    EXPECT_EQ(decimal(100), "100");
    EXPECT_EQ(decimal(0.000001234, 9), "0.000001234");
}

TEST(RoundLength, IsOneTwoOrFiveTimesAPowerOfTen) {
    EXPECT_DOUBLE_EQ(roundLength(1), 1);
    EXPECT_DOUBLE_EQ(roundLength(4.99), 2);
    EXPECT_DOUBLE_EQ(roundLength(99), 50);
    EXPECT_DOUBLE_EQ(roundLength(0.017), 0.01);
    EXPECT_DOUBLE_EQ(roundLength(2e7), 2e7);
}

TEST(DoubleArea, TellsTheDirection) {
    EXPECT_EQ(doubleArea({{0, 0}, {4, 0}, {4, 4}, {0, 4}}), 32);
    EXPECT_EQ(doubleArea({{0, 4}, {4, 4}, {4, 0}, {0, 0}}), -32);
}

TEST(DoubleArea, IsExactFarFromTheOrigin) {
    const std::int64_t far = 2147483000;
    EXPECT_EQ(doubleArea({{far, far}, {far + 1, far}, {far, far + 1}}), 1);
}

TEST(ExtentOf, CoversFiguresPinsAndTexts) {
    Picture picture;
    EXPECT_TRUE(extentOf(picture).isEmpty);
    picture.layers[{1, 2}].closed = {{{0, 0}, {4, 0}, {4, 4}}};
    picture.layers[{1, 3}].dots = {{-1, 2}};
    picture.pins = {{"A", 0, {{{9, 1}}}}};
    picture.texts.push_back({"t", {1, 2}, {3, -7}});
    const Extent extent = extentOf(picture);
    EXPECT_EQ(extent.left, -1);
    EXPECT_EQ(extent.right, 9);
    EXPECT_EQ(extent.bottom, -7);
    EXPECT_EQ(extent.top, 4);
}

TEST(XmlText, EscapesMarkup) {
    EXPECT_EQ(xmlText("a<b>&\"c\""), "a&lt;b&gt;&amp;&quot;c&quot;");
    EXPECT_EQ(xmlText("\xC2\xB5m \xF0\x9F\x98\x80"), "\xC2\xB5m \xF0\x9F\x98\x80");
    EXPECT_EQ(xmlText("two\nlines"), "two lines");
}

TEST(XmlText, ReplacesWhatXmlCannotHold) {
    const std::string replaced = "\xEF\xBF\xBD";
    EXPECT_EQ(xmlText("a\x01z"), "a" + replaced + "z");
    EXPECT_EQ(xmlText("a\xFFz"), "a" + replaced + "z");
    EXPECT_EQ(xmlText("cut\xC2"), "cut" + replaced);
    EXPECT_EQ(xmlText("\xC0\x80"), replaced + replaced);
    EXPECT_EQ(xmlText("\xED\xA0\x80"), replaced + replaced + replaced);
    EXPECT_EQ(xmlText("\xEF\xBF\xBE"), replaced + replaced + replaced);
}

} // namespace
} // namespace drawing
