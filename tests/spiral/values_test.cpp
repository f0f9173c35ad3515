#include "examples/pcells/spiral/values.h"

#include <limits>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace spiral {
namespace {

Values sound() {
    return {"octagon", 3, 10, 5, 100, 8, 7, 6};
}

template <class Change>
std::string refusalOf(Change change) {
    Values values = sound();
    change(values);
    try {
        dimensionsOf(values);
    } catch (const std::invalid_argument& error) {
        return error.what();
    }
    return "";
}

TEST(SpiralValues, BecomeStepsOfFiveNanometres) {
    const Dimensions octagon = dimensionsOf(sound());
    EXPECT_EQ(octagon.shape, Shape::octagon);
    EXPECT_EQ(octagon.turns, 3);
    EXPECT_EQ(octagon.width, 2000);
    EXPECT_EQ(octagon.spacing, 1000);
    EXPECT_EQ(octagon.innerRadius, 10000);

    const Dimensions square = dimensionsOf({"square", 100, 0.005, 3.145, 6.3, 0, 1, 2});
    EXPECT_EQ(square.shape, Shape::square);
    EXPECT_EQ(square.turns, 100);
    EXPECT_EQ(square.width, 1);
    EXPECT_EQ(square.spacing, 629);
    EXPECT_EQ(square.innerRadius, 630);
}

using Refusals = std::vector<std::pair<std::string, std::string>>; // with what they must be

void expectSame(const Refusals& refusals) {
    for (const auto& [refusal, expected] : refusals)
        EXPECT_EQ(refusal, expected);
}

TEST(SpiralValues, ImpossibleTracesAreRefusedWithWhatIsPossible) {
    expectSame({
        {refusalOf([](Values& v) { v.shape = "circle"; }),
         "shape is \"circle\": it must be \"octagon\" or \"square\""},
        {refusalOf([](Values& v) { v.shape = ""; }),
         "shape is \"\": it must be \"octagon\" or \"square\""},
        {refusalOf([](Values& v) { v.turns = 0; }), "turns is 0: it must be 1 to 100"},
        {refusalOf([](Values& v) { v.turns = -3; }), "turns is -3: it must be 1 to 100"},
        {refusalOf([](Values& v) { v.turns = 101; }), "turns is 101: it must be 1 to 100"},
        {refusalOf([](Values& v) { v.width = 0; }),
         "width is 0 microns: it must be above 0 and at most 10000"},
        {refusalOf([](Values& v) { v.width = 10000.005; }),
         "width is 10000.005 microns: it must be above 0 and at most 10000"},
        {refusalOf([](Values& v) { v.width = std::numeric_limits<double>::quiet_NaN(); }),
         "width is nan microns: it must be above 0 and at most 10000"},
        {refusalOf([](Values& v) { v.width = 0.004; }),
         "width is 0.004 microns: it must be a multiple of 0.005"},
        {refusalOf([](Values& v) { v.width = 1e-9; }),
         "width is 1e-09 microns: it must be a multiple of 0.005"},
        {refusalOf([](Values& v) { v.spacing = -5; }),
         "spacing is -5 microns: it must be above 0 and at most 10000"},
        {refusalOf([](Values& v) { v.spacing = std::numeric_limits<double>::infinity(); }),
         "spacing is inf microns: it must be above 0 and at most 10000"},
        {refusalOf([](Values& v) { v.spacing = 2.0025; }),
         "spacing is 2.0025 microns: it must be a multiple of 0.005"},
    });
}

TEST(SpiralValues, ImpossibleSizesAreRefusedWithWhatIsPossible) {
    expectSame({
        {refusalOf([](Values& v) { v.innerDiameter = 0; }),
         "innerDiameter is 0 microns: it must be above 0 and at most 10000"},
        {refusalOf([](Values& v) { v.innerDiameter = 100.005; }),
         "innerDiameter is 100.005 microns: it must be a multiple of 0.01"},
        {refusalOf([](Values& v) { v.innerDiameter = 82.42; }),
         "innerDiameter is 82.42 microns: the inner end of such a trace needs 82.43 microns"},
        {refusalOf([](Values& v) {
             v.shape = "square";
             v.innerDiameter = 29.99;
         }),
         "innerDiameter is 29.99 microns: the inner end of such a trace needs 30 microns"},
        {refusalOf([](Values& v) {
             v.turns = 100;
             v.width = 50;
         }),
         "innerDiameter is 100 microns: the inner end of such a trace needs 275.56 microns"},
        {refusalOf([](Values& v) {
             v.turns = 100;
             v.width = 50;
             v.innerDiameter = 300;
         }),
         "the spiral would be 11510 microns wide: it may be at most 10000"},
    });
}

TEST(SpiralValues, ImpossibleLayersAreRefusedWithWhatIsPossible) {
    expectSame({
        {refusalOf([](Values& v) { v.layer = -1; }), "layer is -1: a layer number is 0 or more"},
        {refusalOf([](Values& v) { v.viaLayer = -2; }),
         "viaLayer is -2: a layer number is 0 or more"},
        {refusalOf([](Values& v) { v.underpassLayer = -3; }),
         "underpassLayer is -3: a layer number is 0 or more"},
        {refusalOf([](Values& v) { v.layer = 7; }),
         "layer and viaLayer are both 7: they must differ"},
        {refusalOf([](Values& v) { v.underpassLayer = 7; }),
         "viaLayer and underpassLayer are both 7: they must differ"},
        {refusalOf([](Values& v) { v.underpassLayer = 8; }),
         "underpassLayer and layer are both 8: they must differ"},
    });
}

} // namespace
} // namespace spiral
