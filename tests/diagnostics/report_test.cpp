// What a collector renders.

#include <gtest/gtest.h>

#include "diagnostics/collector_fixture.h"

using namespace ovalis;
using ovalis::test::collectorUnder;

namespace {

/// A collector with messages of five origins.
class Report : public ::testing::Test {
protected:
    Report() {
        collector_.addMessage(msgCollector::Tech, "LayerName", "mostDerivedTech(Lib)=top");
        collector_.addMessage(msgCollector::Tech, "LayerName", "mostDerivedTech(Lib)=other");
        collector_.addMessage(msgCollector::Pcell, "lib/b/layout", "Error[1]: second");
        collector_.addMessage(msgCollector::Pcell, "lib/a/layout", "Error[1]: first");
        collector_.addMessage(msgCollector::LibDefs, "onLoadWarning[3]\n", "missing");
        collector_.addMessage(msgCollector::LibDefs, "onLoadWarning[3]\n", "broken");
        collector_.addMessage(msgCollector::LibDefs, "onLoadWarning[4]\n", "other");
        collector_.addMessage(msgCollector::Iprop, "I1", "w=2");
        collector_.addMessage(msgCollector::AppDef, "angle", "AppIntDef");
    }

    msgCollector collector_ = collectorUnder("0");
};

const char* const chapters = "  AppDef:\n"
                             "    angle: AppIntDef\n"
                             "  Iprop:\n"
                             "    I1: w=2\n"
                             "  LibDefs:\n"
                             "    onLoadWarning[3]\n"
                             ":\n"
                             "      missing\n"
                             "      broken\n"
                             "    onLoadWarning[4]\n"
                             ": other\n"
                             "  Pcell:\n"
                             "    lib/a/layout: Error[1]: first\n"
                             "    lib/b/layout: Error[1]: second\n"
                             "  Tech:\n"
                             "    LayerName:\n"
                             "      mostDerivedTech(Lib)=top\n"
                             "      mostDerivedTech(Lib)=other\n";

const char* const conflicts = "AppDef info:\n"
                              "  angle: AppIntDef\n"
                              "Tech info:\n"
                              "  LayerName:\n"
                              "    mostDerivedTech(Lib)=top\n"
                              "    mostDerivedTech(Lib)=other\n";

const char* const definitions = "LibDef warnings:\n"
                                "  onLoadWarning[3]:\n"
                                "    missing\n"
                                "    broken\n"
                                "  onLoadWarning[4]: other\n";

} // namespace

TEST_F(Report, OfEverythingStandsBetweenHeadAndEnd) {
    EXPECT_EQ(collector_.getMessageLog("all-wh"),
              "OA report summary:\n" + std::string(chapters) + "OA report summary end\n");
}

TEST_F(Report, OfEverythingComesWithoutHeadAndEnd) {
    EXPECT_EQ(collector_.getMessageLog("all"), chapters);
}

TEST_F(Report, OfAChapterStandsUnderItsDisplayName) {
    EXPECT_EQ(collector_.getMessageLog("Pcell"), "PCell errors:\n"
                                                 "  lib/a/layout: Error[1]: first\n"
                                                 "  lib/b/layout: Error[1]: second\n");
    EXPECT_EQ(collector_.getMessageLog("LibDefs"), definitions);
    EXPECT_EQ(collector_.getMessageLog("Iprop"), "Instance properties:\n  I1: w=2\n");
}

TEST_F(Report, OfConflictsHasTheChaptersOfDefinitionsAndTechnologies) {
    EXPECT_EQ(collector_.getMessageLog("conflict"), conflicts);
    collector_.addMessage(msgCollector::GroupDef, "g", "Inst");
    collector_.addMessage(msgCollector::DerivedLayerDef, "d", "conflict");
    collector_.addMessage(msgCollector::DerivedLayerParamDef, "p", "IntValue");
    EXPECT_EQ(collector_.getMessageLog("conflict"), "AppDef info:\n"
                                                    "  angle: AppIntDef\n"
                                                    "DerivedLayerDef info:\n"
                                                    "  d: conflict\n"
                                                    "DerivedLayerParamDef info:\n"
                                                    "  p: IntValue\n"
                                                    "GroupDef info:\n"
                                                    "  g: Inst\n"
                                                    "Tech info:\n"
                                                    "  LayerName:\n"
                                                    "    mostDerivedTech(Lib)=top\n"
                                                    "    mostDerivedTech(Lib)=other\n");
}

TEST_F(Report, OfWarningsHasLibraryDefinitionsAndConflicts) {
    EXPECT_EQ(collector_.getMessageLog("warning"), std::string(definitions) + conflicts);
}

TEST_F(Report, OfWhatIsMissingIsEmpty) {
    EXPECT_EQ(collector_.getMessageLog("Layer"), "");
    EXPECT_EQ(collector_.getMessageLog("Warning"), "");
    EXPECT_EQ(collector_.getMessageLog(""), "");
    EXPECT_EQ(collector_.getMessageLog("Layer", "LayerName"), "");
    EXPECT_EQ(collector_.getMessageLog("Tech", "LayerNum"), "");
}

TEST_F(Report, OfNothingIsEmptyWithoutHead) {
    collector_.clear();
    for (const char* key : {"all-wh", "all", "warning", "conflict", "Pcell", "LibDefs"}) {
        EXPECT_EQ(collector_.getMessageLog(key), "") << key;
    }
}

TEST_F(Report, OfAParagraphIsNotIndented) {
    EXPECT_EQ(collector_.getMessageLog("Iprop", "I1"), "I1: w=2\n");
    EXPECT_EQ(collector_.getMessageLog("Tech", "LayerName"), "LayerName:\n"
                                                             "  mostDerivedTech(Lib)=top\n"
                                                             "  mostDerivedTech(Lib)=other\n");
    EXPECT_EQ(collector_.getMessageLog("LibDefs", "onLoadWarning[4]\n"),
              "onLoadWarning[4]: other\n");
}

TEST_F(Report, GivesTheLinesOfAParagraphBehindAPrefix) {
    EXPECT_EQ(collector_.getItemMessageLog("Tech", "LayerName", "> "),
              "> mostDerivedTech(Lib)=top\n> mostDerivedTech(Lib)=other\n");
    EXPECT_EQ(collector_.getItemMessageLog("Tech", "LayerNum", "> "), "");
    EXPECT_EQ(collector_.getItemMessageLog("Layer", "LayerName", "> "), "");
}

TEST_F(Report, GivesTheFirstLineOfAParagraphBehindAPrefix) {
    EXPECT_EQ(collector_.getItemMessageHead("Tech", "LayerName", "> "),
              "> mostDerivedTech(Lib)=top\n");
    EXPECT_EQ(collector_.getItemMessageHead("Tech", "LayerNum", "> "), "");
}
