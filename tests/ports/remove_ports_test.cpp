#include <ovalis/ports.h>

#include "ports/block_text.h"
#include "support/library_fixture.h"

using namespace ovalis;
using ovalis::test::netsOf;
using ovalis::test::portsOf;
using ovalis::test::shapesOf;

using Texts = std::vector<std::string>;

namespace {

class RemovedPorts : public ovalis::test::LibraryTest {
protected:
    RemovedPorts() : layout_(design("cell", "layout", 'w')) {}

    oa::oaDesign& layout() { return layout_; }
    oa::oaBlock& block() { return *layout_.getTopBlock(); }

    oa::oaName nameOf(const std::string& text) {
        return oa::oaName(oa::oaNativeNS(), text.c_str());
    }

    /// Adds one dot port for each name.
    void add(const std::vector<std::string>& names, bool sharedNet) {
        std::vector<Port> ports;
        for (const std::string& name : names) {
            oa::oaPointArray outline;
            outline.append(oa::oaPoint(1, 1));
            Port& port = ports.emplace_back();
            port.setName(name);
            port.setShapeOutline(outline);
        }
        addPorts(layout(), ports, sharedNet);
    }

    /// A terminal on a net of its own with one pin.
    void terminalOn(const std::string& net) {
        oa::oaTerm* term =
            oa::oaTerm::create(oa::oaNet::create(&block(), nameOf(net)), nameOf("on_" + net));
        oa::oaPin::create(term, "pin");
    }

    oa::oaUInt4 termsOn(const std::string& net) {
        return oa::oaNet::find(&block(), nameOf(net))->getTerms().getCount();
    }

private:
    oa::oaDesign& layout_;
};

} // namespace

TEST_F(RemovedPorts, LeaveOnlyTheirNets) {
    add({"a", "b", "größe"}, false);
    removePorts(layout());
    EXPECT_TRUE(portsOf(block()).empty());
    EXPECT_TRUE(shapesOf(block()).empty());
    EXPECT_EQ(block().getPins().getCount(), 0U);
    EXPECT_EQ(netsOf(block()), (Texts{"net_ovalis_0", "net_ovalis_1", "net_ovalis_2"}));
}

TEST_F(RemovedPorts, LeaveTheSharedNet) {
    add({"a", "b"}, true);
    removePorts(layout());
    EXPECT_TRUE(portsOf(block()).empty());
    EXPECT_TRUE(shapesOf(block()).empty());
    EXPECT_EQ(netsOf(block()), Texts{"net_ovalis_0"});
}

TEST_F(RemovedPorts, LeaveEverythingElse) {
    add({"a"}, false);
    oa::oaDot::create(&block(), 3, 3, oa::oaPoint(2, 2));
    terminalOn("other");
    removePorts(layout());
    EXPECT_EQ(shapesOf(block()), Texts{"dot 3:3 (2,2) 0x0"});
    EXPECT_EQ(termsOn("other"), 1U);
    EXPECT_EQ(block().getPins().getCount(), 1U);
}

TEST_F(RemovedPorts, EndAtTheFirstMissingNumber) {
    oa::oaBlock::create(&layout());
    for (const char* net : {"net_ovalis_0", "net_ovalis_1", "net_ovalis_3"}) {
        terminalOn(net);
    }
    removePorts(layout());
    EXPECT_EQ(termsOn("net_ovalis_0"), 0U);
    EXPECT_EQ(termsOn("net_ovalis_1"), 0U);
    EXPECT_EQ(termsOn("net_ovalis_3"), 1U);
    EXPECT_EQ(block().getPins().getCount(), 1U);
}

TEST_F(RemovedPorts, AreNoneWithoutTheFirstNet) {
    oa::oaBlock::create(&layout());
    terminalOn("net_ovalis_1");
    removePorts(layout());
    EXPECT_EQ(termsOn("net_ovalis_1"), 1U);
}

TEST_F(RemovedPorts, MayBeRemovedAgainAndAddedAgain) {
    add({"a", "b"}, false);
    const Texts before = portsOf(block());
    removePorts(layout());
    removePorts(layout());
    add({"a", "b"}, false);
    EXPECT_EQ(portsOf(block()), before);
}

TEST_F(RemovedPorts, MakeATopBlockWhenThereIsNone) {
    removePorts(layout());
    ASSERT_NE(layout().getTopBlock(), nullptr);
    EXPECT_TRUE(netsOf(block()).empty());
}
