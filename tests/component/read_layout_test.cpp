#include <gtest/gtest.h>

#include "inputs.h"

namespace component::test {
namespace {

TEST(ReadLayout, TakesPolygonsAndLinesOfEachLayer) {
    Inputs inputs;
    const Component of = inputs.readBack();
    const Layout layout = inputs.readLayoutBack(of);
    ASSERT_EQ(layout.figures.size(), 2u);
    EXPECT_EQ(layout.figures[0].layer, &of.layers[0]);
    ASSERT_EQ(layout.figures[0].polygons.size(), 2u);
    EXPECT_EQ(layout.figures[0].polygons[0], (Outline{{0, 0}, {10, 0}, {10, 10}}));
    ASSERT_EQ(layout.figures[0].lines.size(), 1u);
    EXPECT_EQ(layout.figures[0].lines[0], (Outline{{0, 0}, {0, 9}}));
    EXPECT_TRUE(layout.figures[1].polygons.empty());
}

TEST(ReadLayout, PutsLabelsOnDeclaredLayersOrTheFilesOwn) {
    Inputs inputs;
    const Component of = inputs.readBack();
    const std::vector<Label> labels = inputs.readLayoutBack(of).labels;
    ASSERT_EQ(labels.size(), 3u);
    EXPECT_EQ(labels[0].text, "A");
    EXPECT_EQ(labels[0].origin, (Point{1, 2}));
    EXPECT_EQ(labels[0].purposeNumber, 2u);
    EXPECT_EQ(labels[1].layerNumber, 63u);
    EXPECT_EQ(labels[1].purposeNumber, 4294967295u);
    EXPECT_EQ(labels[2].layerNumber, 1u);
    EXPECT_EQ(labels[2].purposeNumber, 25u);
}

TEST(ReadLayout, NamesThePairsThatOnlyLabelsUse) {
    Inputs inputs;
    inputs.layout["texts"].push_back({{"text", "again"},
                                      {"layer", 64},
                                      {"datatype", 59},
                                      {"name", "Mark"},
                                      {"purpose", "text"},
                                      {"x", 0},
                                      {"y", 0}});
    const Component of = inputs.readBack();
    const Layout layout = inputs.readLayoutBack(of);
    ASSERT_EQ(layout.labelLayers.size(), 3u);
    EXPECT_EQ(layout.labelLayers[0].key(), "TEXT:drawing");
    EXPECT_EQ(layout.labelLayers[1].key(), "M1:text");
    EXPECT_EQ(layout.labelLayers[2].key(), "Mark:text");
    // The names decide, not the numbers of the source file.
    EXPECT_EQ(layout.labels[3].layerNumber, 9u);
    EXPECT_EQ(layout.labels[3].purposeNumber, 25u);
}

TEST(ReadLayout, DoesWithoutTextsLinesAndFormat) {
    Inputs inputs;
    inputs.layout.erase("texts");
    inputs.layout.erase("format");
    inputs.layout["layers"][0].erase("lines");
    const Component of = inputs.readBack();
    EXPECT_TRUE(inputs.readLayoutBack(of).labels.empty());
}

const BadInput badLayouts[] = {
    {"/format", "\"layout/2\"", "/format: expected \"layout/1\", found \"layout/2\""},
    {"/dbu_per_um", "2000",
     "/dbu_per_um: expected the component's 1000 database units for each micron, found 2000"},
    {"/layers", "", "/layers: expected an array, no such key"},
    {"/layers/0/name", "\"M7\"",
     "/layers/0/name: expected a layer that the component declares, but \"M7:drawing\" is not, "
     "found \"M7\""},
    {"/layers/0/purpose", "", "/layers/0/purpose: expected a text, no such key"},
    {"/layers/0/polygons", "", "/layers/0/polygons: expected an array, no such key"},
    {"/layers/0/polygons", "7", "/layers/0/polygons: expected an array, found 7"},
    {"/layers/0/polygons/0", "[[0, 0], [1, 1]]",
     "/layers/0/polygons/0: expected at least 3 points, found an array of 2 elements"},
    {"/layers/0/polygons/1/2", "[2]",
     "/layers/0/polygons/1/2: expected a point [x, y], found an array of 1 element"},
    {"/layers/0/polygons/1/2/1", "2147483648",
     "/layers/0/polygons/1/2/1: expected an integer from -2147483648 to 2147483647, found "
     "2147483648"},
    {"/layers/0/polygons/1/2/0", "\"2\"",
     "/layers/0/polygons/1/2/0: expected an integer from -2147483648 to 2147483647, found \"2\""},
    {"/layers/0/lines/0", "[[0, 0]]",
     "/layers/0/lines/0: expected at least 2 points, found an array of 1 element"},
    {"/texts/0/text", "", "/texts/0/text: expected a text, no such key"},
    {"/texts/0/x", "0.5",
     "/texts/0/x: expected an integer from -2147483648 to 2147483647, found 0.5"},
    {"/texts/1/datatype", "-1",
     "/texts/1/datatype: expected an integer from 0 to 4294967295, found -1"},
};

TEST(ReadLayout, SaysWhereTheFileDepartsFromTheForm) {
    for (const BadInput& bad : badLayouts) {
        Inputs inputs;
        apply(inputs.layout, bad);
        EXPECT_EQ(inputs.layoutComplaint(), bad.complaint);
    }
}

TEST(ReadLayout, RemarksOnEachKeyThatMeansNothingOnce) {
    Inputs inputs;
    inputs.layout["dbu_per_uM"] = 1000;
    inputs.layout["text"] = nlohmann::json::array();
    for (auto& layer : inputs.layout["layers"])
        layer["line"] = nlohmann::json::array();
    inputs.layout["texts"][1]["line"] = 1;
    inputs.layout["texts"][2]["line"] = 1;
    const Component of = inputs.readBack();
    const std::vector<std::string> places = {"/dbu_per_uM", "/text", "/layers/0/line",
                                             "/texts/1/line"};
    std::vector<std::string> expected;
    for (const std::string& place : places)
        expected.push_back(inputs.layoutFile() + ": " + place +
                           ": this key means nothing here and is ignored");
    EXPECT_EQ(inputs.readLayoutBack(of).warnings, expected);
}

TEST(ReadLayout, HasNoRemarkOnAGoodFile) {
    Inputs inputs;
    for (const char* key : {"source", "licence", "pdk", "database_unit_um", "bbox", "counts"})
        inputs.layout[key] = 1;
    const Component of = inputs.readBack();
    EXPECT_EQ(inputs.readLayoutBack(of).warnings, std::vector<std::string>{});
}

TEST(ReadLayout, RefusesAKeyThatIsGivenTwice) {
    Inputs inputs;
    const Component of = inputs.readBack();
    ovalis::test::writeText(inputs.layoutFile(),
                            R"({"layers": [{}, {"lines": [], "a~/b": 1, "lines": []}]})");
    EXPECT_EQ(Inputs::withoutFile([&] { readLayout(of); }, inputs.layoutFile()),
              "/layers/1/lines: expected the key once, found it twice");
}

TEST(ReadLayout, NamesALayoutThatIsNotThere) {
    Inputs inputs;
    const Component of = inputs.readBack();
    EXPECT_EQ(Inputs::withoutFile([&] { readLayout(of); }, of.layoutFile), "no such file");
}

} // namespace
} // namespace component::test
