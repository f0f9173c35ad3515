#include <ovalis/ports.h>

#include <gtest/gtest.h>

#include "ports/block_text.h"

using namespace ovalis;

namespace {

Port filledPort() {
    Port port;
    port.setName("größe");
    port.setLayerNum(4294966519);
    port.setPurposeNum(4294967295);
    port.setAngle(-90.5);
    port.setProperties({{"b", "2"}, {"a", "1"}});
    oa::oaPointArray outline;
    outline.append(oa::oaPoint(1, 2));
    outline.append(oa::oaPoint(3, 4));
    port.setShapeOutline(outline);
    return port;
}

void expectFilled(const Port& port) {
    EXPECT_EQ(port.name(), "größe");
    EXPECT_EQ(port.layerNum(), 4294966519U);
    EXPECT_EQ(port.purposeNum(), 4294967295U);
    EXPECT_EQ(port.angle(), -90.5);
    EXPECT_EQ(port.properties(), (std::map<std::string, std::string>{{"a", "1"}, {"b", "2"}}));
    EXPECT_EQ(ovalis::test::textOf(port.shapeOutline()), "(1,2)(3,4)");
}

} // namespace

TEST(Port, HasTheDocumentedDefaults) {
    const Port port;
    EXPECT_EQ(port.name(), "Unknown_Port");
    EXPECT_EQ(port.layerNum(), 0U);
    EXPECT_EQ(port.purposeNum(), 0U);
    EXPECT_EQ(port.angle(), 0.0);
    EXPECT_TRUE(port.properties().empty());
    EXPECT_EQ(port.shapeOutline().getNumElements(), 0U);
}

TEST(Port, GivesBackWhatWasSet) {
    expectFilled(filledPort());
}

TEST(Port, IsCopiedWhole) {
    Port original = filledPort();
    const Port copy(original);
    Port assigned;
    assigned = original;
    original = Port();
    expectFilled(copy);
    expectFilled(assigned);
}

TEST(Port, KeepsItsOwnCopyOfTheOutline) {
    oa::oaPointArray outline;
    outline.append(oa::oaPoint(1, 2));
    Port port;
    port.setShapeOutline(outline);
    outline.append(oa::oaPoint(3, 4));
    EXPECT_EQ(ovalis::test::textOf(port.shapeOutline()), "(1,2)");
}

TEST(Port, ReplacesAllProperties) {
    Port port = filledPort();
    port.setProperties({{"c", "3"}});
    EXPECT_EQ(port.properties(), (std::map<std::string, std::string>{{"c", "3"}}));
}
