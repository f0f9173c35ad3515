#include "recording_pcell.h"

#include <oatest/pcell_links.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace oa;
using namespace ovalis::test;
using ::testing::StartsWith;

namespace {

using Names = std::vector<std::string>;

std::string refusal(oaUInt4 id, void (*call)()) {
    try {
        call();
    } catch (const oaDesignError& error) {
        return error.getMsgId() == id ? std::string(error.getMsg()) : "another error";
    }
    return "nothing";
}

} // namespace

TEST(PcellLink, MakesAnEvaluatorKnownUnderItsName) {
    auto* evaluator = new RecordingPcell("inductor");
    oaPcellLink* link = oaPcellLink::create(evaluator);
    EXPECT_EQ(evaluator->takeCalls(), Names{"getName"});
    EXPECT_EQ(oaPcellLink::find("inductor"), link);
    EXPECT_EQ(link->getIPcell(), evaluator);
    EXPECT_EQ(oaPcellLink::find("capacitor"), nullptr);
    link->destroy();
    EXPECT_EQ(oaPcellLink::find("inductor"), nullptr);
}

TEST(PcellLink, HoldsAReferenceToItsEvaluator) {
    const int before = RecordingPcell::destroyed();
    oaPcellLink* link = oaPcellLink::create(new RecordingPcell);
    EXPECT_EQ(RecordingPcell::destroyed(), before);
    link->destroy();
    EXPECT_EQ(RecordingPcell::destroyed(), before + 1);
}

TEST(PcellLink, OfNoEvaluatorIsNone) {
    EXPECT_EQ(oaPcellLink::create(nullptr), nullptr);
    EXPECT_EQ(oatest::pcellLinkNames(), Names());
}

TEST(PcellLink, TakesItsName) {
    oaPcellLink* link = oaPcellLink::create(new RecordingPcell);
    static RecordingPcell second;
    EXPECT_EQ(refusal(oacPcellLinkExists, [] { oaPcellLink::create(&second); }),
              "A pcell evaluator named 'recording' is already registered.");
    EXPECT_NE(oaPcellLink::find("recording")->getIPcell(), &second);
    link->destroy();
}

TEST(PcellLink, HandsOutDefinitionsOfItsEvaluator) {
    auto* evaluator = new RecordingPcell;
    oaPcellLink* link = oaPcellLink::create(evaluator);
    oaPcellDef* def = oaPcellLink::getPcellDef("recording");
    EXPECT_EQ(def->getIPcell(), evaluator);
    EXPECT_EQ(evaluator->takeCalls(), (Names{"getName", "getPcellDef"}));
    evaluator->onUnbind(nullptr, def);
    EXPECT_THAT(refusal(oacPcellEvaluatorNotFound, [] { oaPcellLink::getPcellDef("capacitor"); }),
                StartsWith("There is no pcell evaluator named 'capacitor'. Plug-in 'capacitor': "
                           "there is no capacitor.plg in "));
    link->destroy();
}

TEST(PcellLink, IsListedInTheOrderOfItsMaking) {
    oaPcellLink* first = oaPcellLink::create(new RecordingPcell("z"));
    oaPcellLink* second = oaPcellLink::create(new RecordingPcell("a"));
    oaPcellLink* third = oaPcellLink::create(new RecordingPcell("m"));
    EXPECT_EQ(oatest::pcellLinkNames(), (Names{"z", "a", "m"}));
    second->destroy();
    EXPECT_EQ(oatest::pcellLinkNames(), (Names{"z", "m"}));
    first->destroy();
    third->destroy();
}
