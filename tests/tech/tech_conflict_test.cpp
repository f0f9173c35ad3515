#include "tech_news.h"

using namespace oa;
using namespace ovalis::test;

namespace {

/// Three technologies, of which `chip` refers to nothing yet.
class TechConflict : public testing::Test {
protected:
    NewTech base{"base"};
    NewTech metal{"metal"};
    NewTech chip{"chip"};
    TechNews news;

    /// What is told beside the change itself when `chip` refers to both others.
    News toldOfBoth() {
        chip->setRefs(refsTo({base, metal}));
        News told = news.take();
        std::erase_if(told, [](const std::string& each) { return each.find("modif") == 0; });
        return told;
    }
};

} // namespace

TEST_F(TechConflict, OfLayersOfOneNameIsTold) {
    oaPhysicalLayer::create(base, "m1", 1);
    oaPhysicalLayer::create(metal, "m1", 2);
    EXPECT_EQ(toldOfBoth(), News{"conflict 0 chip: base:m1 metal:m1"});
}

TEST_F(TechConflict, OfLayersOfOneNumberIsTold) {
    oaPhysicalLayer::create(base, "m1", 1);
    oaPhysicalLayer::create(metal, "m2", 1);
    EXPECT_EQ(toldOfBoth(), News{"conflict 1 chip: base:m1 metal:m2"});
}

TEST_F(TechConflict, OfLayersDerivedAlikeIsTold) {
    NewTech* const techs[] = {&base, &metal};
    for (int i = 0; i < 2; ++i) {
        oaTech* tech = *techs[i];
        const std::string text = std::to_string(i);
        oaLayer* one = oaPhysicalLayer::create(tech, ("a" + text).c_str(), 1);
        oaLayer* two = oaPhysicalLayer::create(tech, ("b" + text).c_str(), 2);
        oaDerivedLayer::create(one, two, oacAndLayerOp, ("both" + text).c_str(),
                               oaLayerNum(10 + i));
        oaDerivedLayer::create(one, two, i == 0 ? oacOrLayerOp : oacXorLayerOp,
                               ("else" + text).c_str(), oaLayerNum(20 + i));
    }
    EXPECT_EQ(toldOfBoth(),
              (News{"conflict 1 chip: base:a0 metal:a1", "conflict 1 chip: base:b0 metal:b1",
                    "conflict 2 chip: base:both0 metal:both1"}));
}

TEST_F(TechConflict, OfPurposesIsTold) {
    oaPurpose::create(base, "pin", 1);
    oaPurpose::create(metal, "pin", 2);
    oaPurpose::create(base, "net", 3);
    oaPurpose::create(metal, "label", 3);
    EXPECT_EQ(toldOfBoth(), (News{"conflict 3 chip: base:pin metal:pin",
                                  "conflict 4 chip: base:net metal:label"}));
}

TEST_F(TechConflict, OfSettingsIsTold) {
    const oaViewType* layout = oaViewType::get(oacMaskLayout);
    const oaViewType* schematic = oaViewType::get(oacSchematic);
    base->setDBUPerUU(layout, 1000);
    metal->setDBUPerUU(layout, 2000);
    base->setUserUnits(schematic, oacMil);
    metal->setUserUnits(schematic, oacInch);
    base->setDefaultManufacturingGrid(5);
    metal->setDefaultManufacturingGrid(1);
    base->setClearanceMeasure(oacMaxXYClearanceMeasure);
    metal->setClearanceMeasure(oacEuclidianClearanceMeasure);
    base->setGateGrounded(true);
    metal->setGateGrounded(false);
    base->setProcessFamily("rf40");
    metal->setProcessFamily("rf28");
    news.take();
    EXPECT_EQ(toldOfBoth(),
              (News{"dbu maskLayout base metal", "units schematic base metal", "grid base metal",
                    "clearance base metal", "grounded base metal", "family base metal"}));
}

TEST_F(TechConflict, IsNoneBetweenEqualSettings) {
    for (oaTech* tech : {static_cast<oaTech*>(base), static_cast<oaTech*>(metal)}) {
        tech->setDBUPerUU(oaViewType::get(oacMaskLayout), 2000);
        tech->setProcessFamily("rf40");
        tech->setGateGrounded(true);
    }
    news.take();
    EXPECT_EQ(toldOfBoth(), News());
    EXPECT_TRUE(chip->validate());
}

TEST_F(TechConflict, OfProcessFamiliesNamesEachTechnology) {
    base->setProcessFamily("rf40");
    metal->setProcessFamily("rf28");
    chip->setProcessFamily("rf40");
    EXPECT_EQ(toldOfBoth(), News{"family chip base metal"});
}

