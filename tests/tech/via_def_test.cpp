#include "tech_news.h"

#include "support/files.h"

using namespace oa;
using namespace ovalis::test;

namespace {

/// A technology with the layers of a via.
class ViaTech : public NewTech {
public:
    explicit ViaTech(const std::string& libName = "lib") : NewTech(libName) {}

    oaPhysicalLayer* metal1 = oaPhysicalLayer::create(*this, "metal1", 1, oacMetalMaterial);
    oaPhysicalLayer* metal2 = oaPhysicalLayer::create(*this, "metal2", 2, oacMetalMaterial);
    oaPhysicalLayer* cut = oaPhysicalLayer::create(*this, "cut", 3, oacCutMaterial);
    oaPhysicalLayer* implant = oaPhysicalLayer::create(*this, "implant", 4, oacNImplantMaterial);

    oaStdViaDef* makeStd(const char* defName) {
        return oaStdViaDef::create(*this, defName, metal1, metal2, params());
    }
    oaCustomViaDef* makeCustom(const char* defName) {
        return oaCustomViaDef::create(*this, defName, name("other"), name("cell"), name("via"),
                                      metal1, metal2);
    }

    static oaViaParam params() {
        oaViaParam params;
        params.setCutLayer(3);
        params.setCutColumns(2);
        params.setCutWidth(10);
        params.setCutHeight(20);
        params.setCutSpacing(oaVector(5, 6));
        params.setLayer1Enc(oaVector(1, 2));
        params.setCutPatternVal(0, 1, false);
        return params;
    }
};

oaViaParam paramsOf(const oaStdViaDef* def) {
    oaViaParam params;
    def->getParams(params);
    return params;
}

/// The names of the master of a custom via, as "lib/cell/view".
std::string masterOf(const oaCustomViaDef* def) {
    oaScalarName lib;
    oaScalarName cell;
    oaString view;
    def->getLibName(lib);
    def->getCellName(cell);
    def->getViewName(oaNativeNS(), view);
    return textOf(lib) + "/" + textOf(cell) + "/" + std::string(view);
}

} // namespace

TEST(ViaDef, OfAStandardViaKeepsWhatItWasGiven) {
    ViaTech tech;
    const oaStdViaDef* def =
        oaStdViaDef::create(tech, "via", tech.metal1, tech.metal2, ViaTech::params(), tech.implant);
    EXPECT_EQ(def->getType(), oacStdViaDefType);
    EXPECT_TRUE(def->isViaDef());
    EXPECT_FALSE(def->isLayer());
    EXPECT_EQ(nameOf(def), "via");
    oaPhysicalLayer* layers[2] = {};
    def->getLayers(layers[0], layers[1]);
    EXPECT_EQ(layers[0], tech.metal1);
    EXPECT_EQ(layers[1], tech.metal2);
    EXPECT_EQ(def->getLayer1Num(), 1u);
    EXPECT_EQ(def->getLayer2Num(), 2u);
    EXPECT_TRUE(paramsOf(def).isEqual(ViaTech::params()));
    EXPECT_TRUE(def->hasImplant1());
    EXPECT_EQ(def->getImplant1(), tech.implant);
    EXPECT_FALSE(def->hasImplant2());
    EXPECT_EQ(def->getImplant2(), nullptr);
    EXPECT_EQ(def->getResistancePerCut(), 0.0f);
    EXPECT_EQ(def->getTech(), static_cast<oaTech*>(tech));
}

TEST(ViaDef, KnowsItsLayers) {
    ViaTech tech;
    oaPhysicalLayer::create(tech, "other", 5);
    const oaStdViaDef* def = oaStdViaDef::create(tech, "via", tech.metal1, tech.metal2,
                                                 ViaTech::params(), nullptr, tech.implant);
    for (const oaLayerNum number : {1, 2, 3, 4})
        EXPECT_TRUE(def->hasLayer(number)) << number;
    for (const oaLayerNum number : {0u, 5u, oacNullIndex})
        EXPECT_FALSE(def->hasLayer(number)) << number;
    EXPECT_TRUE(tech.makeCustom("custom")->hasLayer(2));
    EXPECT_FALSE(tech.makeCustom("another")->hasLayer(3));
}

TEST(ViaDef, OfACustomViaNamesItsMaster) {
    ViaTech tech;
    oaCustomViaDef* def = tech.makeCustom("via");
    EXPECT_EQ(def->getType(), oacCustomViaDefType);
    EXPECT_EQ(masterOf(def), "other/cell/via");
    def->setMaster(name("lib"), name("c2"), name("layout"));
    EXPECT_EQ(masterOf(def), "lib/c2/layout");
}

TEST(ViaDef, OfACustomViaMayLackAMaster) {
    ViaTech tech;
    tech.makeCustom("via")->setMaster(name("lib"), oaScalarName(), oaScalarName());
    tech.saveAndReopen();
    EXPECT_EQ(masterOf(static_cast<oaCustomViaDef*>(oaViaDef::find(tech, "via"))), "lib//");
}

