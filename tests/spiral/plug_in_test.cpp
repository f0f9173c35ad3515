#include <map>
#include <set>

#include <gtest/gtest.h>

#include <oa/oaCommon.h>

#include "examples/pcells/spiral/geometry.h"
#include "examples/pcells/spiral/values.h"
#include "support/environment_override.h"
#include "support/library_fixture.h"
#include "support/places.h"

namespace spiral {
namespace {

using oa::oacDoubleParamType;
using oa::oacIntParamType;
using oa::oacStringParamType;

oa::oaParamArray soundParams() {
    oa::oaParamArray params;
    params.append(oa::oaParam("shape", oa::oaString("octagon")));
    params.append(oa::oaParam("turns", oa::oaInt4(3)));
    params.append(oa::oaParam("width", 10.0));
    params.append(oa::oaParam("spacing", 5.0));
    params.append(oa::oaParam("innerDiameter", 100.0));
    params.append(oa::oaParam("layer", oa::oaInt4(8)));
    params.append(oa::oaParam("viaLayer", oa::oaInt4(7)));
    params.append(oa::oaParam("underpassLayer", oa::oaInt4(6)));
    return params;
}

/// What `soundParams` asks for.
Drawing soundDrawing() {
    return draw(dimensionsOf({"octagon", 3, 10, 5, 100, 8, 7, 6}));
}

oa::oaParamArray with(const oa::oaParam& changed) {
    oa::oaParamArray params = soundParams();
    oa::oaString name;
    changed.getName(name);
    for (oa::oaUInt4 at = 0; at < params.getNumElements(); ++at) {
        oa::oaString other;
        params[at].getName(other);
        if (other == name)
            params[at] = changed;
    }
    return params;
}

class SpiralPlugIn : public ovalis::test::LibraryTest {
protected:
    SpiralPlugIn()
        : pluginPath_(
              "OA_PLUGIN_PATH",
              ovalis::test::utf8(ovalis::test::builtProgram("ovalis").parent_path().parent_path() /
                                 "plugins")) {}

    /// The tech of the library, open for changes.
    oa::oaTech& tech() {
        oa::oaTech* open = oa::oaTech::find(&lib());
        return open != nullptr ? *open : *oa::oaTech::open(&lib(), 'a');
    }

    static const oa::oaViewType* layoutType() { return oa::oaViewType::get(oa::oacMaskLayout); }

    /// A pcell with these defaults, which the evaluator draws for them into the master itself.
    oa::oaDesign& drawn(const oa::oaParamArray& params) {
        oa::oaDesign& made = design("coil" + std::to_string(++count_), "layout", 'w');
        made.defineSuperMaster(oa::oaPcellLink::getPcellDef("spiral"), params);
        oa::oaPcellLink::find("spiral")->getIPcell()->onEval(&made, made.getPcellDef());
        return made;
    }

