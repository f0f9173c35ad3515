#include "foreign_library.h"

using namespace oa;
using namespace ovalis::test;

namespace {

using News = std::vector<std::string>;

class DefNews : public oaVersionedObserver<oaDerivedLayerDef, 0>,
                public oaVersionedObserver<oaDerivedLayerParamDef, 0> {
public:
    DefNews()
        : oaVersionedObserver<oaDerivedLayerDef, 0>(1),
          oaVersionedObserver<oaDerivedLayerParamDef, 0>(1) {}

    News take() { return std::exchange(news_, {}); }

    void onPostCreate(oaDerivedLayerDef* def) override { news_.push_back("layer " + nameOf(def)); }
    void onPreDestroy(oaDerivedLayerDef* def) override {
        news_.push_back("no layer " + nameOf(def));
    }
    void onConflict(const oaString& name) override {
        news_.push_back("layer conflict " + std::string(name));
    }
    void onPostCreate(oaDerivedLayerParamDef* def) override {
        news_.push_back("param " + nameOf(def));
    }
    void onPreDestroy(oaDerivedLayerParamDef* def) override {
        news_.push_back("no param " + nameOf(def));
    }
    void onConflict(const oaString& name, oaType type) override {
        news_.push_back("param conflict " + std::string(name) + " " + std::string(type.getName()));
    }

private:
    News news_;
};

class DerivedLayerParam : public testing::Test {
protected:
    ~DerivedLayerParam() override { def->destroy(); }

    oaDerivedLayerParam* param(int value, oaTech* in) {
        return oaDerivedLayerParam::create(def, oaIntValue::create(in, value));
    }
    oaDerivedLayerParamArray params(int value) {
        oaDerivedLayerParamArray array;
        array.append(param(value, tech));
        return array;
    }

    NewTech tech{"chip"};
    oaLayer* m1 = oaPhysicalLayer::create(tech, "m1", 1);
    oaDerivedLayerParamDef* def = oaDerivedLayerParamDef::create("by", oacIntValueType);
    oaDerivedLayerDef* grow = oaDerivedLayerDef::get(oacGrowLayerOp);
};

int valueOf(const oaDerivedLayer* layer, const oaDerivedLayerParamDef* def) {
    oaDerivedLayerParamArray params;
    layer->getParams(params);
    const oaDerivedLayerParam* found = params.findParam(def);
    return found ? static_cast<oaIntValue*>(found->getValue())->get() : -1;
}

} // namespace

TEST_F(DerivedLayerParam, IsSavedWithItsLayer) {
    const oaDerivedLayerParamArray five = params(5);
    oaDerivedLayer* layer = oaDerivedLayer::create(tech, m1, grow, "wide", 2, &five);
    EXPECT_TRUE(layer->hasParams());
    EXPECT_TRUE(five[0]->isOwned());
    EXPECT_TRUE(five[0]->getValue()->isOwned());
    EXPECT_EQ(five[0]->getValue()->getOwner(), five[0]);
    EXPECT_EQ(five[0]->getType(), oacDerivedLayerParamType);
    tech.saveAndReopen();
    layer = oaDerivedLayer::find(tech, "wide");
    EXPECT_EQ(valueOf(layer, def), 5);
    EXPECT_EQ(tech->getValues().getCount(), 1u);
}

