// Names of origins, and what a collector keeps.

#include <memory>

#include <gtest/gtest.h>

#include "diagnostics/collector_fixture.h"

using namespace ovalis;
using ovalis::test::collectorUnder;
using ovalis::test::Lines;

namespace {

/// A collector that observes nothing.
class Collector : public ::testing::Test {
protected:
    msgCollector collector_ = collectorUnder("0");
};

} // namespace

TEST(OriginNames, AreThoseOfTheChapters) {
    const Lines names{"Unknown", "Iprop",      "LCprop",  "Layer",           "Pcell",
                      "LibDefs", "GroupDef",   "AppDef",  "DerivedLayerDef", "DerivedLayerParamDef",
                      "Tech",    "ErrChannel", "Unknown", "Unknown"};
    for (unsigned value = 0; value < names.size(); ++value) {
        EXPECT_EQ(msgCollector::originTypeToName(static_cast<msgCollector::OriginType>(value)),
                  names[value]);
    }
    EXPECT_EQ(msgCollector::originTypeToName(static_cast<msgCollector::OriginType>(~0U)),
              "Unknown");
    EXPECT_EQ(msgCollector::originTypeToName(msgCollector::Iprop), "Iprop");
    EXPECT_EQ(msgCollector::originTypeToName(msgCollector::ErrChannel), "ErrChannel");
}

TEST(OriginNames, LeadBackToTheirOrigins) {
    for (unsigned value = 1; value < 12; ++value) {
        const auto origin = static_cast<msgCollector::OriginType>(value);
        const std::string name = msgCollector::originTypeToName(origin);
        EXPECT_EQ(msgCollector::originNameToType(name.c_str()), origin) << name;
    }
}

TEST(OriginNames, OfNoOriginGiveTwelve) {
    for (const char* name : {"pcell", "Unknown", "", "Tech ", " Tech", "Pcell:", "alldbg"}) {
        EXPECT_EQ(msgCollector::originNameToType(name), 12U) << name;
    }
    EXPECT_EQ(msgCollector::originNameToType(nullptr), 12U);
}

TEST(OriginNames, HaveAFormForReaders) {
    EXPECT_EQ(msgCollector::keyNameToDisplayName("Pcell"), "PCell errors");
    EXPECT_EQ(msgCollector::keyNameToDisplayName("Iprop"), "Instance properties");
    EXPECT_EQ(msgCollector::keyNameToDisplayName("LCprop"), "LibCell properties");
    EXPECT_EQ(msgCollector::keyNameToDisplayName("LibDefs"), "LibDef warnings");
    EXPECT_EQ(msgCollector::keyNameToDisplayName("Tech"), "Tech info");
    EXPECT_EQ(msgCollector::keyNameToDisplayName(""), " info");
}

TEST_F(Collector, IsEmptyAtFirst) {
    EXPECT_EQ(collector_.getAvailableChapterKeys_ordered(), Lines());
    EXPECT_FALSE(collector_.containsErrors());
}

TEST_F(Collector, KeepsWhatItIsGivenWithoutAskingWhetherItIsActive) {
    collector_.addMessage(msgCollector::Layer, "metal1", "no such layer");
    EXPECT_EQ(collector_.getLines("Layer", "metal1"), Lines{"no such layer"});
}

TEST_F(Collector, OrdersKeysByBytesAndLinesByArrival) {
    for (const char* key : {"b", "a", "B", "é", "a.b", ""}) {
        collector_.addMessage(msgCollector::Tech, key, "second");
        collector_.addMessage(msgCollector::Tech, key, "first");
    }
    collector_.addMessage(msgCollector::AppDef, "x", "y");
    collector_.addMessage(msgCollector::LCprop, "x", "y");
    EXPECT_EQ(collector_.getAvailableChapterKeys_ordered(), (Lines{"AppDef", "LCprop", "Tech"}));
    EXPECT_EQ(collector_.getAvailableParagraphKeys("Tech"), (Lines{"", "B", "a", "a.b", "b", "é"}));
    EXPECT_EQ(collector_.getLines("Tech", "B"), (Lines{"second", "first"}));
}

