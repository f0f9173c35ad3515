#include "tech_news.h"

#include "support/files.h"

#include <algorithm>
#include <stdexcept>

using namespace oa;
using namespace ovalis::test;

namespace {

using Names = std::vector<std::string>;

Names refsOf(const oaTech* tech, oaBoolean local) {
    oaTechHeaderArray headers;
    tech->getTechHeaders(headers, local);
    Names names;
    for (oaUInt4 i = 0; i < headers.getNumElements(); ++i) {
        oaScalarName lib;
        headers[i]->getRefLibName(lib);
        names.push_back(textOf(lib));
    }
    return names;
}

} // namespace

TEST(TechRefs, ShowWhatTheTechnologiesBelowHold) {
    NewTech base("base");
    NewTech metal("metal");
    NewTech chip("chip");
    oaLayer* poly = oaPhysicalLayer::create(base, "poly", 1);
    oaPhysicalLayer::create(metal, "m1", 2);
    oaPhysicalLayer::create(chip, "m2", 3);
    oaPurpose* pin = oaPurpose::create(base, "pin", 7);
    oaIntValue::create(base, 5);
    metal->setRefs(refsTo({base}));
    chip->setRefs(refsTo({metal}));

    EXPECT_EQ(namesOf(chip->getLayers()), (Names{"m2", "m1", "poly"}));
    EXPECT_EQ(namesOf(chip->getLayers(oacLayerIterLocal)), Names{"m2"});
    EXPECT_EQ(oaLayer::find(chip, "poly"), poly);
    EXPECT_EQ(oaLayer::find(chip, 1), poly);
    EXPECT_EQ(oaLayer::find(chip, "poly", true), nullptr);
    EXPECT_EQ(oaPhysicalLayer::find(chip, 1), poly);
    EXPECT_EQ(oaPhysicalLayer::find(chip, 1, true), nullptr);
    EXPECT_EQ(oaPurpose::find(chip, "pin"), pin);
    EXPECT_EQ(oaPurpose::find(chip, 7), pin);
    EXPECT_EQ(oaPurpose::find(chip, 7, true), nullptr);
    EXPECT_EQ(chip->getPurposes().getCount(),
              chip->getPurposes(oacPurposeIterLocal).getCount() + 1);
    EXPECT_EQ(chip->getValues().getCount(), 1u);
    EXPECT_EQ(chip->getValues(oacTechValueIterLocal).getCount(), 0u);
}

TEST(TechRefs, GiveTheSettingsThatATechnologyDoesNotHaveItself) {
    NewTech base("base");
    NewTech chip("chip");
    const oaViewType* layout = oaViewType::get(oacMaskLayout);
    base->setDBUPerUU(layout, 2000);
    base->setUserUnits(layout, oacNanometer);
    base->setDefaultManufacturingGrid(5);
    base->setClearanceMeasure(oacMaxXYClearanceMeasure);
    base->setGateGrounded(true);
    base->setProcessFamily("rf40");
    chip->setRefs(refsTo({base}));

    oaString family;
    chip->getProcessFamily(family);
    EXPECT_EQ(family, "rf40");
    EXPECT_EQ(chip->getDBUPerUU(layout), 2000u);
    EXPECT_EQ(chip->getUserUnits(layout), oacNanometer);
    EXPECT_EQ(chip->getDefaultManufacturingGrid(), 5u);
    EXPECT_EQ(chip->getClearanceMeasure(), oacMaxXYClearanceMeasure);
    EXPECT_TRUE(chip->isGateGrounded());
    EXPECT_TRUE(chip->hasProcessFamily());

    chip->getProcessFamily(family, true);
    EXPECT_EQ(family, "");
    EXPECT_EQ(chip->getDBUPerUU(layout, true), 1000u);
    EXPECT_EQ(chip->getUserUnits(layout, true), oacMicron);
    EXPECT_EQ(chip->getDefaultManufacturingGrid(true), 0u);
    EXPECT_EQ(chip->getClearanceMeasure(true), oacEuclidianClearanceMeasure);
    EXPECT_FALSE(chip->isGateGrounded(true));
    EXPECT_FALSE(chip->hasProcessFamily(true));
    EXPECT_FALSE(chip->isDBUPerUUSet(layout));
    EXPECT_FALSE(chip->isClearanceMeasureSet());
    EXPECT_FALSE(chip->isGateGroundedSet());
}

TEST(TechRefs, AreSavedAndOpenedAgain) {
    NewTech base("base");
    oaPhysicalLayer::create(base, "poly", 1);
    base->save();
    NewTech chip("chip");
    chip->setRefs(refsTo({base}));
    base->close();
    EXPECT_EQ(oaTech::find(base.lib())->getRefCount(), 1u);
    chip.saveAndReopen();
    EXPECT_EQ(namesOf(chip->getLayers()), Names{"poly"});
    EXPECT_EQ(oaTech::find(base.lib())->getRefCount(), 1u);
    EXPECT_FALSE(chip->hasUnboundRefs());
    oaTech* again = chip;
    again->close();
    EXPECT_EQ(oaTech::find(base.lib()), nullptr);
}

TEST(TechRefs, CannotGoRound) {
    NewTech base("base");
    NewTech chip("chip");
    chip->setRefs(refsTo({base}));
    EXPECT_EQ(
        thrown<oaTechError>(oacInvalidTechRef, [&] { base->setRefs(refsTo({chip})); }),
        "The technology of library 'base' cannot refer to that of library 'chip': it would refer "
        "to itself that way.");
    EXPECT_EQ(
        thrown<oaTechError>(oacInvalidTechRef, [&] { base->setRefs(refsTo({base})); }),
        "The technology of library 'base' cannot refer to that of library 'base': it would refer "
        "to itself that way.");
    EXPECT_EQ(
        thrown<oaTechError>(oacInvalidTechRef,
                            [&] {
                                chip->setRefs(refsTo({base, base}));
                            }),
        "The technology of library 'chip' cannot refer to that of library 'base': it is named "
        "twice.");
    EXPECT_EQ(refsOf(chip, true), Names{"base"});
}

