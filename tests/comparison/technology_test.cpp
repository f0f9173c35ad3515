#include "comparison/technologies.h"

#include <gmock/gmock.h>

#include "log.h"
#include "support/library_fixture.h"

namespace comparison::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// The technologies of two libraries.
class TechnologyTest : public ovalis::test::FolderTest {
protected:
    TechnologyTest()
        : wasLib_(ovalis::createLib(pathOf("was"), "was")),
          isLib_(ovalis::createLib(pathOf("is"), "is")),
          was_(oa::oaTech::open(wasLib_.get(), 'a')),
          is_(oa::oaTech::open(isLib_.get(), 'a')) {}

    oa::oaTech* was() { return was_; }
    oa::oaTech* is() { return is_; }

    template <class Action>
    void inBoth(Action action) {
        action(was_);
        action(is_);
    }

    Lines differences() {
        Log log;
        compareTechnologies(Place("at", log), *was_, *is_, {"was", "is"});
        for (std::string& line : log.lines)
            line.erase(0, 4);
        return log.lines;
    }

private:
    ovalis::LibPtr wasLib_;
    ovalis::LibPtr isLib_;
    oa::oaTech* was_;
    oa::oaTech* is_;
};

oa::oaPhysicalLayer* metal(oa::oaTech* tech, const char* name, oa::oaLayerNum number) {
    return oa::oaPhysicalLayer::create(tech, name, number, oa::oacMetalMaterial);
}

TEST_F(TechnologyTest, WithEverythingInAnotherOrderIsTheSame) {
    const auto fill = [](oa::oaTech* tech, bool turned) {
        oa::oaPhysicalLayer* layers[2] = {};
        for (const int at : {turned ? 1 : 0, turned ? 0 : 1})
            layers[at] = metal(tech, at == 0 ? "M1" : "M2", oa::oaLayerNum(at + 1));
        oa::oaDerivedLayer::create(layers[0], layers[1], oa::oacAndLayerOp, "both", 3);
        oa::oaSizedLayer::create(layers[0], oa::oacGrowSizeOp, 50, "wide", 4);
        oa::oaPurpose::create(tech, "port", 240);
        oa::oaIntValue::create(tech, turned ? 2 : 1);
        oa::oaIntValue::create(tech, turned ? 1 : 2);
        oa::oaStringProp::create(tech, "name", "technology");
        oa::oaGroupMember::create(oa::oaGroup::create(tech, "g"), layers[0]);
    };
    fill(was(), false);
    fill(is(), true);
    EXPECT_THAT(differences(), IsEmpty());
}

TEST_F(TechnologyTest, EverySettingIsOneLine) {
    const oa::oaViewType* const layout = oa::oaViewType::get(oa::oacMaskLayout);
    was()->setDBUPerUU(layout, 1000);
    is()->setDBUPerUU(layout, 2000);
    is()->setUserUnits(layout, oa::oacMillimeter);
    is()->setDefaultManufacturingGrid(5);
    is()->setProcessFamily("fast");
    is()->setGateGrounded(true);
    is()->setClearanceMeasure(oa::oacMaxXYClearanceMeasure);
    oa::oaIntProp::create(is(), "N", 1);
    EXPECT_THAT(differences(),
                ElementsAre("technology: clearance measure was none, is maxXY",
                            "technology: database units per user unit of maskLayout was 1000, is "
                            "2000",
                            "technology: gate grounded was none, is yes",
                            "technology: manufacturing grid was none, is 5",
                            "technology: process family was none, is \"fast\"",
                            "technology: property \"N\" added: int 1",
                            "technology: user unit of maskLayout was none, is millimeter"));
}

TEST_F(TechnologyTest, LayersAndPurposesComeGoAndAreRenamed) {
    inBoth([](oa::oaTech* tech) {
        metal(tech, "M1", 1);
        oa::oaPurpose::create(tech, "port", 240);
    });
    metal(was(), "M2", 2);
    metal(is(), "Metal2", 2);
    metal(was(), "M3", 3);
    metal(is(), "M4", 4);
    oa::oaLayer::find(is(), "M1")->setNumber(11);
    oa::oaPurpose::find(is(), "port")->setName("pins");
    EXPECT_THAT(differences(), ElementsAre("layer \"M1\": number was 1, is 11",
                                           "layer \"M2\" renamed to "
                                           "\"Metal2\"",
                                           "layer \"M3\" removed", "layer \"M4\" added",
                                           "purpose \"port\" renamed to \"pins\""));
}

TEST_F(TechnologyTest, EveryAttributeOfALayerIsOneLine) {
    inBoth([](oa::oaTech* tech) {
        metal(tech, "M1", 1);
        metal(tech, "M2", 2);
    });
    auto* const layer = oa::oaPhysicalLayer::find(is(), "M1");
    layer->setMaterial(oa::oacPolyMaterial);
    layer->setMaskNumber(7);
    layer->setPrefRoutingDir(oa::oacVertPrefRoutingDir);
    layer->setManufacturingGrid(5);
    oa::oaLayerArray excluded;
    excluded.append(2);
    layer->setExcludedLayers(excluded);
    oa::oaIntProp::create(layer, "thickness", 900);
    EXPECT_THAT(differences(),
                ElementsAre("layer \"M1\": excluded layers was none, is 2",
                            "layer \"M1\": manufacturing grid was 0, is 5",
                            "layer \"M1\": mask number was none, is 7",
                            "layer \"M1\": material was metal, is poly",
                            "layer \"M1\": property \"thickness\" added: int 900",
                            "layer \"M1\": routing direction was notApplicable, is vertical"));
}