TEST_F(Collector, DropsALineThatAParagraphHasAlready) {
    for (const char* line : {"one", "two", "one", "", "two ", ""}) {
        collector_.addMessage(msgCollector::Tech, "here", line);
    }
    collector_.addMessage(msgCollector::Tech, "there", "one");
    EXPECT_EQ(collector_.getLines("Tech", "here"), (Lines{"one", "two", "", "two "}));
    EXPECT_EQ(collector_.getLines("Tech", "there"), Lines{"one"});
}

TEST_F(Collector, KeepsLinesThatDifferBehindAZeroByte) {
    const std::string first("a\0b", 3);
    const std::string second("a\0c", 3);
    collector_.addMessage(msgCollector::Tech, "key", first);
    collector_.addMessage(msgCollector::Tech, "key", second);
    collector_.addMessage(msgCollector::Tech, "key", first);
    EXPECT_EQ(collector_.getLines("Tech", "key"), (Lines{first, second}));
}

TEST_F(Collector, KeepsManyLinesOfAllLengths) {
    Lines lines;
    std::string text;
    for (int i = 0; i < 3000; ++i) {
        text += static_cast<char>('a' + i % 26);
        lines.push_back(text);
        lines.push_back(std::to_string(i));
    }
    lines.push_back(std::string(3'000'000, 'x'));
    for (int repeat = 0; repeat < 2; ++repeat) {
        for (const std::string& line : lines) {
            collector_.addMessage(msgCollector::Tech, "key", line);
        }
    }
    EXPECT_EQ(collector_.getLines("Tech", "key"), lines);
}

TEST_F(Collector, KeepsNothingOfAPcellBehindAnErrorOfTypeThree) {
    collector_.addMessage(msgCollector::Pcell, "lib/cell/layout", "Error[3]: no evaluator");
    collector_.addMessage(msgCollector::Pcell, "lib/cell/layout", "Error[2]: another one");
    collector_.addMessage(msgCollector::Pcell, "lib/cell/layout", "Error[3]: no evaluator");
    collector_.addMessage(msgCollector::Pcell, "lib/other/layout", "Error[2]: another one");
    EXPECT_EQ(collector_.getLines("Pcell", "lib/cell/layout"), Lines{"Error[3]: no evaluator"});
    EXPECT_EQ(collector_.getLines("Pcell", "lib/other/layout"), Lines{"Error[2]: another one"});
}

TEST_F(Collector, LooksForTheErrorOfTypeThreeAtTheBeginningOnly) {
    const Lines lines{"Error[2]: first", "Error[3]: second", "Error[4]: third"};
    const Lines others{"Error[31]: first", "other"};
    const Lines inside{"an Error[3]: first", "other"};
    for (int i = 0; i < 3; ++i) {
        collector_.addMessage(msgCollector::Pcell, "a", lines[i]);
    }
    for (int i = 0; i < 2; ++i) {
        collector_.addMessage(msgCollector::Pcell, "b", others[i]);
        collector_.addMessage(msgCollector::Pcell, "c", inside[i]);
    }
    EXPECT_EQ(collector_.getLines("Pcell", "a"), lines);
    EXPECT_EQ(collector_.getLines("Pcell", "b"), others);
    EXPECT_EQ(collector_.getLines("Pcell", "c"), inside);
}

TEST_F(Collector, KeepsLinesOfOtherOriginsBehindAnErrorOfTypeThree) {
    collector_.addMessage(msgCollector::Tech, "key", "Error[3]: first");
    collector_.addMessage(msgCollector::Tech, "key", "second");
    EXPECT_EQ(collector_.getLines("Tech", "key"), (Lines{"Error[3]: first", "second"}));
}

TEST_F(Collector, PutsMessagesOfNoOriginInAChapterOfTheirOwn) {
    collector_.addMessage(msgCollector::originNameToType("other"), "key", "line");
    EXPECT_EQ(collector_.getAvailableChapterKeys_ordered(), Lines{"Unknown"});
}

