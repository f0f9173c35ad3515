#include "tech_tests.h"

using namespace oa;
using namespace ovalis::test;

TEST(Layer, IsFoundByNameAndByNumber) {
    NewTech tech;
    oaLayer* metal = oaPhysicalLayer::create(tech, "metal1", 7);
    EXPECT_EQ(oaLayer::find(tech, "metal1"), metal);
    EXPECT_EQ(oaLayer::find(tech, 7), metal);
    EXPECT_EQ(oaLayer::find(tech, "metal2"), nullptr);
    EXPECT_EQ(oaLayer::find(tech, 8), nullptr);
    EXPECT_EQ(nameOf(metal), "metal1");
    EXPECT_EQ(metal->getNumber(), 7u);
    EXPECT_EQ(metal->getTech(), static_cast<oaTech*>(tech));
    EXPECT_TRUE(metal->isLayer());
}

TEST(Layer, MayHaveANegativeNumberOrNone) {
    NewTech tech;
    oaLayer* pins = oaPhysicalLayer::create(tech, "pins", oaLayerNum(-777));
    oaLayer* zero = oaPhysicalLayer::create(tech, "zero", 0);
    EXPECT_EQ(oaLayer::find(tech, -777), pins);
    EXPECT_EQ(oaLayer::find(tech, 0), zero);
    EXPECT_EQ(pins->getNumber(), 0xFFFFFCF7u);
}

TEST(Layer, OfAnyKindTakesItsNameAndItsNumber) {
    NewTech tech("chip");
    oaLayer* metal = oaPhysicalLayer::create(tech, "metal1", 7);
    EXPECT_EQ(thrown<oaTechError>(oacLayerNameExists,
                                  [&] { oaPhysicalLayer::create(tech, "metal1", 8); }),
              "The technology of library 'chip' already has a layer named 'metal1'.");
    EXPECT_EQ(
        thrown<oaTechError>(oacLayerNumberExists,
                            [&] { oaSizedLayer::create(metal, oacGrowSizeOp, 5, "grown", 7); }),
        "The technology of library 'chip' already has a layer with number 7.");
    EXPECT_EQ(namesOf(tech->getLayers()), std::vector<std::string>{"metal1"});
}

TEST(Layer, CanBeRenamedAndRenumbered) {
    NewTech tech;
    oaLayer* layer = oaPhysicalLayer::create(tech, "metal1", 7);
    oaPhysicalLayer::create(tech, "metal2", 8);
    layer->setName("poly");
    layer->setNumber(9);
    layer->setName("poly");
    layer->setNumber(9);
    EXPECT_EQ(oaLayer::find(tech, "poly"), layer);
    EXPECT_EQ(oaLayer::find(tech, 9), layer);
    EXPECT_EQ(oaLayer::find(tech, "metal1"), nullptr);
    EXPECT_EQ(oaLayer::find(tech, 7), nullptr);
    EXPECT_EQ(thrown<oaTechError>(oacLayerNameExists, [&] { layer->setName("metal2"); }),
              "The technology of library 'lib' already has a layer named 'metal2'.");
    EXPECT_EQ(thrown<oaTechError>(oacLayerNumberExists, [&] { layer->setNumber(8); }),
              "The technology of library 'lib' already has a layer with number 8.");
}

TEST(Layer, ThatIsDestroyedIsGone) {
    NewTech tech;
    oaLayer* layer = oaPhysicalLayer::create(tech, "metal1", 7);
    oaIntProp::create(layer, "thickness", 5);
    layer->destroy();
    EXPECT_FALSE(layer->isValid());
    EXPECT_EQ(oaLayer::find(tech, "metal1"), nullptr);
    EXPECT_EQ(tech->getLayers().getCount(), 0u);
    EXPECT_NE(oaPhysicalLayer::create(tech, "metal1", 7), nullptr);
}