TEST_F(DerivedLayerParam, TellsLayersApart) {
    const oaDerivedLayerParamArray five = params(5);
    const oaDerivedLayerParamArray six = params(6);
    oaDerivedLayer* plain = oaDerivedLayer::create(tech, m1, grow, "plain", 2);
    oaDerivedLayer* byFive = oaDerivedLayer::create(tech, m1, grow, "five", 3, &five);
    oaDerivedLayer* bySix = oaDerivedLayer::create(tech, m1, grow, "six", 4, &six);
    EXPECT_EQ(oaDerivedLayer::find(tech, 1, grow), plain);
    EXPECT_EQ(oaDerivedLayer::find(tech, 1, grow, &five), byFive);
    EXPECT_EQ(oaDerivedLayer::find(tech, 1, grow, &six), bySix);
    const oaDerivedLayerParamArray seven = params(7);
    EXPECT_EQ(oaDerivedLayer::find(tech, 1, grow, &seven), nullptr);
    oaLayer* m2 = oaPhysicalLayer::create(tech, "m2", 5);
    oaDerivedLayer* both = oaDerivedLayer::create(m1, m2, oacAndLayerOp, "both", 6);
    EXPECT_EQ(oaDerivedLayer::find(m1, m2, oacAndLayerOp), both);
    EXPECT_EQ(oaDerivedLayer::find(m2, m1, oacAndLayerOp), nullptr);
    EXPECT_EQ(oaDerivedLayer::find(tech, 1, 5, oaDerivedLayerDef::get(oacAndLayerOp)), both);
}

TEST_F(DerivedLayerParam, IsReplacedAndCopiedBySettingThem) {
    const oaDerivedLayerParamArray five = params(5);
    oaDerivedLayer* layer = oaDerivedLayer::create(tech, m1, grow, "wide", 2, &five);
    layer->setParams(params(6));
    EXPECT_EQ(valueOf(layer, def), 6);
    EXPECT_FALSE(five[0]->isValid());
    oaDerivedLayerParamArray own;
    layer->getParams(own);
    oaDerivedLayer* other = oaDerivedLayer::create(tech, m1, grow, "other", 3, &own);
    EXPECT_EQ(valueOf(layer, def), 6);
    EXPECT_EQ(valueOf(other, def), 6);
    own[0]->setValue(oaIntValue::create(tech, 7));
    EXPECT_EQ(valueOf(layer, def), 7);
    EXPECT_EQ(valueOf(other, def), 6);
    layer->setParams(own);
    EXPECT_EQ(valueOf(layer, def), 7);
    layer->setParams(oaDerivedLayerParamArray());
    EXPECT_FALSE(layer->hasParams());
    other->destroy();
    EXPECT_EQ(tech->getValues().getCount(), 0u);
}

TEST_F(DerivedLayerParam, RefusesWhatDoesNotFit) {
    EXPECT_EQ(
        thrown<oaTechError>(oacInvalidDerivedLayerParam,
                            [&] { oaDerivedLayerParam::create(def, oaFltValue::create(tech, 1)); }),
        "A parameter 'by' of derived layers cannot be made: the value is of another type.");
    oaDerivedLayerParam* five = param(5, tech);
    EXPECT_EQ(thrown<oaTechError>(oacInvalidDerivedLayerParam,
                                  [&] { oaDerivedLayerParam::create(def, five->getValue()); }),
              "A parameter 'by' of derived layers cannot be made: the value belongs to another "
              "one.");
    EXPECT_EQ(thrown<oaTechError>(oacCannotDestroyOwnedValue, [&] { five->getValue()->destroy(); }),
              "The value belongs to a parameter and goes with it.");
    oaDerivedLayerParamArray twice;
    twice.append(five);
    twice.append(param(6, tech));
    EXPECT_EQ(
        thrown<oaTechError>(oacInvalidDerivedLayerParam,
                            [&] { oaDerivedLayer::create(tech, m1, grow, "wide", 2, &twice); }),
        "A parameter 'by' of derived layers cannot be on one layer twice.");
    EXPECT_EQ(oaLayer::find(tech, "wide"), nullptr);
    five->destroy();
    EXPECT_EQ(tech->getValues().getCount(), 2u);
}

TEST_F(DerivedLayerParam, OfADefinitionIsTakenOutOfATechnology) {
    const oaDerivedLayerParamArray five = params(5);
    oaDerivedLayer* layer = oaDerivedLayer::create(tech, m1, grow, "wide", 2, &five);
    def->remove(tech);
    EXPECT_FALSE(layer->hasParams());
    grow->remove(tech);
    EXPECT_FALSE(layer->isValid());
    EXPECT_TRUE(m1->isValid());
}

