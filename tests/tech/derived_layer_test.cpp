#include "tech_tests.h"

using namespace oa;
using namespace ovalis::test;

namespace {

/// A technology with two layers to derive others from.
class TwoLayers : public NewTech {
public:
    oaLayer* metal = oaPhysicalLayer::create(*this, "metal", 1);
    oaLayer* cut = oaPhysicalLayer::create(*this, "cut", 2);
};

} // namespace

TEST(DerivedLayer, FollowsFromTwoLayersByABuiltInOperation) {
    TwoLayers tech;
    oaDerivedLayer* both = oaDerivedLayer::create(tech.metal, tech.cut, oacAndLayerOp, "both", 10);
    EXPECT_EQ(both->getType(), oacDerivedLayerType);
    EXPECT_EQ(both->getLayer1(), tech.metal);
    EXPECT_EQ(both->getLayer2(), tech.cut);
    EXPECT_EQ(both->getOperation(), oacAndLayerOp);
    EXPECT_EQ(both->getDef(), oaDerivedLayerDef::get(oacAndLayerOp));
    EXPECT_EQ(oaDerivedLayer::find(tech, "both"), both);
    EXPECT_EQ(oaDerivedLayer::find(tech, 10), both);
}

TEST(DerivedLayer, MayFollowFromOneLayer) {
    TwoLayers tech;
    oaDerivedLayer* grown = oaDerivedLayer::create(
        tech, tech.metal, oaDerivedLayerDef::get(oacGrowLayerOp), "grown", 10);
    EXPECT_EQ(grown->getLayer1(), tech.metal);
    EXPECT_EQ(grown->getLayer1Num(), 1u);
    EXPECT_EQ(grown->getLayer2(), nullptr);
}

TEST(DerivedLayer, SurvivesASave) {
    TwoLayers tech;
    oaDerivedLayer::create(tech, tech.metal, tech.cut, oacNotLayerOp, "rest", 10);
    tech.saveAndReopen();
    oaDerivedLayer* rest = oaDerivedLayer::find(tech, "rest");
    EXPECT_EQ(nameOf(rest->getLayer1()), "metal");
    EXPECT_EQ(nameOf(rest->getLayer2()), "cut");
    EXPECT_EQ(rest->getOperation(), oacNotLayerOp);
}

TEST(DerivedLayer, FollowsALayerThatIsRenumbered) {
    TwoLayers tech;
    oaDerivedLayer* both = oaDerivedLayer::create(tech.metal, tech.cut, oacAndLayerOp, "both", 10);
    tech.cut->setNumber(77);
    EXPECT_EQ(both->getLayer2(), tech.cut);
    EXPECT_EQ(both->getLayer2Num(), 77u);
}

TEST(DerivedLayer, OutlivesTheLayerItFollowsFrom) {
    TwoLayers tech;
    oaDerivedLayer* both = oaDerivedLayer::create(tech.metal, tech.cut, oacAndLayerOp, "both", 10);
    tech.cut->destroy();
    EXPECT_EQ(both->getLayer2(), nullptr);
    EXPECT_EQ(both->getLayer2Num(), 2u);
    EXPECT_EQ(both->getLayer1(), tech.metal);
}

TEST(DerivedLayer, NeedsAsManyLayersAsItsOperation) {
    TwoLayers tech;
    const auto* grow = oaDerivedLayerDef::get(oacGrowLayerOp);
    EXPECT_EQ(thrown<oaTechError>(
                  oacDerivedLayerInvalid,
                  [&] { oaDerivedLayer::create(tech, tech.metal, tech.cut, grow, "grown", 10); }),
              "The derived layer 'grown' cannot be made: its operation takes another number of "
              "layers.");
    EXPECT_EQ(thrown<oaTechError>(oacDerivedLayerInvalid,
                                  [&] {
                                      oaDerivedLayer::create(tech.metal, tech.cut,
                                                             oacUserDefinedLayerOp, "own", 10);
                                  }),
              "The derived layer 'own' cannot be made: its operation is not a built-in one.");
}

TEST(DerivedLayer, StaysWithinOneTechnology) {
    TwoLayers tech;
    NewTech other("other");
    EXPECT_EQ(
        thrown<oaTechError>(oacDerivedLayerInvalid,
                            [&] {
                                oaDerivedLayer::create(other, tech.metal, tech.cut, oacAndLayerOp,
                                                       "both", 10);
                            }),
        "The derived layer 'both' cannot be made: its technology does not see a layer that it "
        "follows from.");
    EXPECT_EQ(other->getLayers().getCount(), 0u);
}

TEST(DerivedLayer, OfAnApplicationsOperationSurvivesASave) {
    TwoLayers tech;
    oaDerivedLayerDef* def = oaDerivedLayerDef::create("halo", 1);
    oaDerivedLayer* halo = oaDerivedLayer::create(tech, tech.metal, def, "metalHalo", 10);
    EXPECT_EQ(halo->getOperation(), oacUserDefinedLayerOp);
    EXPECT_EQ(halo->getDef(), def);
    tech.saveAndReopen();
    EXPECT_EQ(oaDerivedLayer::find(tech, "metalHalo")->getDef(), def);
    def->destroy();
}

TEST(DerivedLayer, BringsItsOperationIntoASessionThatDoesNotKnowIt) {
    TwoLayers tech;
    oaDerivedLayerDef* def = oaDerivedLayerDef::create("halo", 1);
    oaDerivedLayer::create(tech, tech.metal, def, "metalHalo", 10);
    def->destroy();
    tech.saveAndReopen();
    EXPECT_EQ(oaDerivedLayerDef::find("halo"), nullptr);
    oaDerivedLayerDef* read = oaDerivedLayer::find(tech, "metalHalo")->getDef();
    EXPECT_EQ(nameOf(read), "halo");
    EXPECT_EQ(read->getNumLayers(), 1u);
    read->destroy();
}

TEST(SizedLayer, FollowsFromAnotherLayer) {
    TwoLayers tech;
    oaSizedLayer* wide = oaSizedLayer::create(tech.metal, oacGrowSizeOp, 50, "wide", 10);
    EXPECT_EQ(wide->getType(), oacSizedLayerType);
    EXPECT_EQ(wide->getLayer(), tech.metal);
    EXPECT_EQ(wide->getOperation(), oacGrowSizeOp);
    EXPECT_EQ(wide->getValue(), 50u);
    EXPECT_EQ(oaSizedLayer::find(tech, "wide"), wide);
    EXPECT_EQ(oaSizedLayer::find(tech, 10), wide);
    EXPECT_EQ(oaSizedLayer::find(tech.metal, oacGrowSizeOp, 50), wide);
    EXPECT_EQ(oaSizedLayer::find(tech.metal, oacShrinkSizeOp, 50), nullptr);
    EXPECT_EQ(oaSizedLayer::find(tech.cut, oacGrowSizeOp, 50), nullptr);
}

TEST(SizedLayer, SurvivesASave) {
    TwoLayers tech;
    oaSizedLayer::create(tech.cut, oacShrinkSizeOp, 4, "narrow", 10);
    tech.saveAndReopen();
    oaSizedLayer* narrow = oaSizedLayer::find(tech, 10);
    EXPECT_EQ(nameOf(narrow->getLayer()), "cut");
    EXPECT_EQ(narrow->getOperation(), oacShrinkSizeOp);
    EXPECT_EQ(narrow->getValue(), 4u);
}