TEST(Layer, KeepsItsNameAndNumberOverAGapThroughASave) {
    NewTech tech;
    for (int i = 0; i < 100; ++i)
        oaPhysicalLayer::create(tech, ("layer" + std::to_string(i)).c_str(), oaLayerNum(i));
    for (int i = 0; i < 100; i += 2)
        oaLayer::find(tech, i)->destroy();
    tech.saveAndReopen();
    EXPECT_EQ(tech->getLayers().getCount(), 50u);
    for (int i = 1; i < 100; i += 2)
        EXPECT_EQ(nameOf(oaLayer::find(tech, i)), "layer" + std::to_string(i));
}

TEST(PhysicalLayer, HasDefaults) {
    NewTech tech;
    oaPhysicalLayer* layer = oaPhysicalLayer::create(tech, "metal1", 7);
    EXPECT_EQ(layer->getMaterial(), oacOtherMaterial);
    EXPECT_EQ(layer->getMaskNumber(), oacUnsetMaskNumber);
    EXPECT_EQ(layer->getPrefRoutingDir(), oacNotApplicablePrefRoutingDir);
    EXPECT_EQ(layer->getManufacturingGrid(), 0u);
    EXPECT_EQ(layer->getType(), oacPhysicalLayerType);
}

TEST(PhysicalLayer, KeepsWhatIsSetThroughASave) {
    NewTech tech;
    oaPhysicalLayer* layer = oaPhysicalLayer::create(tech, "metal1", 7, oacPolyMaterial, 3);
    layer->setPrefRoutingDir(oacVertPrefRoutingDir);
    layer->setManufacturingGrid(5);
    oaIntProp::create(layer, "thickness", 250);
    tech.saveAndReopen();
    layer = oaPhysicalLayer::find(tech, "metal1");
    EXPECT_EQ(layer->getMaterial(), oacPolyMaterial);
    EXPECT_EQ(layer->getMaskNumber(), 3u);
    EXPECT_EQ(layer->getPrefRoutingDir(), oacVertPrefRoutingDir);
    EXPECT_EQ(layer->getManufacturingGrid(), 5u);
    EXPECT_EQ(static_cast<oaIntProp*>(oaProp::find(layer, "thickness"))->getValue(), 250);
}

TEST(PhysicalLayer, TakesTheGridOfItsTechnologyWithoutOneOfItsOwn) {
    NewTech tech;
    oaPhysicalLayer* layer = oaPhysicalLayer::create(tech, "metal1", 7);
    tech->setDefaultManufacturingGrid(10);
    EXPECT_EQ(layer->getManufacturingGrid(), 10u);
    layer->setManufacturingGrid(5);
    EXPECT_EQ(layer->getManufacturingGrid(), 5u);
    layer->resetManufacturingGrid();
    EXPECT_EQ(layer->getManufacturingGrid(), 10u);
}

TEST(PhysicalLayer, CanBeChanged) {
    NewTech tech;
    oaPhysicalLayer* layer = oaPhysicalLayer::create(tech, "metal1", 7, oacPolyMaterial, 3);
    layer->setMaterial(oacMetalMaterial);
    layer->setMaskNumber(4);
    EXPECT_EQ(layer->getMaterial(), oacMetalMaterial);
    EXPECT_EQ(layer->getMaskNumber(), 4u);
}

TEST(PhysicalLayer, IsNoLayerOfAnotherKind) {
    NewTech tech;
    oaPhysicalLayer* metal = oaPhysicalLayer::create(tech, "metal1", 7);
    oaSizedLayer::create(metal, oacGrowSizeOp, 5, "grown", 8);
    EXPECT_EQ(oaPhysicalLayer::find(tech, "grown"), nullptr);
    EXPECT_EQ(oaPhysicalLayer::find(tech, 8), nullptr);
    EXPECT_EQ(oaPhysicalLayer::find(tech, 7), metal);
    EXPECT_EQ(oaSizedLayer::find(tech, 7), nullptr);
    EXPECT_EQ(oaDerivedLayer::find(tech, "metal1"), nullptr);
}