TEST(ViaDef, IsFoundByName) {
    ViaTech tech;
    const oaViaDef* def = tech.makeStd("via");
    EXPECT_EQ(oaViaDef::find(tech, "via"), def);
    EXPECT_EQ(oaViaDef::find(tech, "via2"), nullptr);
    EXPECT_EQ(namesOf(tech->getViaDefs()), std::vector<std::string>{"via"});
}

TEST(ViaDef, OfAnyKindTakesItsName) {
    ViaTech tech;
    tech.makeStd("via");
    const std::string refusal =
        "The technology of library 'lib' already has a via definition named 'via'.";
    EXPECT_EQ(thrown<oaTechError>(oacViaDefNameExists, [&] { tech.makeCustom("via"); }), refusal);
    EXPECT_EQ(thrown<oaTechError>(oacViaDefNameExists, [&] { tech.makeStd("via"); }), refusal);
    EXPECT_EQ(tech->getViaDefs().getCount(), 1u);
}

TEST(ViaDef, NeedsLayersThatItsTechnologySees) {
    ViaTech tech;
    ViaTech stranger("stranger");
    const std::string refusal = "The via definition 'via' cannot be made: its technology does not "
                                "see one of the layers.";
    EXPECT_EQ(thrown<oaTechError>(oacInvalidViaDefLayer,
                                  [&] {
                                      oaStdViaDef::create(tech, "via", tech.metal1, stranger.metal2,
                                                          ViaTech::params());
                                  }),
              refusal);
    EXPECT_EQ(thrown<oaTechError>(oacInvalidViaDefLayer,
                                  [&] {
                                      oaStdViaDef::create(tech, "via", tech.metal1, tech.metal2,
                                                          ViaTech::params(), stranger.implant);
                                  }),
              refusal);
    EXPECT_EQ(tech->getViaDefs().getCount(), 0u);
}

TEST(ViaDef, RefusesMoreCutsThanCanBeDrawn) {
    ViaTech tech;
    oaStdViaDef* def = tech.makeStd("via");
    oaViaParam params;
    params.setCutRows(2000);
    params.setCutColumns(1000);
    EXPECT_EQ(thrown<oaTechError>(oacInvalidViaParam, [&] { def->setParams(params); }),
              "The parameter 'cutRows' of a via cannot be 2000.");
    EXPECT_TRUE(paramsOf(def).isEqual(ViaTech::params()));
}

TEST(ViaDef, SurvivesASave) {
    ViaTech tech;
    oaStdViaDef* def = oaStdViaDef::create(tech, "via", tech.metal1, tech.metal2, oaViaParam(),
                                           tech.implant, tech.implant);
    def->setParams(ViaTech::params());
    def->setResistancePerCut(2.5f);
    tech.makeStd("gone")->destroy();
    tech.makeCustom("custom");
    oaIntProp::create(def, "rank", 3);
    tech.saveAndReopen();
    EXPECT_EQ(namesOf(tech->getViaDefs()), (std::vector<std::string>{"via", "custom"}));
    const auto* read = static_cast<oaStdViaDef*>(oaViaDef::find(tech, "via"));
    ASSERT_EQ(read->getType(), oacStdViaDefType);
    EXPECT_TRUE(paramsOf(read).isEqual(ViaTech::params()));
    EXPECT_EQ(read->getImplant2Num(), 4u);
    EXPECT_EQ(read->getResistancePerCut(), 2.5f);
    EXPECT_NE(oaProp::find(read, "rank"), nullptr);
    const oaViaDef* custom = oaViaDef::find(tech, "custom");
    ASSERT_EQ(custom->getType(), oacCustomViaDefType);
    EXPECT_EQ(masterOf(static_cast<const oaCustomViaDef*>(custom)), "other/cell/via");
    EXPECT_EQ(oaViaDef::find(tech, "gone"), nullptr);
}

TEST(ViaDef, CannotBeChangedInATechnologyOpenForReading) {
    ViaTech tech;
    tech.makeStd("via");
    tech.makeCustom("custom");
    tech.saveAndReopen();
    auto* def = static_cast<oaStdViaDef*>(oaViaDef::find(tech, "via"));
    auto* custom = static_cast<oaCustomViaDef*>(oaViaDef::find(tech, "custom"));
    const std::function<void()> changes[] = {
        [&] { def->setParams(oaViaParam()); },
        [&] { def->setResistancePerCut(1.0f); },
        [&] { def->destroy(); },
        [&] { custom->setMaster(name("a"), name("b"), name("c")); },
        [&] { oaStdViaDef::create(tech, "new", def->getLayer1(), def->getLayer2(), oaViaParam()); },
    };
    for (const std::function<void()>& change : changes)
        EXPECT_EQ(thrown<oaTechError>(oacCannotModifyReadModeTech, change),
                  "The technology of library 'lib' is open for reading and cannot be changed.");
}

