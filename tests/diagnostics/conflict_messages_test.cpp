// Conflicts between technologies, and between databases and the session, reach the collectors.

#include <algorithm>
#include <array>

#include "diagnostics/collector_fixture.h"
#include "support/library_fixture.h"
#include "support/places.h"
#include "support/run_program.h"

using namespace ovalis;
using namespace oa;
using ovalis::test::Lines;
using ovalis::test::Setting;

namespace {

oaScalarName name(const char* text) {
    return oaScalarName(oaNativeNS(), text);
}

/// Three libraries with technologies, of which "chip" is to refer to both others.
class TechMessages : public test::FolderTest {
protected:
    TechMessages() {
        for (const char* lib : {"base", "metal", "chip"}) {
            libs_.push_back(oaLib::create(name(lib), pathOf(lib).c_str()));
            techs_.push_back(oaTech::create(libs_.back()));
        }
    }
    ~TechMessages() override {
        for (auto lib = libs_.rbegin(); lib != libs_.rend(); ++lib) {
            (*lib)->close();
        }
    }

    oaTech* base() { return techs_[0]; }
    oaTech* metal() { return techs_[1]; }
    oaTech* chip() { return techs_[2]; }

    void refer() {
        oaTechArray refs;
        refs.append(base());
        refs.append(metal());
        chip()->setRefs(refs);
    }

    /// The report of the conflicts of "chip".
    std::string conflicts() {
        const Setting setting("Tech");
        const msgCollector collector;
        refer();
        return collector.getMessageLog("Tech");
    }

private:
    std::vector<oaLib*> libs_;
    std::vector<oaTech*> techs_;
};

/// A library that another process made, with definitions of its own.
class ForeignMessages : public test::FolderTest {
protected:
    ForeignMessages() {
        const auto made = test::runProgram(test::builtProgram("foreign_tech"), {pathOf("foreign")});
        EXPECT_EQ(made.exitCode, 0) << made.output;
        lib_ = oaLib::open(name("foreign"), pathOf("foreign").c_str());
    }
    ~ForeignMessages() override { lib_->close(); }

    void open() { oaTech::open(lib_); }

private:
    oaLib* lib_;
};

} // namespace

TEST_F(TechMessages, TellOfLayers) {
    oaPhysicalLayer::create(base(), "m1", 1);
    oaPhysicalLayer::create(metal(), "m1", 2);
    oaPhysicalLayer::create(base(), "m3", 3);
    oaPhysicalLayer::create(metal(), "m4", 3);
    EXPECT_EQ(conflicts(), "Tech info:\n"
                           "  LayerName: mostDerivedTech(Lib)=chip\n"
                           "  LayerNum: mostDerivedTech(Lib)=chip\n");
}

TEST_F(TechMessages, TellOfDerivedLayers) {
    for (int i = 0; i < 2; ++i) {
        oaTech* tech = i == 0 ? base() : metal();
        const std::string suffix = std::to_string(i);
        oaLayer* one = oaPhysicalLayer::create(tech, ("a" + suffix).c_str(), 1);
        oaLayer* two = oaPhysicalLayer::create(tech, ("b" + suffix).c_str(), 2);
        oaDerivedLayer::create(one, two, oacAndLayerOp, ("both" + suffix).c_str(),
                               oaLayerNum(10 + i));
    }
    EXPECT_EQ(conflicts(), "Tech info:\n"
                           "  DerivedLayer: mostDerivedTech(Lib)=chip\n"
                           "  LayerNum: mostDerivedTech(Lib)=chip\n");
}

TEST_F(TechMessages, TellOfDefinitionsOfViasAndSites) {
    for (int i = 0; i < 2; ++i) {
        oaTech* tech = i == 0 ? base() : metal();
        const std::string suffix = std::to_string(i);
        oaScalarSiteDef::create(tech, "core", oacCoreSiteDefType, 10, 20);
        oaStdViaDef::create(
            tech, "via", oaPhysicalLayer::create(tech, ("a" + suffix).c_str(), oaLayerNum(i)),
            oaPhysicalLayer::create(tech, ("b" + suffix).c_str(), oaLayerNum(10 + i)),
            oaViaParam());
    }
    EXPECT_EQ(conflicts(), "Tech info:\n"
                           "  SiteDefName: mostDerivedTech(Lib)=chip\n"
                           "  ViaDefName: mostDerivedTech(Lib)=chip\n");
}

TEST_F(TechMessages, TellOfPurposes) {
    oaPurpose::create(base(), "pin", 1);
    oaPurpose::create(metal(), "pin", 2);
    oaPurpose::create(base(), "net", 3);
    oaPurpose::create(metal(), "label", 3);
    EXPECT_EQ(conflicts(), "Tech info:\n"
                           "  PurposeName: mostDerivedTech(Lib)=chip\n"
                           "  PurposeNum: mostDerivedTech(Lib)=chip\n");
}

TEST_F(TechMessages, TellOfEachTechnologyOfAnotherProcessFamily) {
    base()->setProcessFamily("rf40");
    metal()->setProcessFamily("rf28");
    chip()->setProcessFamily("cmos");
    EXPECT_EQ(conflicts(), "Tech info:\n"
                           "  ProcessFamilyConflict:\n"
                           "    chip|cmos\n"
                           "    base|rf40\n"
                           "    metal|rf28\n");
}

