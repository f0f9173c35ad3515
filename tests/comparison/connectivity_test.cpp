#include "two_designs.h"

namespace comparison::test {
namespace {

class ConnectivityTest : public TwoDesigns {};

/// A net with a terminal, a pin and a figure of that pin, and another shape.
void connect(oa::oaBlock* block, const char* netName, const char* termName, const char* pinName,
             oa::oaCoord x = 0) {
    oa::oaNet* const net = oa::oaNet::create(block, general(netName));
    oa::oaTerm* const term = oa::oaTerm::create(net, general(termName));
    oa::oaPin* const pin = oa::oaPin::create(term, pinName);
    oa::oaRect::create(block, 1, drawing, oa::oaBox(x, 0, x + 5, 5))->addToPin(pin);
    oa::oaRect::create(block, 2, drawing, oa::oaBox(x, 0, x + 9, 9))->addToNet(net);
}

TEST_F(ConnectivityTest, InAnotherOrderIsTheSame) {
    connect(wasBlock(), "a", "A", "p");
    connect(wasBlock(), "b", "B", "p", 100);
    connect(isBlock(), "b", "B", "p", 100);
    connect(isBlock(), "a", "A", "p");
    EXPECT_THAT(differences(), IsEmpty());
}

TEST_F(ConnectivityTest, ARenamedNetIsOneLine) {
    connect(wasBlock(), "a", "A", "p");
    connect(isBlock(), "b", "A", "p");
    EXPECT_THAT(differences(), ElementsAre("net \"a\" renamed to \"b\""));
}

TEST_F(ConnectivityTest, ARenamedTerminalIsOneLine) {
    connect(wasBlock(), "a", "A", "p");
    connect(isBlock(), "a", "B", "p");
    EXPECT_THAT(differences(), ElementsAre("terminal \"A\" renamed to \"B\""));
}

TEST_F(ConnectivityTest, ARenamedPinIsOneLine) {
    connect(wasBlock(), "a", "A", "p");
    connect(isBlock(), "a", "A", "q");
    EXPECT_THAT(differences(), ElementsAre("pin \"p\" of terminal \"A\" renamed to \"q\""));
}

TEST_F(ConnectivityTest, EverythingRenamedIsOneLineEach) {
    connect(wasBlock(), "a", "A", "p");
    connect(isBlock(), "b", "B", "q");
    EXPECT_THAT(differences(),
                ElementsAre("net \"a\" renamed to \"b\"", "terminal \"A\" renamed to \"B\"",
                            "pin \"p\" of terminal \"A\" renamed to \"q\""));
}

TEST_F(ConnectivityTest, AnAddedPinIsOneLineWithItsFigures) {
    inBoth([](oa::oaBlock* block) { connect(block, "a", "A", "p"); });
    oa::oaPin* const pin = oa::oaPin::create(oa::oaTerm::find(isBlock(), general("A")), "q");
    oa::oaRect::create(isBlock(), 1, drawing, oa::oaBox(50, 0, 60, 5))->addToPin(pin);
    EXPECT_THAT(differences(), ElementsAre("pin \"q\" of terminal \"A\" added"));
}

TEST_F(ConnectivityTest, AnAddedPinOnAFigureThatWasThereIsOneLine) {
    inBoth([](oa::oaBlock* block) { connect(block, "a", "A", "p"); });
    oa::oaRect::create(wasBlock(), 1, drawing, oa::oaBox(50, 0, 60, 5));
    oa::oaPin* const pin = oa::oaPin::create(oa::oaTerm::find(isBlock(), general("A")), "q");
    oa::oaRect::create(isBlock(), 1, drawing, oa::oaBox(50, 0, 60, 5))->addToPin(pin);
    EXPECT_THAT(differences(), ElementsAre("pin \"q\" of terminal \"A\" added"));
}

TEST_F(ConnectivityTest, ARemovedTerminalTakesItsPinsAlong) {
    inBoth([](oa::oaBlock* block) { connect(block, "a", "A", "p"); });
    oa::oaTerm::find(isBlock(), general("A"))->destroy();
    EXPECT_THAT(differences(), ElementsAre("terminal \"A\" removed"));
}

TEST_F(ConnectivityTest, AnAddedNetIsOneLine) {
    oa::oaNet::create(isBlock(), general("new"));
    EXPECT_THAT(differences(), ElementsAre("net \"new\" added"));
}

TEST_F(ConnectivityTest, EveryAttributeOfANetATerminalAndAPinIsOneLine) {
    inBoth([](oa::oaBlock* block) { connect(block, "a", "A", "p"); });
    oa::oaNet* const net = oa::oaNet::find(isBlock(), general("a"));
    oa::oaTerm* const term = oa::oaTerm::find(isBlock(), general("A"));
    oa::oaPin* const pin = oa::oaPin::find(term, "p");
    net->setSigType(oa::oacPowerSigType);
    net->setGlobal(true);
    term->setTermType(oa::oacInputTermType);
    term->setPosition(2);
    term->setIsInterface(true);
    pin->setAccessDir(oa::oacTop | oa::oacLeft);
    pin->setPlacementStatus(oa::oacFixedPlacementStatus);
    pin->setPinType(oa::oacBumpPinType);
    ovalis::vexPinAngle->set(pin, 90.0);
    EXPECT_THAT(
        differences(),
        ElementsAre(
            "net \"a\": global was no, is yes", "net \"a\": signal type was signal, is power",
            "terminal \"A\": interface was no, is yes", "terminal \"A\": position was none, is 2",
            "terminal \"A\": type was inputOutput, is input",
            "pin \"p\" of terminal \"A\": access was none, is top, left",
            "pin \"p\" of terminal \"A\": application value \"vexPinAngle\" added: double 90",
            "pin \"p\" of terminal \"A\": placement was none, is fixed",
            "pin \"p\" of terminal \"A\": type was none, is bump"));
}

TEST_F(ConnectivityTest, ATerminalOnAnotherNetIsOneLine) {
    inBoth([](oa::oaBlock* block) {
        connect(block, "a", "A", "p");
        oa::oaNet::create(block, general("b"));
    });
    oa::oaTerm::find(isBlock(), general("A"))->moveToNet(oa::oaNet::find(isBlock(), general("b")));
    EXPECT_THAT(differences(), ElementsAre("terminal \"A\": net was \"a\", is \"b\""));
}

TEST_F(ConnectivityTest, AMovedPinFigureIsOneLine) {
    connect(wasBlock(), "a", "A", "p");
    connect(isBlock(), "a", "A", "p");
    oa::oaIter<oa::oaShape> shapes(isBlock()->getShapes());
    while (oa::oaShape* shape = shapes.getNext())
        if (shape->hasPin())
            shape->move(oa::oaTransform(1, 2));
    EXPECT_THAT(differences(),
                ElementsAre("rectangle on M1/drawing (0, 0)-(5, 5) moved by (1, 2)"));
}

} // namespace
} // namespace comparison::test