TEST_F(Collector, ContainsErrorsOncePcellsHaveMessages) {
    collector_.addMessage(msgCollector::Tech, "key", "Error[3]: line");
    collector_.addMessage(msgCollector::LibDefs, "key", "line");
    EXPECT_FALSE(collector_.containsErrors());
    EXPECT_EQ(collector_.getAvailableErrorKeys(), Lines());
    collector_.addMessage(msgCollector::Pcell, "b", "");
    collector_.addMessage(msgCollector::Pcell, "a", "line");
    EXPECT_TRUE(collector_.containsErrors());
    EXPECT_EQ(collector_.getAvailableErrorKeys(), (Lines{"a", "b"}));
}

TEST_F(Collector, IsEmptyAfterClearing) {
    collector_.addMessage(msgCollector::Pcell, "key", "Error[3]: line");
    collector_.clear();
    EXPECT_FALSE(collector_.containsErrors());
    EXPECT_EQ(collector_.getAvailableChapterKeys_ordered(), Lines());
    collector_.addMessage(msgCollector::Pcell, "key", "another");
    EXPECT_EQ(collector_.getLines("Pcell", "key"), Lines{"another"});
}

TEST_F(Collector, MakesNothingWhenItIsAskedForWhatIsMissing) {
    collector_.addMessage(msgCollector::Tech, "key", "line");
    EXPECT_EQ(collector_.getLines("Layer", "key"), Lines());
    EXPECT_EQ(collector_.getLines("Tech", "other"), Lines());
    EXPECT_EQ(collector_.getAvailableParagraphKeys("Layer"), Lines());
    EXPECT_EQ(collector_.getAvailableChapterKeys_ordered(), Lines{"Tech"});
    EXPECT_EQ(collector_.getAvailableParagraphKeys("Tech"), Lines{"key"});
}

TEST_F(Collector, HasCopiesThatGoTheirOwnWay) {
    collector_.addMessage(msgCollector::Tech, "key", "line");
    msgCollector copy(collector_);
    copy.addMessage(msgCollector::Tech, "key", "second");
    collector_.addMessage(msgCollector::Tech, "key", "another");
    EXPECT_EQ(copy.getLines("Tech", "key"), (Lines{"line", "second"}));
    EXPECT_EQ(collector_.getLines("Tech", "key"), (Lines{"line", "another"}));
}

TEST_F(Collector, TakesOverMessagesAndActiveOrigins) {
    msgCollector other = collectorUnder("Tech");
    other.addMessage(msgCollector::Layer, "old", "line");
    collector_.addMessage(msgCollector::Tech, "key", "line");
    other = collector_;
    EXPECT_EQ(other.getAvailableChapterKeys_ordered(), Lines{"Tech"});
    EXPECT_FALSE(other.isCollectorActive(msgCollector::Tech));
    other = *&other;
    EXPECT_EQ(other.getLines("Tech", "key"), Lines{"line"});
    other.addMessage(msgCollector::Tech, "key", "second");
    EXPECT_EQ(other.getLines("Tech", "key"), (Lines{"line", "second"}));
}

TEST(CollectorEnd, PrintsTheReportWhileTheErrorChannelIsActive) {
    testing::internal::CaptureStderr();
    {
        const test::Setting setting("ErrChannel");
        msgCollector collector;
        collector.addMessage(msgCollector::ErrChannel, "key", "line");
    }
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "OA report summary:\n"
                                                      "  ErrChannel:\n"
                                                      "    key: line\n"
                                                      "OA report summary end\n"
                                                      "\n");
}

TEST(CollectorEnd, PrintsALineEndForAnEmptyReport) {
    testing::internal::CaptureStderr();
    {
        const test::Setting setting("alldbg");
        const msgCollector collector;
    }
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "\n");
}

TEST(CollectorEnd, SaysNothingOtherwise) {
    testing::internal::CaptureStderr();
    {
        const test::Setting setting("all");
        msgCollector collector;
        collector.addMessage(msgCollector::Pcell, "key", "line");
    }
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}
