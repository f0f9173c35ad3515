#include "submaster_fixture.h"

using namespace oa;
using namespace ovalis::test;

namespace {

using Submaster = SubmasterFixture;

TEST_F(Submaster, IsEvaluatedWhenItIsOpened) {
    oaDesign* submaster = openSubmaster(sized(30));
    EXPECT_EQ(takeLines(), (Lines{"onPreEval", "onEval 30", "onPostEval drawn"}));
    EXPECT_EQ(widthOf(submaster), 30);
    EXPECT_TRUE(submaster->isSubMaster());
    EXPECT_FALSE(submaster->isSuperMaster());
    EXPECT_EQ(submaster->getMode(), 's');
    EXPECT_FALSE(submaster->isModified());
    EXPECT_EQ(submaster->getSuperMaster(), findSuperMaster());
    EXPECT_EQ(submaster->getLib(), lib);
    EXPECT_EQ(submaster->getViewType(), oaViewType::get(oacMaskLayout));
}

TEST_F(Submaster, HasTheNamesOfItsSuperMasterAndIsNotFoundByThem) {
    oaDesign* submaster = openSubmaster(sized(30));
    oaString cell;
    submaster->getCellName(oaNativeNS(), cell);
    EXPECT_EQ(cell, "square");
    EXPECT_NE(findSuperMaster(), submaster);
    EXPECT_TRUE(findSuperMaster()->isSuperMaster());
    EXPECT_EQ(findSuperMaster()->getMode(), 'r');
    EXPECT_EQ(submastersOf(findSuperMaster()), std::vector<oaDesign*>{submaster});
    EXPECT_FALSE(oaDesign::getOpenDesigns().includes(submaster));
}

TEST_F(Submaster, HasTheDefaultsOverlaidByWhatIsGivenInTheOrderOfTheSuperMaster) {
    oaParamArray given;
    given.append(oaParam("label", "own"));
    oaDesign* submaster = openSubmaster(given);
    EXPECT_EQ(paramsOf(submaster, false), given);
    oaParamArray all;
    all.append(oaParam("size", oaInt4(10)));
    all.append(oaParam("label", "own"));
    EXPECT_EQ(paramsOf(submaster, true), all);
    oaParam size;
    EXPECT_TRUE(submaster->findParam("size", size));
    EXPECT_EQ(size, oaParam("size", oaInt4(10)));
    EXPECT_FALSE(submaster->findParam("height", size));
}

TEST_F(Submaster, IsOneForEqualEffectiveParameters) {
    oaDesign* first = openSubmaster(oaParamArray());
    oaDesign* second = openSubmaster(sized(10));
    oaDesign* third = openSubmaster(effective(10));
    EXPECT_EQ(first, second);
    EXPECT_EQ(first, third);
    EXPECT_EQ(first->getRefCount(), 3u);
    EXPECT_NE(openSubmaster(sized(11)), first);
    EXPECT_EQ(takeLines(), (Lines{"onPreEval", "onEval 10", "onPostEval drawn", "onPreEval",
                                  "onEval 11", "onPostEval drawn"}));
}

TEST_F(Submaster, TellsApartWhatOnlyAnEvaluatorCan) {
    oaDesign* design = openCell('w', "real");
    oaParamArray params = defaults();
    params.append(oaParam("factor", 0.0));
    design->defineSuperMaster(evaluator->getPcellDef(), params);
    const auto with = [&](oaDouble factor) {
        oaParamArray given;
        given.append(oaParam("factor", factor));
        return oaDesign::open(name("lib"), name("real"), name("layout"), given);
    };
    EXPECT_NE(with(0.0), with(-0.0));
    const oaDouble nan = std::numeric_limits<oaDouble>::quiet_NaN();
    EXPECT_EQ(with(nan), with(nan));
}

TEST_F(Submaster, RefusesParametersThatTheSuperMasterDoesNotHave) {
    const auto refusedFor = [&](const oaParam& param) {
        oaParamArray given;
        given.append(param);
        return refused(oacInvalidDataTypeForParam, [&] { openSubmaster(given); });
    };
    EXPECT_EQ(refusedFor(oaParam("height", oaInt4(1))),
              "Parameter 'height' does not exist with this type in the pcell 'lib/square/layout'.");
    EXPECT_EQ(refusedFor(oaParam("size", 1.0)),
              "Parameter 'size' does not exist with this type in the pcell 'lib/square/layout'.");
    EXPECT_EQ(takeLines(), Lines());
    EXPECT_EQ(findSuperMaster(), nullptr); // nothing keeps it open
}

TEST_F(Submaster, FollowsFromASuperMasterOnly) {
    oaBlock::create(openCell('w', "plain"));
    EXPECT_EQ(
        refused(oacInvalidSuperMaster,
                [] { oaDesign::open(name("lib"), name("plain"), name("layout"), oaParamArray()); }),
        "Design 'lib/plain/layout' is not a pcell super master.");
    EXPECT_EQ(oaDesign::open(name("lib"), name("missing"), name("layout"), oaParamArray()),
              nullptr);
    EXPECT_EQ(refused(oacInvalidSubMaster, [] { openCell('r')->getSuperMaster(); }),
              "Design 'lib/square/layout' is not a pcell submaster.");
    EXPECT_TRUE(openCell('r', "plain")->getSubMasters().isEmpty());
}

TEST_F(Submaster, CanBeNeitherSavedNorChanged) {
    oaDesign* submaster = openSubmaster(sized(30));
    EXPECT_EQ(refused(oacSaveScratchModeDesign, [&] { submaster->save(); }),
              "Design 'lib/square/layout' is a submaster and cannot be saved.");
    const std::string expected =
        "Design 'lib/square/layout' is a pcell submaster and cannot be changed.";
    oaBlock* block = submaster->getTopBlock();
    EXPECT_EQ(
        refused(oacCannotModifySubMaster, [&] { oaRect::create(block, 1, 2, oaBox(0, 0, 1, 1)); }),
        expected);
    EXPECT_EQ(refused(oacCannotModifySubMaster, [&] { block->destroy(); }), expected);
    EXPECT_EQ(refused(oacCannotModifySubMaster, [&] { submaster->reopen('a'); }), expected);
    EXPECT_EQ(refused(oacCannotModifySubMaster, [&] { submaster->revert(); }), expected);
    oaPcellDef* def = evaluator->getPcellDef();
    EXPECT_EQ(refused(oacCannotModifySubMaster,
                      [&] { submaster->defineSuperMaster(def, oaParamArray()); }),
              expected);
    delete def;
    EXPECT_EQ(widthOf(submaster), 30);
}

TEST_F(Submaster, CanBeSavedAsAnOrdinaryDesign) {
    openSubmaster(sized(30))->saveAs(name("lib"), name("copy"), name("layout"));
    oaDesign* copy = openCell('r', "copy");
    EXPECT_FALSE(copy->isSuperMaster());
    EXPECT_FALSE(copy->isSubMaster());
    EXPECT_EQ(widthOf(copy), 30);
}

TEST_F(Submaster, IsClosedWithItsSuperMasterWhenNothingElseHoldsThat) {
    oaDesign* submaster = openSubmaster(sized(30));
    oaDesign* superMaster = findSuperMaster();
    EXPECT_EQ(superMaster->getRefCount(), 1u);
    openSubmaster(sized(30));
    submaster->close();
    EXPECT_TRUE(submaster->isValid());
    submaster->close();
    EXPECT_FALSE(submaster->isValid());
    EXPECT_FALSE(superMaster->isValid());
}

TEST_F(Submaster, LeavesASuperMasterOpenThatTheApplicationOpened) {
    oaDesign* superMaster = openCell('r');
    oaDesign* submaster = openSubmaster(sized(30));
    EXPECT_EQ(superMaster->getRefCount(), 2u);
    submaster->close();
    EXPECT_FALSE(submaster->isValid());
    EXPECT_TRUE(superMaster->isValid());
    EXPECT_EQ(superMaster->getRefCount(), 1u);
    EXPECT_TRUE(superMaster->getSubMasters().isEmpty());
}

TEST_F(Submaster, IsPurgedWithItsSuperMaster) {
    oaDesign* submaster = openSubmaster(sized(30));
    oaDesign* other = openSubmaster(sized(31));
    findSuperMaster()->purge();
    EXPECT_FALSE(submaster->isValid());
    EXPECT_FALSE(other->isValid());
    EXPECT_EQ(findSuperMaster(), nullptr);
    submaster = openSubmaster(sized(30));
    lib->close();
    EXPECT_FALSE(submaster->isValid());
    lib = oaLib::open(name("lib"), (directory.str() + "/lib").c_str());
}

TEST_F(Submaster, IsMadeAnewAfterItWasPurged) {
    oaDesign* superMaster = openCell('r');
    openSubmaster(sized(30))->purge();
    EXPECT_TRUE(superMaster->getSubMasters().isEmpty());
    takeLines();
    EXPECT_EQ(widthOf(openSubmaster(sized(30))), 30);
    EXPECT_EQ(takeLines(), (Lines{"onPreEval", "onEval 30", "onPostEval drawn"}));
}

TEST_F(Submaster, StaysTheSameDesignWhenItsSuperMasterIsDefinedAnew) {
    oaDesign* superMaster = openCell('a');
    oaDesign* small = openSubmaster(sized(5));
    oaDesign* standard = openSubmaster(oaParamArray());
    takeLines();
    oaParamArray params;
    params.append(oaParam("size", oaInt4(20)));
    superMaster->defineSuperMaster(evaluator->getPcellDef(), params);
    EXPECT_EQ(takeLines(), (Lines{"onPreEval", "onEval 5", "onPostEval drawn", "onPreEval",
                                  "onEval 20", "onPostEval drawn"}));
    EXPECT_EQ(submastersOf(superMaster), (std::vector<oaDesign*>{small, standard}));
    EXPECT_EQ(widthOf(small), 5);
    EXPECT_EQ(widthOf(standard), 20);
    EXPECT_EQ(paramsOf(standard, true), sized(20));
    EXPECT_EQ(openSubmaster(sized(20)), standard);
    EXPECT_EQ(takeLines(), Lines());
}

TEST_F(Submaster, IsPurgedWhenItsSuperMasterIsNoneAnyMore) {
    oaDesign* superMaster = openCell('a');
    oaDesign* submaster = openSubmaster(sized(5));
    superMaster->undefineSuperMaster();
    EXPECT_FALSE(submaster->isValid());
    EXPECT_TRUE(superMaster->getSubMasters().isEmpty());
    superMaster->revert();
    submaster = openSubmaster(sized(5));
    superMaster->reopen('w');
    EXPECT_FALSE(submaster->isValid());
}

TEST_F(Submaster, IsEvaluatedAnewWhenItsSuperMasterIsReverted) {
    oaDesign* superMaster = openCell('a');
    superMaster->defineSuperMaster(evaluator->getPcellDef(), sized(70));
    oaDesign* submaster = openSubmaster(oaParamArray());
    EXPECT_EQ(widthOf(submaster), 70);
    takeLines();
    superMaster->revert();
    EXPECT_EQ(takeLines(), (Lines{"onPreEval", "onEval 10", "onPostEval drawn"}));
    EXPECT_EQ(widthOf(submaster), 10);
    EXPECT_EQ(paramsOf(submaster, true), defaults());
}

TEST_F(Submaster, MayBeOneOfAPcellThatIsNotSavedYet) {
    oaDesign* superMaster = openCell('w', "fresh");
    superMaster->defineSuperMaster(evaluator->getPcellDef(), defaults());
    oaDesign* submaster = oaDesign::open(name("lib"), name("fresh"), name("layout"), sized(12));
    EXPECT_EQ(widthOf(submaster), 12);
    EXPECT_EQ(submaster->getSuperMaster(), superMaster);
}

TEST_F(Submaster, DoesNotChangeItsSuperMaster) {
    oaDesign* superMaster = openCell('a');
    openSubmaster(sized(30));
    EXPECT_FALSE(superMaster->isModified());
    EXPECT_EQ(superMaster->getTopBlock(), nullptr);
}

TEST_F(Submaster, OfTheDefaultsCanBeDrawnInTheSuperMasterItself) {
    EXPECT_EQ(refused(oacCannotModifyReadModeDesign, [] { openCell('r')->evalSuperMaster(); }),
              "Design 'lib/square/layout' is open for reading and cannot be changed.");
    oaDesign* superMaster = openCell('a');
    oaRect::create(oaBlock::create(superMaster), 1, 2, oaBox(0, 0, 500, 500));
    superMaster->evalSuperMaster();
    EXPECT_EQ(takeLines(), (Lines{"onPreEval", "onEval 10", "onPostEval drawn"}));
    EXPECT_EQ(widthOf(superMaster), 10);
    EXPECT_TRUE(superMaster->isSuperMaster());
    EXPECT_TRUE(superMaster->isModified());
    EXPECT_TRUE(superMaster->getSubMasters().isEmpty());
    EXPECT_EQ(refused(oacInvalidSuperMaster, [] { openCell('w', "plain")->evalSuperMaster(); }),
              "Design 'lib/plain/layout' is not a pcell super master.");
}

} // namespace