TEST_F(TechConflict, OfAnExcludedLayerIsTold) {
    oaPhysicalLayer* thick = oaPhysicalLayer::create(base, "thick", 1);
    oaPhysicalLayer::create(metal, "thin", 2);
    oaLayerArray excluded;
    excluded.append(2);
    excluded.append(3);
    thick->setExcludedLayers(excluded);
    EXPECT_EQ(toldOfBoth(), News{"excluded chip: thick thin"});
    oaLayerArray kept;
    thick->getExcludedLayers(kept);
    EXPECT_EQ(kept.getNumElements(), 2u);
    oaPhysicalLayer::create(base, "other", 3);
    EXPECT_EQ(news.take(), (News{"excluded base: thick other"}));
}

TEST_F(TechConflict, IsToldWithTheTechnologyThatSeesItFirst) {
    NewTech top("top");
    news.take();
    oaPhysicalLayer::create(base, "m1", 1);
    oaPhysicalLayer::create(metal, "m1", 2);
    EXPECT_EQ(toldOfBoth(), News{"conflict 0 chip: base:m1 metal:m1"});
    top->setRefs(refsTo({chip}));
    EXPECT_EQ(news.take(), (News{"modify top 6", "modified top 6"}));
    EXPECT_FALSE(chip->validate());
    EXPECT_EQ(news.take(), News{"conflict 0 chip: base:m1 metal:m1"});
    EXPECT_TRUE(top->validate());
}

TEST_F(TechConflict, IsToldWhenAChangeMakesIt) {
    chip->setRefs(refsTo({base, metal}));
    oaLayer* layer = oaPhysicalLayer::create(base, "m1", 1);
    news.take();
    oaLayer* other = oaPhysicalLayer::create(metal, "m2", 2);
    EXPECT_EQ(news.take(), News());
    other->setName("m1");
    EXPECT_EQ(news.take(), News{"conflict 0 chip: base:m1 metal:m1"});
    other->setName("m2");
    other->setNumber(1);
    EXPECT_EQ(news.take(), News{"conflict 1 chip: base:m1 metal:m2"});
    layer->destroy();
    oaPurpose::create(base, "pin", 1);
    oaPurpose* label = oaPurpose::create(metal, "label", 2);
    label->setName("pin");
    EXPECT_EQ(news.take(), News{"conflict 3 chip: base:pin metal:pin"});
    base->setDBUPerUU(oaViewType::get(oacNetlist), 10);
    metal->setDBUPerUU(oaViewType::get(oacNetlist), 20);
    EXPECT_EQ(news.take(), (News{"modify base 0", "modified base 0", "modify metal 0",
                                 "modified metal 0", "dbu netlist base metal"}));
}

TEST_F(TechConflict, CannotBeMadeWhereItIsSeen) {
    oaPhysicalLayer::create(base, "m1", 1);
    oaPurpose::create(base, "pin", 1);
    chip->setRefs(refsTo({base}));
    EXPECT_EQ(
        thrown<oaTechError>(oacLayerNameExists, [&] { oaPhysicalLayer::create(chip, "m1", 2); }),
        "The technology of library 'base' already has a layer named 'm1'.");
    EXPECT_EQ(
        thrown<oaTechError>(oacLayerNumberExists, [&] { oaPhysicalLayer::create(chip, "m2", 1); }),
        "The technology of library 'base' already has a layer with number 1.");
    EXPECT_EQ(thrown<oaTechError>(oacPurposeNameExists, [&] { oaPurpose::create(chip, "pin", 2); }),
              "The technology of library 'base' already has a purpose named 'pin'.");
    EXPECT_EQ(
        thrown<oaTechError>(oacPurposeNumberExists, [&] { oaPurpose::create(chip, "net", 1); }),
        "The technology of library 'base' already has a purpose with number 1.");
}

TEST_F(TechConflict, IsToldWhenTheTechnologyIsOpened) {
    oaPhysicalLayer::create(base, "m1", 1);
    oaPhysicalLayer::create(metal, "m1", 2);
    base->save();
    metal->save();
    chip->setRefs(refsTo({base, metal}));
    chip->save();
    chip.reopen();
    news.take();
    oaTech* opened = oaTech::open(chip.lib());
    EXPECT_EQ(news.take(), (News{"open refs chip", "opened refs chip", "open chip",
                                 "conflict 0 chip: base:m1 metal:m1"}));
    opened->revert();
    EXPECT_EQ(news.take(),
              (News{"open refs chip", "opened refs chip", "conflict 0 chip: base:m1 metal:m1"}));
}
