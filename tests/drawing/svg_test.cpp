#include "drawing/svg.h"

#include <set>
#include <sstream>

#include <gtest/gtest.h>

#include "support/files.h"
#include "support/places.h"

namespace drawing {
namespace {

std::string svgOf(const Picture& picture) {
    std::ostringstream out;
    writeSvg(out, picture);
    return out.str();
}

bool contains(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

LayerFigures metal(std::vector<Points> closed) {
    LayerFigures figures;
    figures.layerName = "M1";
    figures.purposeName = "drawing";
    figures.closed = std::move(closed);
    return figures;
}

Picture small() {
    Picture picture;
    picture.title = "lib / coil / layout";
    picture.dbuPerUserUnit = 1000;
    picture.userUnit = "micron";
    picture.layers[{1, 0xFFFFFFFF}] = metal({{{0, 0}, {0, 300}, {900, 300}, {900, 0}}});
    picture.layers[{1, 0xFFFFFFFF}].open = {{{0, 0}, {300, 150}}};
    picture.layers[{2, 2}].layerName = "M2";
    picture.layers[{2, 2}].purposeName = "pin";
    picture.layers[{2, 2}].dots = {{450, 150}};
    picture.layers[{2, 2}].texts = 1;
    picture.texts.push_back({"a<b", {2, 2}, {100, 200}, 20, Horizontal::center, Vertical::center});
    picture.pins = {{"P1", 180, {{{0, 100}, {0, 200}}}}};
    return picture;
}

TEST(WriteSvg, DrawsASmallPictureLikeThis) {
    const auto expected = ovalis::test::sourceTree() / "tests" / "drawing" / "small.svg";
    EXPECT_EQ(svgOf(small()), ovalis::test::readText(expected));
}

TEST(WriteSvg, TurnsOutlinesTheSameWaySoThatOverlapsStayFilled) {
    Picture picture;
    picture.layers[{1, 1}] = metal(
        {{{0, 0}, {100, 0}, {100, 100}, {0, 100}}, {{50, 50}, {50, 150}, {150, 150}, {150, 50}}});
    EXPECT_TRUE(contains(svgOf(picture), "d=\"M0 0h100v100h-100zm150 50v100h-100v-100z\""));
}

TEST(WriteSvg, KeepsExactCoordinatesAtTheEndsOfTheRange) {
    Picture picture;
    picture.layers[{1, 1}] =
        metal({{{-2147483648, -2147483648}, {2147483647, -2147483648}, {2147483647, 2147483647}}});
    EXPECT_TRUE(contains(svgOf(picture), "d=\"M0 0h4294967295v4294967295z\""));
}

TEST(WriteSvg, ShowsAnEmptyDesign) {
    Picture picture;
    picture.title = "nothing";
    const std::string svg = svgOf(picture);
    EXPECT_TRUE(contains(svg, "<title>nothing</title>"));
    EXPECT_FALSE(contains(svg, "nan"));
    EXPECT_FALSE(contains(svg, "inf"));
}

TEST(WriteSvg, ShowsASingleDot) {
    Picture picture;
    picture.layers[{1, 1}].dots = {{5, 5}};
    const std::string svg = svgOf(picture);
    EXPECT_TRUE(contains(svg, "<circle cx=\"0\" cy=\"0\""));
    EXPECT_FALSE(contains(svg, "nan"));
}

TEST(WriteSvg, GivesEveryLayerItsOwnColour) {
    Picture picture;
    for (std::uint32_t layer = 0; layer < 64; ++layer)
        picture.layers[{layer, 0xFFFFFFFF}] = metal({{{0, 0}, {9, 0}, {9, 9}}});
    const std::string svg = svgOf(picture);
    std::set<std::string> colours;
    for (std::size_t at = svg.find("<g fill=\"#"); at != std::string::npos;
         at = svg.find("<g fill=\"#", at + 1))
        colours.insert(svg.substr(at + 9, 7));
    EXPECT_EQ(colours.size(), 64u);
}

TEST(WriteSvg, ReadsTheScaleBarInTheDesignsUnits) {
    Picture picture;
    picture.layers[{231, 1}] = metal({{{0, 0}, {160, 0}, {160, 80}}});
    picture.dbuPerUserUnit = 160;
    picture.userUnit = "inch";
    EXPECT_TRUE(contains(svgOf(picture), ">0.2 in</text>"));
}

} // namespace
} // namespace drawing