TEST(ViaDef, ThatIsDestroyedIsGone) {
    ViaTech tech;
    oaViaDef* def = tech.makeStd("via");
    def->destroy();
    EXPECT_FALSE(def->isValid());
    EXPECT_EQ(oaViaDef::find(tech, "via"), nullptr);
    EXPECT_NE(tech.makeCustom("via"), nullptr);
}

TEST(ViaDef, FollowsItsLayersToOtherNumbers) {
    ViaTech tech;
    const oaStdViaDef* def =
        oaStdViaDef::create(tech, "via", tech.metal1, tech.metal2, ViaTech::params(), tech.implant);
    tech.metal1->setNumber(11);
    tech.cut->setNumber(13);
    tech.implant->setNumber(14);
    EXPECT_EQ(def->getLayer1(), tech.metal1);
    EXPECT_EQ(paramsOf(def).getCutLayer(), 13u);
    EXPECT_EQ(def->getImplant1(), tech.implant);
    tech.metal1->destroy();
    EXPECT_EQ(def->getLayer1(), nullptr);
    EXPECT_EQ(def->getLayer1Num(), 11u);
}

TEST(ViaDef, OfTechnologiesThatAreReferredToIsSeen) {
    ViaTech base("base");
    NewTech chip("chip");
    const oaViaDef* def = base.makeStd("via");
    chip->setRefs(refsTo({base}));
    EXPECT_EQ(oaViaDef::find(chip, "via"), def);
    EXPECT_EQ(oaViaDef::find(chip, "via", true), nullptr);
    oaCustomViaDef::create(chip, "own", name("l"), name("c"), name("v"), base.metal1, base.metal2);
    EXPECT_EQ(namesOf(chip->getViaDefs()), (std::vector<std::string>{"own", "via"}));
    EXPECT_EQ(namesOf(chip->getViaDefs(oacViaDefIterLocal)), std::vector<std::string>{"own"});
    EXPECT_EQ(thrown<oaTechError>(oacViaDefNameExists,
                                  [&] {
                                      oaStdViaDef::create(chip, "via", base.metal1, base.metal2,
                                                          oaViaParam());
                                  }),
              "The technology of library 'base' already has a via definition named 'via'.");
}

namespace {

/// Two technologies with layers of their own, which `chip` may refer to.
class ViaDefConflict : public testing::Test {
protected:
    NewTech base{"base"};
    NewTech metal{"metal"};
    NewTech chip{"chip"};
    TechNews news;

    static oaStdViaDef* makeVia(oaTech* tech, const char* defName, oaLayerNum first) {
        const std::string prefix = libOf(tech) + std::to_string(first);
        return oaStdViaDef::create(
            tech, defName, oaPhysicalLayer::create(tech, (prefix + "a").c_str(), first),
            oaPhysicalLayer::create(tech, (prefix + "b").c_str(), first + 1), oaViaParam());
    }
};

} // namespace

TEST_F(ViaDefConflict, IsToldWhenReferencesAreSet) {
    makeVia(base, "via", 1);
    makeVia(metal, "via", 11);
    news.take();
    chip->setRefs(refsTo({base, metal}));
    EXPECT_EQ(news.take(),
              (News{"modify chip 6", "modified chip 6", "conflict 6 chip: base:via metal:via"}));
    EXPECT_FALSE(chip->validate());
    EXPECT_EQ(news.take(), News{"conflict 6 chip: base:via metal:via"});
}

TEST_F(ViaDefConflict, IsToldWhenADefinitionIsMade) {
    chip->setRefs(refsTo({base, metal}));
    makeVia(base, "via", 1);
    news.take();
    makeVia(metal, "via2", 11);
    EXPECT_EQ(news.take(), News());
    makeVia(metal, "via", 21);
    EXPECT_EQ(news.take(), News{"conflict 6 chip: base:via metal:via"});
}

TEST_F(ViaDefConflict, IsToldBetweenATechnologyAndOneThatItRefersTo) {
    chip->setRefs(refsTo({base}));
    makeVia(chip, "via", 1);
    news.take();
    makeVia(base, "via", 11);
    EXPECT_EQ(news.take(), News{"conflict 6 chip: chip:via base:via"});
}

TEST_F(ViaDefConflict, IsToldWhenTheTechnologyIsOpened) {
    chip->setRefs(refsTo({base, metal}));
    makeVia(base, "via", 1);
    makeVia(metal, "via", 11);
    chip->save();
    chip->close();
    news.take();
    oaTech::open(chip.lib(), 'r');
    EXPECT_EQ(news.take(), (News{"open refs chip", "opened refs chip", "open chip",
                                 "conflict 6 chip: base:via metal:via"}));
}
