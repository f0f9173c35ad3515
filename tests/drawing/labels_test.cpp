#include "drawing/labels.h"

#include <gtest/gtest.h>

namespace drawing {
namespace {

Pin dot(const std::string& name, double angle, Point place) {
    return {name, angle, {{place}}};
}

TEST(PlacePinLabels, PutsTheNameBeyondTheArrow) {
    const Scale scale{0, 100, 1};
    const std::vector<Pin> pins = {dot("E", 0, {50, 50}), dot("N", 90, {50, 50}),
                                   dot("W", 180, {50, 50}), dot("S", 270, {50, 50})};
    for (const Pin& pin : pins) {
        const PinLabel label = placePinLabels({pin}, scale).front();
        const double x = (label.box.left + label.box.right) / 2 - 50;
        const double y = 50 - (label.box.bottom + label.box.top) / 2;
        EXPECT_FALSE(label.moved);
        EXPECT_EQ(x > 20, pin.name == "E");
        EXPECT_EQ(x < -20, pin.name == "W");
        EXPECT_EQ(y > 20, pin.name == "N");
        EXPECT_EQ(y < -20, pin.name == "S");
    }
}

TEST(PlacePinLabels, StartsAtTheEdgeOfThePin) {
    const Pin pin{"A", 0, {{{0, 0}, {40, 0}, {40, 10}, {0, 10}}}};
    const PinLabel label = placePinLabels({pin}, {0, 10, 1}).front();
    EXPECT_DOUBLE_EQ(label.startX, 40);
    EXPECT_DOUBLE_EQ(label.startY, 5);
}

TEST(PlacePinLabels, KeepsNamesApartWhenPinsCoincide) {
    std::vector<Pin> pins;
    for (int i = 0; i < 12; ++i)
        pins.push_back(dot("name" + std::to_string(i), 180, {i, i % 3}));
    const std::vector<PinLabel> labels = placePinLabels(pins, {0, 0, 1});
    for (std::size_t a = 0; a < labels.size(); ++a)
        for (std::size_t b = a + 1; b < labels.size(); ++b)
            EXPECT_FALSE(labels[a].box.overlaps(labels[b].box)) << a << " and " << b;
}

TEST(TextWidth, CountsCharactersNotBytes) {
    EXPECT_EQ(textWidth("\xC2\xB5m", 10), textWidth("um", 10));
}

TEST(TextExtent, FollowsAlignment) {
    Text text{"ab", {1, 2}, {0, 0}, 10, Horizontal::left, Vertical::lower};
    const Scale scale{0, 0, 1};
    EXPECT_DOUBLE_EQ(extentOf(text, scale).left, 0);
    EXPECT_LT(extentOf(text, scale).bottom, -7);
    text.horizontal = Horizontal::right;
    EXPECT_DOUBLE_EQ(extentOf(text, scale).right, 0);
    text.horizontal = Horizontal::center;
    EXPECT_DOUBLE_EQ(extentOf(text, scale).left, -extentOf(text, scale).right);
    text.vertical = Vertical::upper;
    EXPECT_GT(extentOf(text, scale).top, 7);
}

TEST(TextExtent, FollowsTurning) {
    Text text{"long text", {1, 2}, {0, 0}, 10, Horizontal::left, Vertical::lower};
    const double turned[4] = {0, 1, -1, 0};
    std::copy(std::begin(turned), std::end(turned), text.matrix);
    const Extent extent = extentOf(text, {0, 0, 1});
    EXPECT_LT(extent.bottom, -50);
    EXPECT_LT(extent.width(), 11);
}

} // namespace
} // namespace drawing
