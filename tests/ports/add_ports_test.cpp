#include <ovalis/ports.h>

#include "ports/block_text.h"
#include "support/library_fixture.h"

using namespace ovalis;
using ovalis::test::failureOf;
using ovalis::test::messageIdOf;
using ovalis::test::netsOf;
using ovalis::test::portsOf;
using ovalis::test::shapesOf;

using Texts = std::vector<std::string>;

namespace {

using Points = std::vector<std::pair<int, int>>;

Port portOf(const std::string& name, const Points& points, double angle = 0.0) {
    Port port;
    port.setName(name);
    port.setLayerNum(7);
    port.setPurposeNum(4294967295);
    port.setAngle(angle);
    oa::oaPointArray outline;
    for (const auto& [x, y] : points) {
        outline.append(oa::oaPoint(x, y));
    }
    port.setShapeOutline(outline);
    return port;
}

Port dotPort(const std::string& name, int x = 0) {
    return portOf(name, {{x, 0}});
}

/// What the terminal of a dot port looks like.
std::string dotText(const std::string& name, int net, int position, int x = 0) {
    return name + " on net_ovalis_" + std::to_string(net) + " at " + std::to_string(position) +
           " inputOutput interface; pin " + name + " access 0 angle 0.000000 [dot 7:4294967295 (" +
           std::to_string(x) + ",0) 0x0]";
}

class Ports : public ovalis::test::LibraryTest {
protected:
    Ports() : design_(&LibraryTest::design("cell", "layout", 'w')) {}

    oa::oaDesign& layout() { return *design_; }
    oa::oaBlock& block() { return *design_->getTopBlock(); }

    void add(const std::vector<Port>& ports, bool sharedNet = false) {
        addPorts(layout(), ports, sharedNet);
    }

    oa::oaNet* newNet(const char* name) {
        return oa::oaNet::create(&block(), oa::oaName(oa::oaNativeNS(), name));
    }

    void openFromDisk() {
        design_->save();
        reopen();
        design_ = &LibraryTest::design("cell", "layout", 'a');
    }

    oa::oaDesign* design_;
};

} // namespace

TEST_F(Ports, BecomeTerminalsPinsAndFigures) {
    add({portOf("in", {{1, 2}}, 180.0), portOf("out", {{3, 4}, {5, 6}}, 90.5),
         portOf("gnd", {{0, 0}, {9, 0}, {9, 9}}, -45.0),
         portOf("ref", {{0, 0}, {4, 0}, {4, 4}, {0, 4}, {-2, 2}})});
    EXPECT_EQ(portsOf(block()),
              (Texts{"gnd on net_ovalis_2 at 2 inputOutput interface; pin gnd access 0 angle "
                     "-45.000000 [polygon 7:4294967295 (0,0)(9,0)(9,9)]",
                     "in on net_ovalis_0 at 0 inputOutput interface; pin in access 0 angle "
                     "180.000000 [dot 7:4294967295 (1,2) 0x0]",
                     "out on net_ovalis_1 at 1 inputOutput interface; pin out access 0 angle "
                     "90.500000 [line 7:4294967295 (3,4)(5,6)]",
                     "ref on net_ovalis_3 at 3 inputOutput interface; pin ref access 0 angle "
                     "0.000000 [polygon 7:4294967295 (0,0)(4,0)(4,4)(0,4)(-2,2)]"}));
    EXPECT_EQ(netsOf(block()),
              (Texts{"net_ovalis_0", "net_ovalis_1", "net_ovalis_2", "net_ovalis_3"}));
    EXPECT_EQ(shapesOf(block()).size(), 4U);
}

TEST_F(Ports, AreTheSameFromDisk) {
    Port port = portOf("größe", {{1, 2}}, 12.25);
    port.setProperties({{"kind", "Hohlleiter µ"}});
    add({port, dotPort("b")});
    const Texts before = portsOf(block());
    openFromDisk();
    EXPECT_EQ(portsOf(block()), before);
    EXPECT_EQ(before[1], "größe on net_ovalis_0 at 0 inputOutput interface kind=Hohlleiter µ; pin "
                         "größe access 0 angle 12.250000 kind=Hohlleiter µ "
                         "[dot 7:4294967295 (1,2) 0x0]");
}

TEST_F(Ports, LieOnOrdinaryNets) {
    add({dotPort("a")});
    const oa::oaNet* net = oa::oaNet::find(&block(), oa::oaName(oa::oaNativeNS(), "net_ovalis_0"));
    ASSERT_NE(net, nullptr);
    EXPECT_EQ(net->getSigType(), oa::oacSignalSigType);
    EXPECT_FALSE(net->isGlobal());
}

TEST_F(Ports, CarryTheirPropertiesOnTerminalAndPin) {
    Port port = dotPort("a");
    port.setProperties({{"z", "last"}, {"impedance", "50"}, {"empty", ""}});
    add({port});
    EXPECT_EQ(portsOf(block()),
              Texts{"a on net_ovalis_0 at 0 inputOutput interface empty= impedance=50 z=last; pin "
                    "a access 0 angle 0.000000 empty= impedance=50 z=last "
                    "[dot 7:4294967295 (0,0) 0x0]"});
}

TEST_F(Ports, ShareOneNetOnRequest) {
    add({dotPort("a"), dotPort("b", 5), dotPort("c", 9)}, true);
    EXPECT_EQ(portsOf(block()),
              (Texts{dotText("a", 0, 0), dotText("b", 0, 1, 5), dotText("c", 0, 2, 9)}));
    EXPECT_EQ(netsOf(block()), Texts{"net_ovalis_0"});
}

