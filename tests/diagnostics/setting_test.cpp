// Which origins are collected.

#include <gtest/gtest.h>

#include "diagnostics/collector_fixture.h"

using namespace ovalis;
using ovalis::test::collectorUnder;
using Name = std::optional<std::string>;

namespace {

/// The numbers of the active origins, and of the bit of unknown names.
std::vector<unsigned> activeUnder(const Name& setting) {
    const msgCollector collector = collectorUnder(setting);
    std::vector<unsigned> active;
    for (unsigned origin = 0; origin < 32; ++origin) {
        if (collector.isCollectorActive(static_cast<msgCollector::OriginType>(origin))) {
            active.push_back(origin);
        }
    }
    return active;
}

using Origins = std::vector<unsigned>;

const Origins all{0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10};
const Origins allWithErrChannel{0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11};

} // namespace

TEST(Setting, ThatIsMissingCollectsPcellsAndLibraryDefinitions) {
    EXPECT_EQ(activeUnder(std::nullopt), (Origins{4, 5}));
}

TEST(Setting, OfZeroCollectsNothing) {
    for (const char* zero : {"0", "00", "0x0", "00x", "0:Pcell", "08", "0x", "0all"}) {
        EXPECT_EQ(activeUnder(zero), Origins()) << zero;
    }
}

TEST(Setting, ThatOnlyLooksLikeZeroIsAListOfNames) {
    for (const char* name : {" 0", "-0", "+0", "1", "01", "0x1"}) {
        EXPECT_EQ(activeUnder(name), Origins{12}) << name;
    }
}

TEST(Setting, NamesWhatIsCollected) {
    EXPECT_EQ(activeUnder("Pcell:Tech"), (Origins{4, 10}));
    EXPECT_EQ(activeUnder("Tech:Pcell:Tech"), (Origins{4, 10}));
    EXPECT_EQ(activeUnder("ErrChannel"), Origins{11});
    EXPECT_EQ(activeUnder("Iprop:LCprop:Layer:LibDefs:GroupDef:AppDef:DerivedLayerDef:"
                          "DerivedLayerParamDef"),
              (Origins{1, 2, 3, 5, 6, 7, 8, 9}));
}

TEST(Setting, OfUnknownNamesTouchesABitThatNoOriginUses) {
    EXPECT_EQ(activeUnder("pcell"), Origins{12});
    EXPECT_EQ(activeUnder("Pcell "), Origins{12});
    EXPECT_EQ(activeUnder("Unknown:Tech"), (Origins{10, 12}));
    EXPECT_EQ(activeUnder(""), Origins{12});
    EXPECT_EQ(activeUnder(":"), Origins{12});
    EXPECT_EQ(activeUnder("Tech:"), (Origins{10, 12}));
    EXPECT_EQ(activeUnder("Tech::Pcell"), (Origins{4, 10, 12}));
    EXPECT_EQ(activeUnder("all:none"), all);
}

TEST(Setting, OfAllLeavesOutTheErrorChannel) {
    EXPECT_EQ(activeUnder("all"), all);
    EXPECT_EQ(activeUnder("all:Iprop"), (Origins{0, 2, 3, 4, 5, 6, 7, 8, 9, 10}));
    EXPECT_EQ(activeUnder("all:Iprop:Tech:Iprop"), (Origins{0, 2, 3, 4, 5, 6, 7, 8, 9}));
}

TEST(Setting, OfAlldbgCollectsEverything) {
    EXPECT_EQ(activeUnder("alldbg"), allWithErrChannel);
    EXPECT_EQ(activeUnder("alldbg:ErrChannel"), all);
    EXPECT_EQ(activeUnder("alldbg:Pcell"), (Origins{0, 1, 2, 3, 5, 6, 7, 8, 9, 10, 11}));
}

TEST(Setting, OfAllBehindAlldbgTakesTheErrorChannelAway) {
    EXPECT_EQ(activeUnder("alldbg:all"), all);
    EXPECT_EQ(activeUnder("alldbg:all:Tech"), (Origins{0, 1, 2, 3, 4, 5, 6, 7, 8, 9}));
}

TEST(Setting, KnowsTheWordsForAllAtTheBeginningOnly) {
    EXPECT_EQ(activeUnder("Pcell:all"), (Origins{4, 12}));
    EXPECT_EQ(activeUnder("Pcell:alldbg"), (Origins{4, 12}));
    EXPECT_EQ(activeUnder("all:alldbg"), all);
    EXPECT_EQ(activeUnder("all:all"), all);
    EXPECT_EQ(activeUnder("All"), Origins{12});
    EXPECT_EQ(activeUnder("alldbgx"), Origins{12});
}

TEST(Setting, IsActiveWithAnyOriginButTheErrorChannel) {
    EXPECT_TRUE(collectorUnder(std::nullopt).isActive());
    EXPECT_TRUE(collectorUnder("Tech").isActive());
    EXPECT_FALSE(collectorUnder("0").isActive());
    EXPECT_FALSE(collectorUnder("ErrChannel").isActive());
    EXPECT_FALSE(collectorUnder("pcell").isActive());
    EXPECT_FALSE(collectorUnder("ErrChannel:pcell").isActive());
}

TEST(Setting, IsReadWhenACollectorIsMade) {
    const test::Setting before("Tech");
    const msgCollector collector;
    const test::Setting after("Pcell");
    EXPECT_TRUE(collector.isCollectorActive(msgCollector::Tech));
    EXPECT_FALSE(collector.isCollectorActive(msgCollector::Pcell));
}