TEST(DerivedLayerParamDef, IsFoundByNameAndByBuiltInType) {
    oaDerivedLayerParamDef* def = oaDerivedLayerParamDef::create("width", oacFltValueType);
    EXPECT_EQ(oaDerivedLayerParamDef::find("width"), def);
    EXPECT_EQ(def->getValueType(), oacFltValueType);
    EXPECT_FALSE(def->isBuiltIn());
    EXPECT_TRUE(oaSession::get()->getDerivedLayerParamDefs().includes(def));
    EXPECT_EQ(thrown<oaTechError>(oacDerivedLayerParamDefExists,
                                  [] { oaDerivedLayerParamDef::create("width", oacIntValueType); }),
              "A definition of derived layer parameters named 'width' already exists.");
    def->destroy();
    EXPECT_EQ(oaDerivedLayerParamDef::find("width"), nullptr);
    EXPECT_EQ(thrown<oaTechError>(oacInvalidDerivedLayerParam,
                                  [] { oaDerivedLayerParamDef::create("width", oacRectType); }),
              "A parameter 'width' of derived layers cannot be defined: its type is none of "
              "values.");
    oaDerivedLayerParamDef* distance =
        oaDerivedLayerParamDef::get(oacDistanceDerivedLayerParamType);
    EXPECT_EQ(nameOf(distance), "distance");
    EXPECT_TRUE(distance->isBuiltIn());
    EXPECT_EQ(thrown<oaTechError>(oacDerivedLayerParamDefIsBuiltIn, [&] { distance->destroy(); }),
              "The definition 'distance' of derived layer parameters is built in.");
}

TEST(DerivedLayerDefs, TellWhenTheyComeAndGo) {
    DefNews news;
    oaDerivedLayerDef::create("around", 1)->destroy();
    oaDerivedLayerParamDef::create("width", oacIntValueType)->destroy();
    EXPECT_EQ(news.take(),
              (News{"layer around", "no layer around", "param width", "no param width"}));
}

TEST(DerivedLayerDefs, ThatATechnologyHasOtherwiseAreConflicts) {
    oaDerivedLayerDef* layerDef = oaDerivedLayerDef::create("foreign grow", 2);
    oaDerivedLayerParamDef* paramDef =
        oaDerivedLayerParamDef::create("foreign distance", oacFltValueType);
    {
        ForeignLibrary foreign;
        DefNews news;
        foreign.open();
        EXPECT_EQ(news.take(), (News{"layer conflict foreign grow",
                                     "param conflict foreign distance IntValue"}));
    }
    layerDef->destroy();
    paramDef->destroy();
}

TEST(DerivedLayerDefs, ThatOnlyATechnologyHasAreMade) {
    ForeignLibrary foreign;
    DefNews news;
    const oaDerivedLayer* layer = oaDerivedLayer::find(foreign.open(), "grown");
    EXPECT_EQ(news.take(), News());
    oaDerivedLayerParamArray params;
    layer->getParams(params);
    oaDerivedLayerParamDef* paramDef = params[0]->getDef();
    oaDerivedLayerDef* layerDef = layer->getDef();
    EXPECT_EQ(news.take(), (News{"param foreign distance", "layer foreign grow"}));
    EXPECT_EQ(paramDef->getValueType(), oacIntValueType);
    EXPECT_EQ(layerDef->getNumLayers(), 1u);
    paramDef->destroy();
    layerDef->destroy();
}

TEST(DerivedLayerDefs, TellByTheClassesThemselves) {
    DefNews news;
    oaVersionedObserver<oaDerivedLayerDef, 0>::notifyOnConflictObservers("around");
    oaVersionedObserver<oaDerivedLayerParamDef, 0>::notifyOnConflictObservers("width",
                                                                              oacIntValueType);
    EXPECT_EQ(news.take(), (News{"layer conflict around", "param conflict width IntValue"}));
}
