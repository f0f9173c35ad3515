#include "cli/collect.h"

#include <gtest/gtest.h>

#include "cli/library_access.h"
#include "workplace.h"

namespace cli::test {
namespace {

constexpr std::uint32_t drawing = 0xFFFFFFFF;
const drawing::LayerPurpose metal{3, drawing};

/// A design of its own library, filled by the test.
class Drawn {
public:
    Drawn() : lib_(ovalis::createVEXCompatibleLib(directory_.str() + "/lib", "lib")) {
        lib_->getAccess(oa::oacWriteLibAccess);
    }

    oa::oaDesign* design(const char* cell) {
        const oa::oaNativeNS names;
        oa::oaDesign* design = oa::oaDesign::open(
            oa::oaScalarName(names, "lib"), oa::oaScalarName(names, cell),
            oa::oaScalarName(names, "layout"), oa::oaViewType::get(oa::oacMaskLayout), 'w');
        oa::oaBlock::create(design);
        return design;
    }

    /// The definition of a via: a cut of 2 by 2 on the metal, and nothing around it.
    oa::oaStdViaDef* via() {
        oa::oaTech* tech = oa::oaTech::find(lib_.get());
        if (!tech)
            tech = oa::oaTech::create(lib_.get());
        oa::oaViaParam params;
        params.setCutLayer(3);
        params.setCutWidth(2);
        params.setCutHeight(2);
        for (const auto set : {&oa::oaViaParam::setLayer1Enc, &oa::oaViaParam::setLayer2Enc})
            (params.*set)(oa::oaVector(-1, -1));
        return oa::oaStdViaDef::create(tech, "via", oa::oaPhysicalLayer::create(tech, "low", 201),
                                       oa::oaPhysicalLayer::create(tech, "high", 202), params);
    }

private:
    ovalis::test::TemporaryDirectory directory_;
    ovalis::LibPtr lib_;
};

oa::oaPointArray points(std::initializer_list<oa::oaPoint> list) {
    oa::oaPointArray array;
    for (const oa::oaPoint& point : list)
        array.append(point);
    return array;
}

TEST(Collect, ShowsEveryKindOfFigure) {
    Drawn drawn;
    oa::oaDesign* design = drawn.design("all");
    oa::oaBlock* block = design->getTopBlock();
    oa::oaRect::create(block, 3, drawing, oa::oaBox(0, 0, 4, 2));
    oa::oaPolygon::create(block, 3, drawing, points({{0, 0}, {5, 0}, {5, 5}}));
    oa::oaPath::create(block, 3, drawing, 2, points({{0, 0}, {10, 0}}));
    oa::oaEllipse::create(block, 3, drawing, oa::oaBox(0, 0, 100, 50));
    oa::oaDonut::create(block, 3, drawing, oa::oaPoint(0, 0), 100, 50);
    oa::oaLine::create(block, 3, drawing, points({{0, 0}, {1, 1}}));
    oa::oaArc::create(block, 3, drawing, oa::oaBox(0, 0, 100, 100), 0.0, 1.5);
    oa::oaDot::create(block, 3, drawing, oa::oaPoint(7, 8));
    const drawing::Picture picture = collect(*design);
    const drawing::LayerFigures& figures = picture.layers.at(metal);
    ASSERT_EQ(figures.closed.size(), 5u);
    EXPECT_EQ(figures.closed[0], (drawing::Points{{0, 0}, {4, 0}, {4, 2}, {0, 2}}));
    EXPECT_EQ(figures.open.size(), 2u);
    EXPECT_EQ(figures.dots, (drawing::Points{{7, 8}}));
    EXPECT_TRUE(picture.notes.empty());
}

TEST(Collect, KeepsAlignmentAndOrientationOfTexts) {
    Drawn drawn;
    oa::oaDesign* design = drawn.design("text");
    oa::oaText::create(design->getTopBlock(), 3, drawing, "turned", oa::oaPoint(5, 6),
                       oa::oacUpperRightTextAlign, oa::oacR90, oa::oacRomanFont, 9);
    const drawing::Picture picture = collect(*design);
    ASSERT_EQ(picture.texts.size(), 1u);
    const drawing::Text& text = picture.texts[0];
    EXPECT_EQ(text.text, "turned");
    EXPECT_EQ(text.origin, (drawing::Point{5, 6}));
    EXPECT_EQ(text.height, 9);
    EXPECT_EQ(text.horizontal, drawing::Horizontal::right);
    EXPECT_EQ(text.vertical, drawing::Vertical::upper);
    EXPECT_EQ(std::vector<double>(std::begin(text.matrix), std::end(text.matrix)),
              (std::vector<double>{0, 1, -1, 0}));
}

TEST(Collect, LeavesOutInvisibleTexts) {
    Drawn drawn;
    oa::oaDesign* design = drawn.design("text");
    oa::oaText::create(design->getTopBlock(), 3, drawing, "unseen", oa::oaPoint(5, 6),
                       oa::oacUpperRightTextAlign, oa::oacR0, oa::oacRomanFont, 9, false, false);
    EXPECT_TRUE(collect(*design).texts.empty());
}

TEST(Collect, ShowsInstancesWhereTheyAre) {
    Drawn drawn;
    oa::oaDesign* leaf = drawn.design("leaf");
    oa::oaRect::create(leaf->getTopBlock(), 3, drawing, oa::oaBox(0, 0, 4, 2));
    oa::oaDesign* middle = drawn.design("middle");
    const oa::oaNativeNS names;
    oa::oaScalarInst::create(middle->getTopBlock(), leaf, oa::oaScalarName(names, "I"),
                             oa::oaTransform(10, 0, oa::oacR90));
    oa::oaDesign* top = drawn.design("top");
    oa::oaScalarInst::create(top->getTopBlock(), middle, oa::oaScalarName(names, "J"),
                             oa::oaTransform(100, 200, oa::oacMX));
    const drawing::Picture picture = collect(*top);
    ASSERT_EQ(picture.layers.at(metal).closed.size(), 1u);
    EXPECT_EQ(picture.layers.at(metal).closed[0],
              (drawing::Points{{110, 200}, {110, 196}, {108, 196}, {108, 200}}));
}

TEST(Collect, RepeatsArrays) {
    Drawn drawn;
    oa::oaDesign* leaf = drawn.design("leaf");
    oa::oaDot::create(leaf->getTopBlock(), 3, drawing, oa::oaPoint(1, 1));
    oa::oaDesign* top = drawn.design("top");
    oa::oaArrayInst::create(top->getTopBlock(), leaf, oa::oaScalarName(oa::oaNativeNS(), "A"),
                            oa::oaTransform(0, 0), 10, 100, 2, 3);
    drawing::Points dots = collect(*top).layers.at(metal).dots;
    std::sort(dots.begin(), dots.end(),
              [](const auto& a, const auto& b) { return std::tie(a.y, a.x) < std::tie(b.y, b.x); });
    EXPECT_EQ(dots, (drawing::Points{{1, 1}, {11, 1}, {21, 1}, {1, 101}, {11, 101}, {21, 101}}));
}

TEST(Collect, TellsOfInstancesWithoutMaster) {
    Drawn drawn;
    oa::oaDesign* top = drawn.design("top");
    const oa::oaNativeNS names;
    oa::oaScalarInst::create(top->getTopBlock(), oa::oaScalarName(names, "lib"),
                             oa::oaScalarName(names, "absent"), oa::oaScalarName(names, "layout"),
                             oa::oaScalarName(names, "I7"), oa::oaTransform(0, 0));
    EXPECT_EQ(collect(*top).notes, (std::vector<std::string>{"instance I7 has no master to show"}));
}

TEST(Collect, FollowsNoDesignIntoItself) {
    Drawn drawn;
    const oa::oaNativeNS names;
    oa::oaDesign* first = drawn.design("first");
    oa::oaDesign* second = drawn.design("second");
    const auto place = [&](oa::oaDesign* into, oa::oaDesign* master, const char* name) {
        oa::oaScalarInst::create(into->getTopBlock(), master, oa::oaScalarName(names, name),
                                 oa::oaTransform(0, 0));
    };
    oa::oaDot::create(second->getTopBlock(), 3, drawing, oa::oaPoint(1, 1));
    for (const char* name : {"I1", "I2"}) {
        place(first, first, name);
        place(second, first, name);
    }
    place(first, second, "J1");
    place(first, second, "J2");
    const drawing::Picture picture = collect(*first);
    EXPECT_EQ(picture.layers.at(metal).dots, (drawing::Points{{1, 1}, {1, 1}}));
    EXPECT_EQ(picture.notes,
              (std::vector<std::string>{
                  "instance I1 is not shown, its master lib/first/layout contains it",
                  "instance I2 is not shown, its master lib/first/layout contains it"}));
}

TEST(Collect, ShowsViasThroughTheirMasters) {
    Drawn drawn;
    oa::oaDesign* design = drawn.design("vias");
    oa::oaStdViaDef* via = drawn.via();
    oa::oaStdVia::create(design->getTopBlock(), via, oa::oaTransform(10, 20));
    oa::oaStdVia::create(design->getTopBlock(), via, oa::oaTransform(30, 20));
    const drawing::Picture picture = collect(*design);
    EXPECT_TRUE(picture.notes.empty());
    ASSERT_EQ(picture.layers.size(), 1u);
    ASSERT_EQ(picture.layers.at(metal).closed.size(), 2u);
    EXPECT_EQ(picture.layers.at(metal).closed[0],
              (drawing::Points{{9, 19}, {11, 19}, {11, 21}, {9, 21}}));
    via->destroy();
    EXPECT_EQ(collect(*design).notes, std::vector<std::string>{"via via has no master to show"});
}

TEST(Collect, NamesLayersByTheDefaultTablesWithoutATechnologysName) {
    Drawn drawn;
    oa::oaDesign* design = drawn.design("names");
    oa::oaDot::create(design->getTopBlock(), 231, 240, oa::oaPoint(0, 0));
    oa::oaDot::create(design->getTopBlock(), 4000, 4000, oa::oaPoint(0, 0));
    const drawing::Picture picture = collect(*design);
    EXPECT_EQ(picture.layers.at({231, 240}).layerName, "vex_device");
    EXPECT_EQ(picture.layers.at({231, 240}).purposeName, "vex_annotate");
    EXPECT_EQ(picture.layers.at({4000, 4000}).layerName, "4000");
    EXPECT_EQ(picture.layers.at({4000, 4000}).purposeName, "4000");
}

TEST(Collect, ShowsADesignWithoutContents) {
    const Workplace work;
    Drawn drawn;
    oa::oaDesign* design = drawn.design("empty");
    EXPECT_TRUE(collect(*design).layers.empty());
}

TEST(Collect, APinWithoutAnAngleLeavesInItsDirectionOfAccess) {
    Drawn drawn;
    oa::oaDesign* design = drawn.design("directions");
    oa::oaBlock* block = design->getTopBlock();
    const oa::oaScalarName name(oa::oaNativeNS(), "A");
    oa::oaTerm* term = oa::oaTerm::create(oa::oaScalarNet::create(block, name), name);
    const struct {
        const char* name;
        oa::oaUInt4 direction;
        double angle;
    } rows[] = {{"none", oa::oacNone, 0},       {"right", oa::oacRight, 0},
                {"top", oa::oacTop, 90},        {"left", oa::oacLeft, 180},
                {"bottom", oa::oacBottom, 270}, {"two", oa::oacLeft | oa::oacTop, 0}};
    for (const auto& row : rows)
        oa::oaRect::create(block, 3, drawing, oa::oaBox(0, 0, 4, 2))
            ->addToPin(oa::oaPin::create(term, row.name, row.direction));
    ovalis::vexPinAngle->set(oa::oaPin::find(term, "bottom"), 45);
    std::map<std::string, double> angles;
    for (const drawing::Pin& pin : collect(*design).pins)
        angles[pin.name] = pin.angle;
    EXPECT_EQ(
        angles,
        (std::map<std::string, double>{
            {"none", 0}, {"right", 0}, {"top", 90}, {"left", 180}, {"bottom", 45}, {"two", 0}}));
}

} // namespace
} // namespace cli::test
