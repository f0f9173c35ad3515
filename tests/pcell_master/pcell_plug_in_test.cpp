#include "recording_pcell.h"

#include "support/environment_override.h"
#include "support/files.h"
#include "support/temporary_directory.h"

#include <oatest/pcell_links.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace oa;
using namespace ovalis::test;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

namespace {

/// A library, and plug-ins in reach while the object lives.
class PcellPlugIn : public testing::Test {
protected:
    PcellPlugIn() : lib(oaLib::create(name("lib"), (directory.str() + "/lib").c_str())) {}
    ~PcellPlugIn() override {
        lib->close();
        for (const std::string& each : oatest::pcellLinkNames())
            oaPcellLink::find(each.c_str())->destroy();
    }

    static oaScalarName name(const char* text) { return oaScalarName(oaNativeNS(), text); }

    static oaDesign* open(oaChar mode) {
        return oaDesign::open(name("lib"), name("coil"), name("layout"),
                              oaViewType::get(oacMaskLayout), mode);
    }

    /// Stores a super master of the evaluator `plugIn`.
    static void save(const char* plugIn) {
        oaParamArray params;
        params.append(oaParam("length", oaDouble(4)));
        params.append(oaParam("width", oaDouble(2)));
        oaDesign* design = open('w');
        design->defineSuperMaster(oaPcellLink::getPcellDef(plugIn), params);
        design->save();
        design->close();
    }

    TemporaryDirectory directory;
    EnvironmentOverride path{"OA_PLUGIN_PATH", TEST_PLUG_INS};
    oaLib* lib;
};

} // namespace

TEST_F(PcellPlugIn, BecomesALinkWhenItIsAskedFor) {
    EXPECT_THAT(oatest::pcellLinkNames(), IsEmpty());
    oaPcellLink* link = oaPcellLink::find("stripe");
    ASSERT_NE(link, nullptr);
    EXPECT_EQ(oaPcellLink::find("stripe"), link);
    EXPECT_THAT(oatest::pcellLinkNames(), ElementsAre("stripe"));
    oaString evaluator;
    link->getIPcell()->getName(evaluator);
    EXPECT_EQ(evaluator, "stripe");
}

TEST_F(PcellPlugIn, IsMadeByTheTextOfAString) {
    const SPtr<IPcell> evaluator{oaString("stripe")};
    oaPcellDef* def = evaluator->getPcellDef();
    EXPECT_EQ(def->getIPcell(), evaluator.getRef());
    evaluator->onUnbind(nullptr, def);
}

TEST_F(PcellPlugIn, IsLoadedOnlyWhenItIsNotKnownAlready) {
    auto* known = new RecordingPcell("stripe");
    oaPcellLink* link = oaPcellLink::create(known);
    EXPECT_EQ(oaPcellLink::find("stripe"), link);
    EXPECT_EQ(oaPcellLink::find("stripe")->getIPcell(), known);
}

TEST_F(PcellPlugIn, IsNotLookedForWhenAnEvaluatorIsMadeKnown) {
    auto* known = new RecordingPcell("stripe");
    EXPECT_EQ(oaPcellLink::create(known)->getIPcell(), known);
    EXPECT_THAT(oatest::pcellLinkNames(), ElementsAre("stripe"));
}

TEST_F(PcellPlugIn, IsAlsoKnownUnderTheNameThatIsTreatedAsIt) {
    oaPcellLink* link = oaPcellLink::find("bar");
    ASSERT_NE(link, nullptr);
    EXPECT_EQ(oaPcellLink::find("bar"), link);
    EXPECT_THAT(oatest::pcellLinkNames(), ElementsAre("bar"));
}

TEST_F(PcellPlugIn, HandsOutDefinitions) {
    oaPcellDef* def = oaPcellLink::getPcellDef("stripe");
    EXPECT_EQ(def->getIPcell(), oaPcellLink::find("stripe")->getIPcell());
    def->getIPcell()->onUnbind(nullptr, def);
}

TEST_F(PcellPlugIn, IsNoneWhenItIsNotFoundOrNotAnEvaluator) {
    EXPECT_EQ(oaPcellLink::find("nobody"), nullptr);
    EXPECT_EQ(oaPcellLink::find(""), nullptr);
    EXPECT_EQ(oaPcellLink::find("mute"), nullptr);
    EXPECT_EQ(oaPcellLink::find("answer"), nullptr);
    EXPECT_THAT(oatest::pcellLinkNames(), IsEmpty());
}

TEST_F(PcellPlugIn, TellsWhyItGivesNoDefinition) {
    const auto reason = [](const char* plugIn) {
        try {
            oaPcellLink::getPcellDef(plugIn);
        } catch (const oaDesignError& error) {
            EXPECT_EQ(error.getMsgId(), oaUInt4(oacPcellEvaluatorNotFound));
            return std::string(error.getMsg());
        }
        return std::string("nothing");
    };
    EXPECT_THAT(reason("mute"), HasSubstr("There is no pcell evaluator named 'mute'. Plug-in "
                                          "'mute': the module "));
    EXPECT_THAT(reason("answer"), HasSubstr("does not have the interface that is needed"));
}

TEST_F(PcellPlugIn, IsLoadedWhenASuperMasterIsOpened) {
    save("stripe");
    oaPcellLink::find("stripe")->destroy();
    oaDesign* design = open('r');
    EXPECT_THAT(oatest::pcellLinkNames(), ElementsAre("stripe"));
    ASSERT_NE(design->getPcellDef(), nullptr);
    EXPECT_EQ(design->getPcellDef()->getIPcell(), oaPcellLink::find("stripe")->getIPcell());
    design->close();
}

TEST_F(PcellPlugIn, MayBeMissingWhenASuperMasterIsOpened) {
    save("stripe");
    oaPcellLink::find("stripe")->destroy();
    const EnvironmentOverride elsewhere("OA_PLUGIN_PATH", directory.str());
    oaDesign* design = open('r');
    EXPECT_TRUE(design->isSuperMaster());
    EXPECT_EQ(design->getPcellDef(), nullptr);
    design->close();
    // A description that leads nowhere is no worse than none.
    writeText(directory.path() / "stripe.plg", "<plugIn lib='no_such_module'/>");
    design = open('r');
    EXPECT_TRUE(design->isSuperMaster());
    EXPECT_EQ(design->getPcellDef(), nullptr);
    design->close();
}

TEST_F(PcellPlugIn, FillsSubmasters) {
    save("stripe");
    oaPcellLink::find("stripe")->destroy();
    oaParamArray params;
    params.append(oaParam("length", oaDouble(7)));
    oaDesign* submaster = oaDesign::open(name("lib"), name("coil"), name("layout"), params);
    ASSERT_NE(submaster, nullptr);
    oaBox box;
    submaster->getTopBlock()->getBBox(box);
    EXPECT_TRUE(box == oaBox(0, 0, 7000, 2000));
    submaster->close();
}
