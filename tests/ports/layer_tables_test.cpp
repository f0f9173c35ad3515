#include <ovalis/ports.h>

#include <gtest/gtest.h>

using namespace ovalis;

namespace {

std::vector<std::string> keysOf(const LayerPurposePairs& pairs) {
    std::vector<std::string> keys;
    for (const auto& [key, numbers] : pairs) {
        keys.push_back(key);
    }
    return keys;
}

} // namespace

TEST(LayerTables, HoldTheDrawingLayersOfTheCircuitDesignEnvironment) {
    const LayerPurposePairs expected = {
        {"default:drawing", {0, 4294967295}},
        {"cond:drawing", {1, 4294967295}},
        {"cond:annotation", {1, 4294967290}},
        {"cond2:drawing", {2, 4294967295}},
        {"resi:drawing", {3, 4294967295}},
        {"diel:drawing", {4, 4294967295}},
        {"hole:drawing", {5, 4294967295}},
        {"bond:drawing", {6, 4294967295}},
        {"symbol:drawing", {7, 4294967295}},
        {"text:drawing", {8, 4294967295}},
        {"bound:drawing", {13, 4294967295}},
        {"bound:annotation", {13, 4294967290}},
        {"vex_text:drawing", {230, 4294967295}},
        {"vex_device:vex_annotate", {231, 240}},
        {"vex_device:drawing", {231, 4294967295}},
        {"vex_annotate:drawing", {237, 4294967295}},
        {"vex_drc_error:drawing", {255, 4294967295}},
    };
    EXPECT_EQ(vexDefaultLayerPurposePairs(), expected);
    EXPECT_EQ(vexDefaultLayerPurposePairs().size(), 17U);
}

TEST(LayerTables, HoldTheLayersOfTheSimulationApplication) {
    const LayerPurposePairs expected = {
        {"tessa_3dc_pins:drawing", {4294966519, 4294967295}},
        {"tessa_3dc_pins:annotation", {4294966519, 4294967290}},
        {"tessa_3dc_artwork:drawing", {4294966518, 4294967295}},
        {"tessa_3dc_artwork:annotation", {4294966518, 4294967290}},
    };
    EXPECT_EQ(tessaDefaultLayerPurposePairs(), expected);
}

TEST(LayerTables, AreOrderedByTheBytesOfTheirKeys) {
    EXPECT_EQ(
        keysOf(vexDefaultLayerPurposePairs()),
        (std::vector<std::string>{
            "bond:drawing", "bound:annotation", "bound:drawing", "cond2:drawing", "cond:annotation",
            "cond:drawing", "default:drawing", "diel:drawing", "hole:drawing", "resi:drawing",
            "symbol:drawing", "text:drawing", "vex_annotate:drawing", "vex_device:drawing",
            "vex_device:vex_annotate", "vex_drc_error:drawing", "vex_text:drawing"}));
}

TEST(LayerTables, AreFreshOnEveryCall) {
    LayerPurposePairs mine = vexDefaultLayerPurposePairs();
    mine["cond:drawing"] = {99, 99};
    mine.erase("hole:drawing");
    const std::pair<std::uint32_t, std::uint32_t> cond{1, 4294967295};
    EXPECT_EQ(vexDefaultLayerPurposePairs().at("cond:drawing"), cond);
    EXPECT_EQ(vexDefaultLayerPurposePairs().size(), 17U);
}