TEST_F(Ports, UseNetsThatExist) {
    oa::oaBlock::create(&layout());
    newNet("net_ovalis_1");
    newNet("other");
    add({dotPort("a"), dotPort("b")});
    EXPECT_EQ(netsOf(block()), (Texts{"net_ovalis_0", "net_ovalis_1", "other"}));
    EXPECT_EQ(portsOf(block()), (Texts{dotText("a", 0, 0), dotText("b", 1, 1)}));
}

TEST_F(Ports, AddedAgainReplaceThoseOfTheSameName) {
    add({dotPort("a"), dotPort("b")});
    add({dotPort("a", 50), dotPort("b", 60)});
    EXPECT_EQ(portsOf(block()), (Texts{dotText("a", 0, 0, 50), dotText("b", 1, 1, 60)}));
    EXPECT_EQ(shapesOf(block()).size(), 2U);
    EXPECT_EQ(netsOf(block()), (Texts{"net_ovalis_0", "net_ovalis_1"}));
    EXPECT_EQ(block().getPins().getCount(), 2U);
}

TEST_F(Ports, ReplaceATerminalWithSeveralPins) {
    oa::oaBlock::create(&layout());
    oa::oaTerm* term = oa::oaTerm::create(newNet("mine"), oa::oaName(oa::oaNativeNS(), "a"));
    for (const char* name : {"left", "right"}) {
        oa::oaDot::create(&block(), 3, 3, oa::oaPoint(1, 1))
            ->addToPin(oa::oaPin::create(term, name));
    }
    oa::oaDot::create(&block(), 3, 3, oa::oaPoint(2, 2)); // on no pin
    add({dotPort("a")});
    EXPECT_EQ(portsOf(block()), Texts{dotText("a", 0, 0)});
    EXPECT_EQ(shapesOf(block()), (Texts{"dot 3:3 (2,2) 0x0", "dot 7:4294967295 (0,0) 0x0"}));
    EXPECT_EQ(block().getPins().getCount(), 1U);
    EXPECT_EQ(netsOf(block()), (Texts{"mine", "net_ovalis_0"}));
}

TEST_F(Ports, OfOneNameLeaveTheLastAndAnEmptyNet) {
    add({dotPort("a", 1), dotPort("b", 2), dotPort("a", 3)});
    EXPECT_EQ(portsOf(block()), (Texts{dotText("a", 2, 2, 3), dotText("b", 1, 1, 2)}));
    EXPECT_EQ(netsOf(block()), (Texts{"net_ovalis_0", "net_ovalis_1", "net_ovalis_2"}));
    EXPECT_EQ(shapesOf(block()).size(), 2U);
}

TEST_F(Ports, WithoutAShapeFailAfterTerminalAndPinAreMade) {
    EXPECT_EQ(failureOf([&] {
                  add({dotPort("a"), portOf("P1", {}, 30.0), dotPort("c")});
              }),
              "Port P1does not have a shape");
    EXPECT_EQ(portsOf(block()),
              (Texts{"P1 on net_ovalis_1 at 1 inputOutput interface; pin P1 access 0 angle "
                     "30.000000",
                     dotText("a", 0, 0)}));
}

TEST_F(Ports, MayBeNone) {
    add({});
    ASSERT_NE(layout().getTopBlock(), nullptr);
    EXPECT_EQ(netsOf(block()), Texts{});
    EXPECT_EQ(portsOf(block()), Texts{});
    EXPECT_TRUE(block().getShapes().isEmpty());
}

TEST_F(Ports, MayBeNoneOnASharedNetAndMakeNothing) {
    add({}, true);
    EXPECT_EQ(layout().getTopBlock(), nullptr);
}

TEST_F(Ports, AreRefusedByAReadOnlyDesign) {
    layout().save();
    layout().reopen('r');
    for (const bool sharedNet : {false, true}) {
        EXPECT_EQ(failureOf([&] { add({dotPort("a")}, sharedNet); }), "Design is not writeable.");
        EXPECT_EQ(failureOf([&] { add({}, sharedNet); }), "Design is not writeable.");
    }
    EXPECT_EQ(failureOf([&] { removePorts(layout()); }), "Design is not writeable.");
}

TEST_F(Ports, AreRefusedByAnInvalidDesign) {
    layout().purge();
    EXPECT_EQ(failureOf([&] { add({dotPort("a")}); }), "Invalid design given.");
    EXPECT_EQ(failureOf([&] { add({}, true); }), "Invalid design given.");
    EXPECT_EQ(failureOf([&] { removePorts(layout()); }), "Invalid design given.");
}

TEST_F(Ports, AreAddedToADesignOpenForAppend) {
    openFromDisk();
    EXPECT_EQ(layout().getMode(), 'a');
    add({dotPort("a")});
    EXPECT_EQ(portsOf(block()), Texts{dotText("a", 0, 0)});
}

TEST_F(Ports, WhosePlacesAreTakenFailInTheDatabase) {
    add({dotPort("a"), dotPort("b")});
    EXPECT_EQ(messageIdOf([&] {
                  add({dotPort("b"), dotPort("a")});
              }),
              oa::oacTermPositionAlreadyTaken);
}

TEST_F(Ports, WithAPolygonThatIsNoneFailInTheDatabase) {
    EXPECT_EQ(messageIdOf([&] {
                  add({portOf("a", {{0, 0}, {5, 0}, {9, 0}})});
              }),
              oa::oacPolygonHasExtraPoints);
}
