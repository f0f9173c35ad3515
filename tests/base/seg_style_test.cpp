#include <oa/oaBase.h>

#include <gtest/gtest.h>

#include <array>

using namespace oa;

namespace {

std::array<oaDist, 4> beginOf(const oaSegStyle& style) {
    std::array<oaDist, 4> all;
    style.getBeginExt(all[0], all[1], all[2], all[3]);
    return all;
}

std::array<oaDist, 4> endOf(const oaSegStyle& style) {
    std::array<oaDist, 4> all;
    style.getEndExt(all[0], all[1], all[2], all[3]);
    return all;
}

using Ends = std::array<oaDist, 4>;

} // namespace

TEST(SegStyle, IsTruncatedAndWithoutWidthAtFirst) {
    const oaSegStyle style;
    EXPECT_EQ(style.getWidth(), 0u);
    EXPECT_EQ(style.getBeginStyle(), oacTruncateEndStyle);
    EXPECT_EQ(style.getEndStyle(), oacTruncateEndStyle);
}

TEST(SegStyle, TakesTheExtensionFromTheStyle) {
    const struct {
        oaEndStyleEnum style;
        oaDist given, answered;
    } rows[] = {
        {oacTruncateEndStyle, 7, 0}, {oacExtendEndStyle, 7, 10}, {oacChamferEndStyle, 7, 10},
        {oacVariableEndStyle, 7, 7}, {oacCustomEndStyle, 7, 7},
    };
    for (const auto& row : rows) {
        const oaSegStyle style(20, row.style, row.style, row.given, row.given);
        EXPECT_EQ(style.getBeginExt(), row.answered) << oaEndStyle(row.style).getName();
        EXPECT_EQ(style.getEndExt(), row.answered) << oaEndStyle(row.style).getName();
    }
}

TEST(SegStyle, ChangesEachEndOnItsOwn) {
    oaSegStyle style(20, oacTruncateEndStyle, oacTruncateEndStyle);
    style.setBeginStyle(oacVariableEndStyle, 3);
    style.setEndStyle(oacExtendEndStyle);
    style.setWidth(30);
    EXPECT_EQ(style.getBeginStyle(), oacVariableEndStyle);
    EXPECT_EQ(style.getBeginExt(), 3u);
    EXPECT_EQ(style.getEndStyle(), oacExtendEndStyle);
    EXPECT_EQ(style.getEndExt(), 15u);
    EXPECT_EQ(style.getWidth(), 30u);
}

TEST(SegStyle, KeepsAllOfACustomEnd) {
    oaSegStyle style(20, oacExtendEndStyle, oacExtendEndStyle);
    style.setBeginStyle(oacCustomEndStyle, 1, 2, 3, 4);
    style.setEndStyle(oacCustomEndStyle, 5, 6, 7, 8);
    EXPECT_EQ(beginOf(style), (Ends{1, 2, 3, 4}));
    EXPECT_EQ(endOf(style), (Ends{5, 6, 7, 8}));
    style.setBeginStyle(oacExtendEndStyle);
    EXPECT_EQ(beginOf(style), (Ends{10, 0, 0, 0}));
}

TEST(SegStyle, ComparesWidthAndEnds) {
    const oaSegStyle style(20, oacVariableEndStyle, oacExtendEndStyle, 3, 0);
    oaSegStyle other(style);
    EXPECT_TRUE(style == other);
    other.setWidth(21);
    EXPECT_TRUE(style != other);
    EXPECT_TRUE(style != oaSegStyle(20, oacVariableEndStyle, oacExtendEndStyle, 4, 0));
    EXPECT_TRUE(style != oaSegStyle(20, oacVariableEndStyle, oacTruncateEndStyle, 3, 0));
    EXPECT_TRUE(style == oaSegStyle(20, oacVariableEndStyle, oacExtendEndStyle, 3, 99));
}