TEST(TechRefs, ThatGoRoundInFilesAreOpenedOnceEach) {
    NewTech one("one");
    NewTech two("two");
    one->save();
    two->setRefs(refsTo({one}));
    two->save();
    const std::string file = readText(two.techFile());
    two->unsetRefs();
    two->save();
    one->setRefs(refsTo({two}));
    one->save();
    two.reopen();
    one.reopen();
    writeText(two.techFile(), file);
    oaTech* opened = oaTech::open(one.lib());
    EXPECT_EQ(refsOf(opened, false), (Names{"two", "one"}));
    opened->close();
    EXPECT_EQ(oaTech::getOpenTechs().getCount(), 0u);
}

TEST(TechRefs, AreReplacedAndTakenAway) {
    NewTech base("base");
    NewTech other("other");
    NewTech chip("chip");
    chip->setRefs(refsTo({base, other}));
    EXPECT_EQ(refsOf(chip, true), (Names{"base", "other"}));
    EXPECT_EQ(base->getRefCount(), 2u);
    chip->setRefs(refsTo({other}));
    EXPECT_EQ(refsOf(chip, true), Names{"other"});
    EXPECT_EQ(base->getRefCount(), 1u);
    chip->unsetRefs();
    EXPECT_EQ(refsOf(chip, true), Names());
    EXPECT_EQ(other->getRefCount(), 1u);
}

TEST(TechRefs, AreFoundFromBothEnds) {
    NewTech base("base");
    NewTech metal("metal");
    NewTech chip("chip");
    metal->setRefs(refsTo({base}));
    chip->setRefs(refsTo({metal}));
    EXPECT_EQ(refsOf(chip, false), (Names{"metal", "base"}));
    oaTechHeader* header = oaTechHeader::find(metal, name("base"));
    ASSERT_NE(header, nullptr);
    EXPECT_EQ(header->getType(), oacTechHeaderType);
    EXPECT_EQ(header->getRefTech(), base);
    EXPECT_TRUE(header->isBound());
    EXPECT_EQ(header->getTech(), metal);
    EXPECT_EQ(oaTechHeader::find(metal, static_cast<oaTech*>(base)), header);
    EXPECT_EQ(oaTechHeader::find(chip, name("base")), nullptr);
    EXPECT_EQ(base->getUsedIn().getCount(), 1u);
    EXPECT_TRUE(base->getUsedIn().includes(header));
    EXPECT_EQ(chip->getUsedIn().getCount(), 0u);
}

TEST(TechRefs, AreUnboundWhileTheLibraryIsNotOpen) {
    NewTech base("base");
    NewTech chip("chip");
    chip->setRefs(refsTo({base}));
    chip->save();
    base.lib()->close();
    EXPECT_FALSE(oaTechHeader::find(chip, name("base"))->isBound());
    EXPECT_TRUE(chip->hasUnboundRefs());
    TechNews news;
    chip.saveAndReopen();
    const News told = news.take();
    EXPECT_NE(std::find(told.begin(), told.end(), "unbound chip to base"), told.end());
    EXPECT_TRUE(chip->hasUnboundRefs());
    EXPECT_FALSE(chip->validate());
}

TEST(TechRefs, ToWhatIsNoTechnologyAreUnbound) {
    NewTech base("base");
    base->save();
    NewTech chip("chip");
    chip->setRefs(refsTo({base}));
    chip->save();
    base.reopen();
    writeText(base.techFile(), "damaged");
    TechNews news;
    chip.saveAndReopen();
    const News told = news.take();
    EXPECT_NE(std::find(told.begin(), told.end(), "unbound chip to base"), told.end());
}

TEST(TechRefs, MakeDerivedLayersOfLayersBelow) {
    NewTech base("base");
    NewTech chip("chip");
    oaLayer* poly = oaPhysicalLayer::create(base, "poly", 1);
    oaLayer* metal = oaPhysicalLayer::create(chip, "metal", 2);
    EXPECT_EQ(thrown<oaTechError>(
                  oacDerivedLayerInvalid,
                  [&] { oaDerivedLayer::create(chip, poly, metal, oacAndLayerOp, "both", 3); }),
              "The derived layer 'both' cannot be made: its technology does not see a layer that "
              "it follows from.");
    chip->setRefs(refsTo({base}));
    oaDerivedLayer* both = oaDerivedLayer::create(chip, poly, metal, oacAndLayerOp, "both", 3);
    EXPECT_EQ(both->getLayer1(), poly);
    EXPECT_EQ(both->getLayer2(), metal);
}

TEST(TechRefs, AreOpenedAgainAfterAnObserverHasFailed) {
    struct Failing : oaVersionedObserver<oaTech> {
        Failing() : oaVersionedObserver(1) {}
        void onPreOpenRefs(oaTech*) override { throw std::runtime_error("no"); }
    };
    NewTech base("base");
    base->save();
    NewTech chip("chip");
    chip->setRefs(refsTo({base}));
    chip->save();
    {
        Failing failing;
        EXPECT_THROW(chip->revert(), std::runtime_error);
    }
    EXPECT_EQ(base->getRefCount(), 1u);
    chip->revert();
    EXPECT_EQ(base->getRefCount(), 2u);
}