// "chip" has the family of "metal" from there, which is not its own.
TEST_F(TechMessages, TellOfOwnProcessFamiliesInTheOrderGiven) {
    metal()->setProcessFamily("rf28");
    refer();
    oaString inherited;
    chip()->getProcessFamily(inherited);
    EXPECT_EQ(inherited, "rf28");
    const Setting setting("Tech");
    const msgCollector collector;
    oaTechArray techs;
    for (oaTech* tech : {metal(), chip(), base()}) {
        techs.append(tech);
    }
    oaVersionedObserver<oaTech, 2>::notifyProcessFamilyConflictObservers(techs);
    EXPECT_EQ(collector.getLines("Tech", "ProcessFamilyConflict"),
              (Lines{"metal|rf28", "chip|", "base|"}));
}

TEST_F(TechMessages, TellOfExcludedLayers) {
    oaPhysicalLayer* thick = oaPhysicalLayer::create(base(), "thick", 1);
    oaPhysicalLayer::create(metal(), "thin", 4294966519U);
    oaLayerArray excluded;
    excluded.append(4294966519U);
    thick->setExcludedLayers(excluded);
    EXPECT_EQ(conflicts(),
              "Tech info:\n"
              "  ExcludedLayerConflict:   mostDerivedTechLibName=chip  excludingLayer#1='thick'"
              "  excludedLayer#-777='thin'\n"
              "\n");
}

TEST_F(TechMessages, AreToldWhenATechnologyIsOpened) {
    oaPhysicalLayer::create(base(), "m1", 1);
    oaPhysicalLayer::create(metal(), "m1", 2);
    refer();
    for (oaTech* tech : {base(), metal(), chip()}) {
        tech->save();
    }
    chip()->close();
    const Setting setting("Tech");
    const msgCollector collector;
    oaTech::open(name("chip"), 'r');
    EXPECT_EQ(collector.getLines("Tech", "LayerName"), Lines{"mostDerivedTech(Lib)=chip"});
}

TEST_F(TechMessages, HaveAKeyForEveryKindOfConflict) {
    const std::array<const char*, 15> keys = {
        "LayerName",       "LayerNum",         "DerivedLayer",        "PurposeName",
        "PurposeNum",      "SiteDefName",      "ViaDefName",          "ViaSpec",
        "AnalysisLibName", "ConstraintName",   "ConstraintGroupName", "ViaVariantName",
        "StdViaVariant",   "CustomViaVariant", "Conflict[14]"};
    const Setting setting("Tech");
    msgCollector collector;
    for (std::size_t kind = 0; kind < keys.size(); ++kind) {
        collector.clear();
        oaVersionedObserver<oaTech, 2>::notifyConflictObservers(
            chip(), static_cast<oaTechConflictTypeEnum>(kind), oaObjectArray());
        EXPECT_EQ(collector.getAvailableParagraphKeys("Tech"), Lines{keys[kind]});
    }
}

TEST_F(TechMessages, AreNotCollectedWithoutTheirOrigin) {
    oaPhysicalLayer::create(base(), "m1", 1);
    oaPhysicalLayer::create(metal(), "m1", 2);
    const Setting setting(std::nullopt);
    const msgCollector collector;
    refer();
    EXPECT_EQ(collector.getAvailableChapterKeys_ordered(), Lines());
}

TEST_F(TechMessages, OfATechnologyThatIsGoneAreLost) {
    const Setting setting("Tech");
    const msgCollector collector;
    oaTech* gone = chip();
    gone->purge();
    EXPECT_NO_THROW((oaVersionedObserver<oaTech, 2>::notifyConflictObservers(
        gone, oacLayerNameTechConflictType, oaObjectArray())));
    EXPECT_EQ(collector.getAvailableChapterKeys_ordered(), Lines());
}

TEST_F(ForeignMessages, TellOfValuesAndTheirTypes) {
    oaDoubleAppDef<oaLayer>::get("foreign kind");
    oaIntAppDef<oaLayer>::get("foreign persistence", 0, false);
    const Setting setting("AppDef");
    const msgCollector collector;
    open();
    EXPECT_EQ(collector.getMessageLog("AppDef"), "AppDef info:\n"
                                                 "  foreign kind: AppIntDef\n"
                                                 "  foreign persistence: AppIntDef\n");
}

TEST_F(ForeignMessages, TellOfGroupDefinitionsAndTheirTypes) {
    oaTypeArray types;
    types.append(oacPhysicalLayerType);
    oaGroupDef* flat = oaFlatGroupDef::create("foreign flat", types, oaDBTypeArray());
    oaGroupDef* hier = oaHierGroupDef::create("foreign hier", types, oaDBTypeArray());
    const Setting setting("GroupDef");
    const msgCollector collector;
    open();
    flat->destroy();
    hier->destroy();
    EXPECT_EQ(collector.getMessageLog("GroupDef"), "GroupDef info:\n"
                                                   "  foreign flat: FlatGroupDef\n"
                                                   "  foreign hier: HierGroupDef\n");
}

TEST_F(ForeignMessages, TellOfDerivedLayerDefinitions) {
    oaDerivedLayerDef* def = oaDerivedLayerDef::create("foreign grow", 2);
    const Setting setting("DerivedLayerDef");
    const msgCollector collector;
    open();
    def->destroy();
    EXPECT_EQ(collector.getMessageLog("all"), "  DerivedLayerDef:\n"
                                              "    foreign grow: conflict\n");
}

TEST_F(ForeignMessages, TellOfParametersOfDerivedLayers) {
    oaDerivedLayerParamDef* def =
        oaDerivedLayerParamDef::create("foreign distance", oacFltValueType);
    const Setting setting("DerivedLayerParamDef");
    const msgCollector collector;
    open();
    def->destroy();
    EXPECT_EQ(collector.getMessageLog("all"), "  DerivedLayerParamDef:\n"
                                              "    foreign distance: IntValue\n");
}
