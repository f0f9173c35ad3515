#include "via_fixture.h"

namespace design_test {

namespace {

class ViaMaster : public ViaTest {
protected:
    /// What the master of the definition draws with these parameters.
    Shapes drawn(const oaViaParam& params) {
        def->setParams(params);
        oaDesign* master = oaDesign::open(def);
        Shapes shapes = shapesOf(master);
        master->close();
        return shapes;
    }
};

} // namespace

TEST_F(ViaMaster, HasACutAndTheLayersAroundIt) {
    oaDesign* master = oaDesign::open(def);
    EXPECT_EQ(shapesOf(master), (Shapes{"1: -7 -13 7 13", "2: -9 -14 9 14", "3: -5 -10 5 10"}));
    EXPECT_EQ(boxText(master->getTopBlock()), "-9 -14 9 14");
    for (const oaShape* shape : all(master->getTopBlock()->getShapes())) {
        EXPECT_EQ(shape->getPurposeNum(), oavPurposeNumberDrawing);
        EXPECT_EQ(shape->getType(), oacRectType);
    }
}

TEST_F(ViaMaster, IsADesignInScratchMode) {
    oaDesign* master = oaDesign::open(def);
    EXPECT_TRUE(master->isStdViaMaster());
    EXPECT_FALSE(master->isSubMaster());
    EXPECT_FALSE(master->isModified());
    EXPECT_EQ(master->getMode(), 's');
    EXPECT_EQ(master->getCellType(), oacViaCellType);
    EXPECT_EQ(master->getViewType(), oaViewType::get(oacMaskLayout));
    EXPECT_EQ(master->getTech(), tech);
    EXPECT_EQ(master->getLib(), lib);
    oaString cell;
    master->getCellName(oaNativeNS(), cell);
    EXPECT_EQ(text(cell), "via");
    EXPECT_EQ(oaDesign::find(name("lib"), name("via"), name("via")), nullptr);
    EXPECT_FALSE(block->getDesign()->isStdViaMaster());
}

TEST_F(ViaMaster, HasAnArrayOfCutsAroundTheOrigin) {
    oaViaParam params = oneCut();
    params.setCutColumns(3);
    params.setCutRows(2);
    params.setCutSpacing(oaVector(5, 6));
    EXPECT_EQ(drawn(params), (Shapes{"1: -22 -26 22 26", "2: -24 -27 24 27", "3: -20 -23 -10 -3",
                                     "3: -20 3 -10 23", "3: -5 -23 5 -3", "3: -5 3 5 23",
                                     "3: 10 -23 20 -3", "3: 10 3 20 23"}));
}

TEST_F(ViaMaster, LeavesOutTheCutsThatThePatternDoes) {
    oaViaParam params = oneCut();
    params.setCutColumns(2);
    params.setCutSpacing(oaVector(10, 0));
    params.setCutPatternVal(0, 1, false);
    params.setCutPatternVal(5, 5, false);
    EXPECT_EQ(drawn(params), (Shapes{"1: -17 -13 17 13", "2: -19 -14 19 14", "3: -15 -10 -5 10"}));
}

TEST_F(ViaMaster, IsShiftedByItsOffsets) {
    oaViaParam params = oneCut();
    params.setOriginOffset(oaVector(100, 0));
    params.setLayer1Offset(oaVector(1, 0));
    params.setLayer2Offset(oaVector(0, -2));
    EXPECT_EQ(drawn(params), (Shapes{"1: 94 -13 108 13", "2: 91 -16 109 12", "3: 95 -10 105 10"}));
}

TEST_F(ViaMaster, OfAnOddSizeReachesFurtherUpAndRight) {
    oaViaParam params;
    params.setCutLayer(3);
    params.setCutWidth(5);
    params.setCutHeight(7);
    EXPECT_EQ(drawn(params), (Shapes{"1: -2 -3 3 4", "2: -2 -3 3 4", "3: -2 -3 3 4"}));
}

TEST_F(ViaMaster, HasImplantsAroundItsLayers) {
    oaViaParam params = oneCut();
    params.setImplant1Enc(oaVector(10, 20));
    params.setImplant2Enc(oaVector(1, 1));
    oaStdViaDef* doped =
        oaStdViaDef::create(tech, "doped", metal1, metal2, params, implant, implant);
    EXPECT_EQ(shapesOf(oaDesign::open(doped)),
              (Shapes{"1: -7 -13 7 13", "2: -9 -14 9 14", "3: -5 -10 5 10", "4: -10 -15 10 15",
                      "4: -17 -33 17 33"}));
}

TEST_F(ViaMaster, DrawsNothingThatHasNoArea) {
    EXPECT_EQ(drawn(oaViaParam()), Shapes());
    oaViaParam params = oneCut();
    params.setLayer1Enc(oaVector(-5, 0));
    EXPECT_EQ(drawn(params), (Shapes{"2: -9 -14 9 14", "3: -5 -10 5 10"}));
}

TEST_F(ViaMaster, ThatReachesBeyondTheCoordinatesIsNone) {
    oaViaParam params = oneCut();
    params.setOriginOffset(oaVector(2147483640, 0));
    def->setParams(params);
    EXPECT_EQ(oaDesign::open(def), nullptr);
    const oaStdVia* via = place();
    EXPECT_EQ(via->getMaster(), nullptr);
    EXPECT_EQ(boxText(via), "none");
}

TEST_F(ViaMaster, IsSharedByThoseOfTheSameValues) {
    oaViaParam one = columns(1);
    oaDesign* master = oaDesign::open(def);
    EXPECT_EQ(oaDesign::open(def, &one), master);
    oaViaParam two = columns(2);
    oaDesign* other = oaDesign::open(def, &two);
    EXPECT_NE(other, master);
    EXPECT_EQ(master->getRefCount(), 2u);
    oaStdViaDef* twin = oaStdViaDef::create(tech, "twin", metal1, metal2, oneCut());
    EXPECT_NE(oaDesign::open(twin), master);
}

TEST_F(ViaMaster, SaysWhatItWasMadeFrom) {
    oaViaParam given = columns(2);
    oaViaParam params;
    oaDesign::open(def, &given)->getParams(params);
    EXPECT_EQ(params.getCutColumns(), 2u);
    EXPECT_EQ(params.getCutWidth(), 10u);
    EXPECT_TRUE(params.hasDefault(oacCutWidthViaParamType));
    EXPECT_FALSE(params.hasDefault(oacCutColumnsViaParamType));
    EXPECT_EQ(messageOf([&] { block->getDesign()->getParams(params); }),
              "Design 'lib/cell/layout' is not the master of a standard via.");
}

TEST_F(ViaMaster, CanBeNeitherChangedNorSaved) {
    oaDesign* master = oaDesign::open(def);
    const std::function<void()> changes[] = {
        [&] { oaRect::create(master->getTopBlock(), 1, 1, oaBox(0, 0, 1, 1)); },
        [&] { all(master->getTopBlock()->getShapes())[0]->destroy(); },
        [&] { master->getTopBlock()->destroy(); },
        [&] { master->setCellType(oacPadCellType); },
        [&] { master->save(); },
        [&] { master->reopen('a'); },
        [&] { master->revert(); },
    };
    for (const std::function<void()>& change : changes)
        EXPECT_EQ(messageOf(change), "Design 'lib/via/via' is the master of a standard via and can "
                                     "neither be changed nor saved.");
    EXPECT_EQ(messageOf([&] { oaScalarInst::create(block, master, oaTransform()); }),
              "Design 'lib/via/via' is the master of a standard via and cannot be that of an "
              "instance.");
}

TEST_F(ViaMaster, GoesWithTheLastThatUsesIt) {
    oaStdVia* via = place();
    EXPECT_FALSE(via->isBound());
    oaDesign* master = via->getMaster();
    EXPECT_TRUE(via->isBound());
    EXPECT_EQ(oaDesign::open(def), master);
    EXPECT_EQ(master->getRefCount(), 2u);
    master->close();
    EXPECT_TRUE(master->isValid());
    block->getDesign()->close();
    EXPECT_FALSE(master->isValid());
    oaDesign* alone = oaDesign::open(def);
    alone->close();
    EXPECT_FALSE(alone->isValid());
}

TEST_F(ViaMaster, GoesWithItsLibrary) {
    oaDesign* master = oaDesign::open(def);
    lib->close();
    EXPECT_FALSE(master->isValid());
}

TEST_F(ViaMaster, StaysWhatItIsWhenItsDefinitionChanges) {
    oaDesign* before = oaDesign::open(def);
    const oaStdVia* via = place();
    EXPECT_EQ(via->getMaster(), before);
    oaViaParam params = oneCut();
    params.setCutWidth(40);
    def->setParams(params);
    EXPECT_NE(via->getMaster(), before);
    EXPECT_EQ(boxText(before->getTopBlock()), "-9 -14 9 14");
    EXPECT_EQ(boxText(via), "-24 -14 24 14");
}

TEST_F(ViaMaster, OfACustomViaIsItsDesign) {
    EXPECT_EQ(oaDesign::open(customDef), nullptr);
    const oaBlock* drawn = drawMaster();
    oaDesign* master = oaDesign::open(customDef);
    EXPECT_EQ(master, drawn->getDesign());
    EXPECT_FALSE(master->isStdViaMaster());
    oaParamArray params;
    params.append(oaParam("size", oaInt4(3)));
    EXPECT_EQ(thrownBy([&] { oaDesign::open(customDef, &params); }),
              oacParamsSuppliedForNonPCellInstMaster);
    EXPECT_EQ(master->getRefCount(), 2u);
}

} // namespace design_test
