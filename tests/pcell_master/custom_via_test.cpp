#include "submaster_fixture.h"

#include <oa/oaDesignDB.h>

using namespace oa;
using namespace ovalis::test;

namespace {

/// A via definition whose master is the pcell, and the design "top" with a block for its vias.
class CustomViaOfPcell : public SubmasterFixture {
protected:
    oaTech* tech = oaTech::create(lib);
    oaCustomViaDef* def = oaCustomViaDef::create(
        tech, "square via", name("lib"), name("square"), name("layout"),
        oaPhysicalLayer::create(tech, "low", 1), oaPhysicalLayer::create(tech, "high", 2));
    oaDesign* top = openCell('w', "top");
    oaBlock* block = oaBlock::create(top);

    oaCustomVia* place(const oaParamArray& params, oaInt4 x = 0) {
        return oaCustomVia::create(block, def, oaTransform(x, 0), &params);
    }
    static oaParamArray paramsOfVia(const oaCustomVia* via) {
        oaParamArray params;
        via->getParams(params);
        return params;
    }
};

} // namespace

TEST_F(CustomViaOfPcell, ShowsTheSubmasterForItsParameters) {
    oaCustomVia* small = place(oaParamArray());
    oaCustomVia* large = place(sized(30));
    EXPECT_FALSE(large->isBound());
    EXPECT_EQ(takeLines(), Lines());
    EXPECT_EQ(widthOf(small->getMaster()), 10);
    EXPECT_EQ(widthOf(large->getMaster()), 30);
    EXPECT_TRUE(large->getMaster()->isSubMaster());
    EXPECT_EQ(large->getHeader()->getSuperHeader()->getMaster(), findSuperMaster());
    EXPECT_EQ(place(sized(30), 50)->getHeader(), large->getHeader());
    EXPECT_EQ(submastersOf(findSuperMaster()).size(), 2u);
    large->setParams(sized(5));
    EXPECT_EQ(widthOf(large->getMaster()), 5);
    EXPECT_EQ(paramsOfVia(large), sized(5));
}

TEST_F(CustomViaOfPcell, AnswersParametersWithTheDefaultsOfThePcell) {
    const oaCustomVia* via = place(sized(30));
    oaParamArray params;
    via->getHeader()->getAllParams(params);
    EXPECT_EQ(params, effective(30));
    via->getHeader()->getParams(params);
    EXPECT_EQ(params, sized(30));
}

TEST_F(CustomViaOfPcell, RefusesParametersThatAnOpenPcellDoesNotHave) {
    openCell('r');
    oaParamArray params;
    params.append(oaParam("height", oaInt4(3)));
    EXPECT_EQ(refused(oacInvalidDataTypeForParam, [&] { place(params); }),
              "Parameter 'height' does not exist with this type in the pcell 'lib/square/layout'.");
    EXPECT_TRUE(block->getVias().isEmpty());
}

TEST_F(CustomViaOfPcell, KeepsItsMastersOpenAsLongAsItsDesign) {
    const oaDesign* master = place(sized(30))->getMaster();
    EXPECT_EQ(findSuperMaster()->getRefCount(), 1u);
    top->close();
    EXPECT_FALSE(master->isValid());
    EXPECT_EQ(findSuperMaster(), nullptr);
}

TEST_F(CustomViaOfPcell, SurvivesASave) {
    place(sized(30));
    tech->save();
    top->save();
    top->close();
    top = openCell('r', "top");
    oaIter<oaVia> vias(top->getTopBlock()->getVias());
    const auto* via = static_cast<oaCustomVia*>(vias.getNext());
    EXPECT_EQ(paramsOfVia(via), sized(30));
    EXPECT_EQ(widthOf(via->getMaster()), 30);
}

TEST_F(CustomViaOfPcell, IsOpenedByItsDefinition) {
    oaParamArray params = sized(30);
    oaDesign* master = oaDesign::open(def, &params);
    EXPECT_EQ(widthOf(master), 30);
    EXPECT_EQ(widthOf(oaDesign::open(def)), 10);
    EXPECT_EQ(master->getRefCount(), 1u);
    EXPECT_EQ(place(sized(30))->getMaster(), master);
    EXPECT_EQ(master->getRefCount(), 2u);
}

TEST_F(CustomViaOfPcell, WithoutABlockWhenTheEvaluationFails) {
    evaluator->meanwhile = [](oaDesign*, oaInt4) { throw std::runtime_error("no square"); };
    const oaCustomVia* via = place(sized(30));
    EXPECT_EQ(via->getMaster()->getTopBlock(), nullptr);
    oaBox box;
    block->getBBox(box);
    EXPECT_TRUE(box.isInverted());
}