TEST_F(TechnologyTest, DerivedAndSizedLayersSayHowTheyAreMade) {
    const auto fill = [](oa::oaTech* tech, bool second) {
        oa::oaLayer* const first = metal(tech, "M1", 1);
        oa::oaLayer* const other = metal(tech, "M2", 2);
        oa::oaDerivedLayer::create(first, other, second ? oa::oacOrLayerOp : oa::oacAndLayerOp,
                                   "both", 3);
        oa::oaSizedLayer::create(first, oa::oacGrowSizeOp, second ? 60 : 50, "wide", 4);
    };
    fill(was(), false);
    fill(is(), true);
    EXPECT_THAT(differences(), ElementsAre("layer \"both\": definition was \"AND\", is \"OR\"",
                                           "layer \"wide\": size was 50, is 60"));
}

TEST_F(TechnologyTest, ValuesOfEveryKindDiffer) {
    const auto fill = [](oa::oaTech* tech, oa::oaInt4 n) {
        oa::oaIntValue::create(tech, n);
        oa::oaFltValue::create(tech, 0.5f * oa::oaFloat(n));
        oa::oaBooleanValue::create(tech, n == 1);
        oa::oaUInt8Value::create(tech, oa::oaUInt8(n));
        oa::oaLayerValue::create(tech, oa::oaLayerNum(n));
        oa::oaDualIntValue::create(tech, n, -n);
        oa::oaIntRangeValue::create(tech, oa::oaIntRange(oa::oacClosedRangeType, 0, n));
        oa::oaUInt8RangeValue::create(tech,
                                      oa::oaUInt8Range(oa::oacOpenRangeType, 0, oa::oaUInt8(n)));
        oa::oaStringValue::create(tech, n == 1 ? "one" : "two");
    };
    fill(was(), 1);
    fill(is(), 2);
    oa::oaIntValue::create(is(), 9);
    EXPECT_THAT(differences(),
                ElementsAre("BooleanValue yes: value was yes, is no",
                            "DualIntValue 1 -1: value was 1 -1, is 2 -2",
                            "FltValue 0.5: value was 0.5, is 1",
                            "IntRangeValue closed 0:1: value was closed 0:1, is closed 0:2",
                            "IntValue 1: value was 1, is 2", "LayerValue 1: value was 1, is 2",
                            "StringValue \"one\": value was \"one\", is \"two\"",
                            "UInt8RangeValue open 0:1: value was open 0:1, is open 0:2",
                            "UInt8Value 1: value was 1, is 2", "IntValue 9 added"));
}

TEST_F(TechnologyTest, ReferencesDiffer) {
    const ovalis::LibPtr base = ovalis::createLib(pathOf("base"), "base");
    oa::oaTechArray refs;
    refs.append(oa::oaTech::open(base.get(), 'r'));
    is()->setRefs(refs);
    EXPECT_THAT(differences(), ElementsAre("technology: references was none, is base"));
    is()->unsetRefs();
}

TEST_F(TechnologyTest, DefinitionsOfViasAndSitesDiffer) {
    const auto fill = [](oa::oaTech* tech, bool second) {
        oa::oaPhysicalLayer* const first = metal(tech, "M1", 1);
        oa::oaPhysicalLayer* const other = metal(tech, "M2", 2);
        oa::oaViaParam params;
        params.setCutColumns(second ? 3 : 2);
        params.setCutSpacing(oa::oaVector(5, 6));
        if (second)
            params.setCutPatternVal(0, 1, false);
        oa::oaStdViaDef::create(tech, "via", first, other, params)
            ->setResistancePerCut(second ? 0.5f : 0.25f);
        const oa::oaNativeNS ns;
        oa::oaCustomViaDef::create(tech, "own", oa::oaScalarName(ns, second ? "is" : "was"),
                                   oa::oaScalarName(ns, "drawn"), oa::oaScalarName(ns, "layout"),
                                   first, other);
        oa::oaScalarSiteDef::create(tech, "site", oa::oacCoreSiteDefType, 10, second ? 21 : 20);
    };
    fill(was(), false);
    fill(is(), true);
    oa::oaScalarSiteDef::create(is(), "pad", oa::oacPadSiteDefType, 10, 10);
    EXPECT_THAT(differences(),
                ElementsAre("via definition \"via\": cut columns was 2, is 3",
                            "via definition \"via\": cuts taken out was none, is 0,1",
                            "via definition \"via\": resistance per cut was 0.25, is 0.5",
                            "site definition \"site\": height was 20, is 21",
                            "site definition \"pad\" added"));
}

TEST_F(TechnologyTest, GroupsDiffer) {
    inBoth([](oa::oaTech* tech) {
        metal(tech, "M1", 1);
        oa::oaGroup::create(tech, "g");
    });
    oa::oaIter<oa::oaGroup> groups(is()->getGroups());
    oa::oaGroupMember::create(groups.getNext(), oa::oaLayer::find(is(), "M1"));
    EXPECT_THAT(differences(), ElementsAre("group \"g\": member layer \"M1\" added"));
}

} // namespace
} // namespace comparison::test