    /// The evaluator's words; empty when it drew.
    std::string refusalOf(const oa::oaParamArray& params) {
        oa::oaDesign& made = design("coil" + std::to_string(++count_), "layout", 'w');
        made.defineSuperMaster(oa::oaPcellLink::getPcellDef("spiral"), params);
        try {
            oa::oaPcellLink::find("spiral")->getIPcell()->onEval(&made, made.getPcellDef());
        } catch (const oaCommon::IException& error) {
            EXPECT_EQ(made.getTopBlock(), nullptr);
            return error.getMsg();
        }
        return "";
    }

private:
    ovalis::test::EnvironmentOverride pluginPath_;
    int count_ = 0;
};

using Corners = std::vector<std::pair<int, int>>;

Corners scaled(const std::vector<Point>& outline, int unitsPerStep) {
    Corners corners;
    for (const Point& point : outline)
        corners.emplace_back(int(point.x) * unitsPerStep, int(point.y) * unitsPerStep);
    return corners;
}

Corners cornersOf(const oa::oaShape& shape) {
    oa::oaPointArray points;
    Corners corners;
    if (shape.getType() == oa::oacPolygonType) {
        static_cast<const oa::oaPolygon&>(shape).getPoints(points);
        for (oa::oaUInt4 at = 0; at < points.getNumElements(); ++at)
            corners.emplace_back(points[at].x(), points[at].y());
        return corners;
    }
    oa::oaBox box;
    shape.getBBox(box);
    return {{box.left(), box.bottom()}, {box.right(), box.top()}};
}

Corners scaled(const Box& box, int unitsPerStep) {
    return scaled(std::vector<Point>{{box.left, box.bottom}, {box.right, box.top}}, unitsPerStep);
}

/// The corners of all shapes by layer and purpose; of rectangles two.
using Shapes = std::map<std::pair<oa::oaLayerNum, oa::oaPurposeNum>, std::vector<Corners>>;

Shapes shapesOf(const oa::oaDesign& design) {
    Shapes shapes;
    oa::oaIter<oa::oaShape> all(design.getTopBlock()->getShapes());
    while (const oa::oaShape* shape = all.getNext())
        shapes[{shape->getLayerNum(), shape->getPurposeNum()}].push_back(cornersOf(*shape));
    return shapes;
}

constexpr oa::oaPurposeNum drawing = oa::oavPurposeNumberDrawing;

TEST_F(SpiralPlugIn, IsFoundByItsName) {
    oa::oaPcellLink* link = oa::oaPcellLink::find("spiral");
    ASSERT_NE(link, nullptr);
    oa::oaString name;
    link->getIPcell()->getName(name);
    EXPECT_EQ(std::string(name), "spiral");
}

TEST_F(SpiralPlugIn, DrawsTheTraceTheViaAndTheUnderpass) {
    tech().setDBUPerUU(layoutType(), 1000);
    const oa::oaDesign& coil = drawn(soundParams());
    const Drawing expected = soundDrawing();
    Shapes shapes = shapesOf(coil);
    EXPECT_EQ(shapes.size(), 3u);
    EXPECT_EQ((shapes[{8, drawing}]),
              (std::vector<Corners>{scaled(expected.outerPin, 5), scaled(expected.trace, 5)}));
    EXPECT_EQ((shapes[{7, drawing}]), (std::vector<Corners>{scaled(expected.via, 5)}));
    EXPECT_EQ((shapes[{6, drawing}]),
              (std::vector<Corners>{scaled(expected.underpass, 5), scaled(expected.innerPin, 5)}));
}

TEST_F(SpiralPlugIn, StaysOnTheGridWithFinerUnits) {
    tech().setDBUPerUU(layoutType(), 2000);
    const oa::oaDesign& coil = drawn(soundParams());
    for (const auto& [layer, outlines] : shapesOf(coil))
        for (const Corners& corners : outlines)
            for (const auto& [x, y] : corners) {
                EXPECT_EQ(x % 10, 0);
                EXPECT_EQ(y % 10, 0);
            }
    EXPECT_EQ((shapesOf(coil)[{8, drawing}][1]), scaled(soundDrawing().trace, 10));
}

TEST_F(SpiralPlugIn, HasATerminalAtEachEnd) {
    tech().setDBUPerUU(layoutType(), 1000);
    const oa::oaPurpose* pinPurpose = oa::oaPurpose::create(&tech(), "pin", 33);
    const oa::oaDesign& coil = drawn(soundParams());
    const struct {
        const char* name;
        oa::oaLayerNum layer;
        Box pin;
        oa::oaUInt4 direction;
    } ends[] = {{"A", 8, soundDrawing().outerPin, oa::oacRight},
                {"B", 6, soundDrawing().innerPin, oa::oacLeft}};
    const oa::oaBlock* block = coil.getTopBlock();
    EXPECT_EQ(block->getTerms().getCount(), 2u);
    EXPECT_EQ(block->getNets().getCount(), 2u);
    for (const auto& end : ends) {
        const oa::oaScalarName name(oa::oaNativeNS(), end.name);
        const oa::oaTerm* term = oa::oaScalarTerm::find(block, name);
        ASSERT_NE(term, nullptr);
        EXPECT_EQ(term->getNet(), oa::oaScalarNet::find(block, name));
        ASSERT_EQ(term->getPins().getCount(), 1u);
        const oa::oaPin* pin = oa::oaPin::find(term, end.name);
        ASSERT_NE(pin, nullptr);
        EXPECT_EQ(pin->getAccessDir(), end.direction);
        ASSERT_EQ(pin->getFigs().getCount(), 1u);
        oa::oaIter<oa::oaPinFig> figures(pin->getFigs());
        const auto& shape = static_cast<const oa::oaShape&>(*figures.getNext());
        EXPECT_EQ(shape.getLayerNum(), end.layer);
        EXPECT_EQ(shape.getPurposeNum(), pinPurpose->getNumber());
        EXPECT_EQ(cornersOf(shape), scaled(end.pin, 5));
    }
}

TEST_F(SpiralPlugIn, RefusesImpossibleValuesAndDrawsNothing) {
    EXPECT_EQ(refusalOf(with(oa::oaParam("turns", oa::oaInt4(0)))),
              "turns is 0: it must be 1 to 100");
    EXPECT_EQ(refusalOf(with(oa::oaParam("shape", oa::oaString("star")))),
              "shape is \"star\": it must be \"octagon\" or \"square\"");
    EXPECT_EQ(refusalOf(with(oa::oaParam("width", 0.001))),
              "width is 0.001 microns: it must be a multiple of 0.005");
}

TEST_F(SpiralPlugIn, NamesAParameterThatIsMissingOrOfAnotherType) {
    EXPECT_EQ(refusalOf(oa::oaParamArray()),
              "a spiral needs the parameter shape of the type string");
    EXPECT_EQ(refusalOf(with(oa::oaParam("turns", 3.0))),
              "a spiral needs the parameter turns of the type int");
    EXPECT_EQ(refusalOf(with(oa::oaParam("spacing", oa::oaInt4(5)))),
              "a spiral needs the parameter spacing of the type double");
    oa::oaParamArray fewer = soundParams();
    fewer.setNumElements(7);
    EXPECT_EQ(refusalOf(fewer), "a spiral needs the parameter underpassLayer of the type int");
}

TEST_F(SpiralPlugIn, NeedsUnitsThatHoldItsGrid) {
    tech().setDBUPerUU(layoutType(), 1100);
    EXPECT_EQ(refusalOf(soundParams()),
              "a spiral needs a multiple of 200 database units in a micron, at most 400000; this "
              "technology has 1100");
    tech().setDBUPerUU(layoutType(), 400200);
    EXPECT_EQ(refusalOf(soundParams()),
              "a spiral needs a multiple of 200 database units in a micron, at most 400000; this "
              "technology has 400200");
    tech().setDBUPerUU(layoutType(), 400000);
    EXPECT_EQ(refusalOf(soundParams()), "");
    tech().setUserUnits(layoutType(), oa::oacMillimeter);
    EXPECT_EQ(refusalOf(soundParams()), "a spiral is measured in microns, the user unit of this "
                                        "technology is the millimeter");
}

TEST_F(SpiralPlugIn, StoresNothingWithTheMaster) {
    drawn(soundParams()).save();
    reopen();
    oa::oaDesign& coil = design("coil1", "layout", 'r');
    ASSERT_TRUE(coil.isSuperMaster());
    ASSERT_NE(coil.getPcellDef(), nullptr);
    EXPECT_EQ(coil.getPcellDef()->getIPcell()->calcDiskSize(coil.getPcellDef()), 0u);
    oa::oaParamArray params;
    coil.getParams(params);
    EXPECT_EQ(params, soundParams());
}

} // namespace
} // namespace spiral
