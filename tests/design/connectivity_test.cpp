#include "design_fixture.h"

namespace design_test {

namespace {

class ConnectivityTest : public DesignTest {
protected:
    oaBlock* block = makeBlock();

    static oaName anyName(const char* text) { return oaName(oaNativeNS(), text); }
    oaNet* net(const char* netName) { return oaNet::create(block, anyName(netName)); }
    oaTerm* term(const char* termName) { return oaTerm::create(net(termName), anyName(termName)); }
    oaRect* rect() { return oaRect::create(block, 1, 1, oaBox(0, 0, 10, 10)); }

    template <class T, class O>
    static std::string names(const oaCollection<T, O>& collection) {
        std::string result;
        for (const T* object : all(collection))
            result += (result.empty() ? "" : " ") + nameOf(object);
        return result;
    }
    template <class O>
    static std::string names(const oaCollection<oaPin, O>& collection) {
        std::string result;
        for (const oaPin* pin : all(collection)) {
            oaString pinName;
            pin->getName(pinName);
            result += (result.empty() ? "" : " ") + text(pinName);
        }
        return result;
    }
};

} // namespace

TEST_F(ConnectivityTest, NetsHaveNamesOfTheirOwn) {
    oaNet* a = net("a");
    EXPECT_EQ(oaNet::find(block, anyName("a")), a);
    EXPECT_EQ(oaNet::find(block, anyName("b")), nullptr);
    EXPECT_EQ(oaScalarNet::find(block, name("a")), a);
    EXPECT_EQ(messageOf([&] { net("a"); }), "There is already a net named 'a'.");
    EXPECT_EQ(thrownBy([&] { oaScalarNet::create(block, name("a")); }), oacNetExists);
    EXPECT_EQ(thrownBy([&] { oaNet::create(block, oaName()); }), oacInvalidNetName);
    EXPECT_FALSE(oaNet::isValidName(block, anyName("a")));
    EXPECT_TRUE(oaNet::isValidName(block, anyName("b")));
    EXPECT_FALSE(oaScalarNet::isValidName(block, oaScalarName()));
    EXPECT_EQ(nameOf(a), "a");
    oaName any;
    a->getName(any);
    EXPECT_TRUE(any == anyName("a"));
    EXPECT_EQ(a->getNumBits(), 1u);
    EXPECT_EQ(a->getSigType(), oacSignalSigType);
    EXPECT_FALSE(a->isGlobal());
    EXPECT_FALSE(a->isImplicit());
    EXPECT_EQ(names(block->getNets()), "a");
    EXPECT_EQ(a->getType(), oacScalarNetType);
}

TEST_F(ConnectivityTest, NetsMayGetNamesThemselves) {
    oaScalarNet* a = oaScalarNet::create(block);
    oaScalarNet* b = oaScalarNet::create(block, oacPowerSigType, true);
    EXPECT_NE(nameOf(a), nameOf(b));
    EXPECT_EQ(b->getSigType(), oacPowerSigType);
    EXPECT_TRUE(b->isGlobal());
    EXPECT_TRUE(block->hasGlobalNet());
    EXPECT_EQ(all(block->getNets(oacNetIterGlobal)), (std::vector<oaNet*>{b}));
    EXPECT_TRUE(block->getNets(oacNetIterBundle).isEmpty());
    a->setName(name("renamed"));
    EXPECT_EQ(oaScalarNet::find(block, name("renamed")), a);
    EXPECT_EQ(thrownBy([&] { b->setName(name("renamed")); }), oacNetExists);
    b->setGlobal(false);
    b->setSigType(oacGroundSigType);
    EXPECT_FALSE(block->hasGlobalNet());
    EXPECT_EQ(b->getSigType(), oacGroundSigType);
    oaScalarName read;
    a->getName(read);
    EXPECT_TRUE(read == name("renamed"));
}

TEST_F(ConnectivityTest, NamesOfDestroyedNetsAreFree) {
    net("a")->destroy();
    EXPECT_EQ(oaNet::find(block, anyName("a")), nullptr);
    oaNet* again = net("a");
    EXPECT_EQ(oaNet::find(block, anyName("a")), again);
}

TEST_F(ConnectivityTest, TermsStandForTheirNetOutside) {
    oaNet* a = net("a");
    oaTerm* t = oaTerm::create(a, anyName("t"));
    EXPECT_EQ(t->getNet(), a);
    EXPECT_EQ(t->getTermType(), oacInputOutputTermType);
    EXPECT_EQ(t->getPosition(), oacNullIndex);
    EXPECT_FALSE(t->isInterface());
    EXPECT_FALSE(t->isImplicit());
    EXPECT_EQ(t->getNumBits(), 1u);
    EXPECT_EQ(oaTerm::find(block, anyName("t")), t);
    EXPECT_EQ(oaScalarTerm::find(block, name("t")), t);
    EXPECT_EQ(messageOf([&] { oaTerm::create(a, anyName("t")); }),
              "There is already a terminal named 't'.");
    EXPECT_EQ(thrownBy([&] { oaTerm::create(a, oaName()); }), oacInvalidTermName);
    EXPECT_FALSE(oaTerm::isValidName(a, anyName("t")));
    EXPECT_TRUE(oaScalarTerm::isValidName(block, name("u")));
    auto* u = oaScalarTerm::create(static_cast<oaBitNet*>(a), name("u"), oacInputTermType);
    EXPECT_EQ(u->getTermType(), oacInputTermType);
    EXPECT_EQ(names(a->getTerms()), "t u");
    EXPECT_EQ(names(a->getTerms(16)), "t u");
    EXPECT_EQ(names(a->getTerms(oacTermIterBundle)), "");
    EXPECT_EQ(names(block->getTerms()), "t u");
    EXPECT_FALSE(a->isEmpty());

    u->setName(name("v"));
    u->setTermType(oacOutputTermType);
    u->setIsInterface(true);
    EXPECT_EQ(nameOf(u), "v");
    EXPECT_EQ(u->getTermType(), oacOutputTermType);
    EXPECT_TRUE(u->isInterface());
    EXPECT_EQ(thrownBy([&] { u->setName(name("t")); }), oacTermExists);
    oaNet* b = net("b");
    u->moveToNet(b);
    EXPECT_EQ(u->getNet(), b);
    EXPECT_EQ(names(a->getTerms()), "t");
    EXPECT_EQ(names(b->getTerms()), "v");
    oaBlock* other = makeBlock("other");
    oaNet* foreign = oaNet::create(other, anyName("n"));
    EXPECT_EQ(messageOf([&] { u->moveToNet(foreign); }),
              "The terminal 'v' and the net lie in different blocks.");
}

TEST_F(ConnectivityTest, PositionsOfTermsDiffer) {
    oaTerm* a = term("a");
    oaTerm* b = term("b");
    EXPECT_EQ(oaTerm::getMaxPosition(block), oacNullIndex);
    a->setPosition(0);
    b->setPosition(3);
    a->setPosition(0);
    EXPECT_EQ(messageOf([&] { b->setPosition(0); }),
              "Terminal position 0 is already taken by 'a'.");
    EXPECT_EQ(b->getPosition(), 3u);
    EXPECT_EQ(oaTerm::find(block, 3u), b);
    EXPECT_EQ(oaTerm::find(block, 1u), nullptr);
    EXPECT_EQ(oaTerm::getMaxPosition(block), 3u);
    oaTermArray array;
    block->getTermsByPosition(array);
    ASSERT_EQ(array.getNumElements(), 4u);
    EXPECT_EQ(array[0], a);
    EXPECT_EQ(array[1], nullptr);
    EXPECT_EQ(array[3], b);
    a->unsetPosition();
    EXPECT_EQ(a->getPosition(), oacNullIndex);
    b->setPosition(0);
    EXPECT_EQ(oaTerm::find(block, 0u), b);
    b->destroy();
    EXPECT_EQ(oaTerm::find(block, 0u), nullptr);
    a->setPosition(0);
    EXPECT_EQ(oaTerm::find(block, 0u), a);
}

TEST_F(ConnectivityTest, PinsBelongToTerms) {
    oaTerm* t = term("t");
    oaPin* first = oaPin::create(t);
    oaPin* second = oaPin::create(t, oacTop | oacLeft);
    oaPin* named = oaPin::create(t, "p");
    EXPECT_EQ(names(t->getPins()), "P__0 P__1 p");
    EXPECT_EQ(second->getAccessDir(), oacTop | oacLeft);
    EXPECT_EQ(named->getAccessDir(), oacNone);
    EXPECT_EQ(named->getTerm(), t);
    EXPECT_EQ(oaPin::find(t, "p"), named);
    EXPECT_EQ(oaPin::find(t, "q"), nullptr);
    EXPECT_EQ(messageOf([&] { oaPin::create(t, "p"); }),
              "Terminal 't' already has a pin named 'p'.");
    oaTerm* u = term("u");
    oaPin* same = oaPin::create(u, "p");
    EXPECT_EQ(thrownBy([&] { same->setTerm(t); }), oacPinExists);
    same->setName("q");
    same->setTerm(t);
    EXPECT_EQ(oaPin::find(t, "q"), same);
    EXPECT_EQ(oaPin::find(u, "q"), nullptr);
    EXPECT_EQ(thrownBy([&] { same->setName("p"); }), oacPinExists);
    EXPECT_EQ(block->getPins().getCount(), 4u);
    EXPECT_EQ(t->getNet()->getPins().getCount(), 4u);

    first->setAccessDir(oacBottom);
    first->setPlacementStatus(oacFixedPlacementStatus);
    first->setPinType(oacBumpPinType);
    EXPECT_EQ(first->getAccessDir(), oacBottom);
    EXPECT_EQ(first->getPlacementStatus(), oacFixedPlacementStatus);
    EXPECT_EQ(first->getPinType(), oacBumpPinType);
    EXPECT_EQ(second->getPinType(), oacNonePinType);
}

TEST_F(ConnectivityTest, FiguresBelongToOnePinOrToOneNet) {
    oaTerm* t = term("t");
    oaPin* p = oaPin::create(t, "p");
    oaPin* q = oaPin::create(t, "q");
    oaRect* fig = rect();
    EXPECT_FALSE(fig->hasPin());
    EXPECT_FALSE(fig->hasNet());
    fig->addToPin(p);
    EXPECT_EQ(fig->getPin(), p);
    EXPECT_EQ(fig->getNet(), nullptr);
    fig->addToPin(q);
    EXPECT_EQ(fig->getPin(), q);
    EXPECT_TRUE(p->getFigs().isEmpty());
    EXPECT_EQ(all(q->getFigs()), (std::vector<oaPinFig*>{fig}));
    EXPECT_EQ(messageOf([&] { fig->addToNet(t->getNet()); }),
              "A figure of a pin cannot be added to net 't'.");
    fig->removeFromPin();
    EXPECT_FALSE(fig->hasPin());
    fig->removeFromPin();

    fig->addToNet(t->getNet());
    EXPECT_EQ(fig->getNet(), t->getNet());
    EXPECT_EQ(messageOf([&] { fig->addToPin(p); }),
              "A figure of a net cannot be added to pin 'p'.");
    oaNet* other = net("other");
    fig->addToNet(other);
    EXPECT_TRUE(t->getNet()->getShapes().isEmpty());
    EXPECT_EQ(other->getShapes().getCount(), 1u);
    EXPECT_FALSE(other->isEmpty());
    fig->removeFromNet();
    EXPECT_TRUE(other->isEmpty());
    fig->addToPin(p);
    EXPECT_EQ(t->getNet()->getShapes().getCount(), 1u);
    EXPECT_TRUE(t->getNet()->getShapes(oacShapeIterNetOnly).isEmpty());
    EXPECT_EQ(t->getNet()->getShapes(oacShapeIterNetPins).getCount(), 1u);
}

TEST_F(ConnectivityTest, FiguresStayInTheirBlock) {
    oaBlock* foreign = makeBlock("foreign");
    oaNet* n = oaNet::create(foreign, anyName("n"));
    oaPin* p = oaPin::create(oaTerm::create(n, anyName("n")), "p");
    EXPECT_EQ(messageOf([&] { rect()->addToPin(p); }),
              "The pin 'p' and the figure lie in different blocks.");
    EXPECT_EQ(messageOf([&] { rect()->addToNet(n); }),
              "The net 'n' and the figure lie in different blocks.");
    oaPin* own = oaPin::create(term("t"), "own");
    EXPECT_EQ(messageOf([&] { own->setTerm(p->getTerm()); }),
              "The pin 'own' and the terminal lie in different blocks.");
}

TEST_F(ConnectivityTest, DestroyingTakesWhatBelongsToItAndLeavesFigures) {
    oaTerm* t = term("t");
    oaNet* n = t->getNet();
    oaPin* p = oaPin::create(t, "p");
    oaRect* pinFig = rect();
    pinFig->addToPin(p);
    oaRect* netFig = rect();
    netFig->addToNet(n);
    pinFig->destroy();
    EXPECT_TRUE(p->getFigs().isEmpty());
    oaRect* another = rect();
    another->addToPin(p);
    p->destroy();
    EXPECT_TRUE(another->isValid());
    EXPECT_FALSE(another->hasPin());
    oaPin* q = oaPin::create(t, "p");
    another->addToPin(q);
    n->destroy();
    for (const oaObject* gone : std::vector<oaObject*>{n, t, p, q})
        EXPECT_FALSE(gone->isValid());
    EXPECT_FALSE(netFig->hasNet());
    EXPECT_FALSE(another->hasPin());
    EXPECT_EQ(oaTerm::find(block, anyName("t")), nullptr);
    EXPECT_TRUE(block->getPins().isEmpty());
    EXPECT_FALSE(block->hasConnectivity());
    EXPECT_EQ(block->getShapes().getCount(), 2u);
}

TEST_F(ConnectivityTest, PortsMayBeRemovedWhileWalkingThem) {
    for (int i = 0; i < 5; ++i) {
        oaTerm* t = term(("t" + std::to_string(i)).c_str());
        for (int k = 0; k < 3; ++k)
            rect()->addToPin(oaPin::create(t));
    }
    oaIter<oaNet> nets(block->getNets());
    while (oaNet* n = nets.getNext()) {
        oaIter<oaTerm> terms(n->getTerms(oacTermIterNotImplicit));
        while (oaTerm* t = terms.getNext()) {
            oaIter<oaPin> pins(t->getPins());
            while (oaPin* p = pins.getNext()) {
                oaIter<oaPinFig> figs(p->getFigs());
                while (oaPinFig* fig = figs.getNext())
                    fig->destroy();
                p->destroy();
            }
            t->destroy();
        }
    }
    EXPECT_EQ(block->getNets().getCount(), 5u);
    EXPECT_TRUE(block->getTerms().isEmpty());
    EXPECT_TRUE(block->getPins().isEmpty());
    EXPECT_TRUE(block->getShapes().isEmpty());
}

TEST_F(ConnectivityTest, EverythingIsFoundAgainAfterSaving) {
    oaNet* n = oaNet::create(block, anyName("n"), oacGroundSigType, true);
    oaTerm* t = oaTerm::create(n, anyName("t"), oacOutputTermType);
    t->setPosition(2);
    t->setIsInterface(true);
    oaPin* p = oaPin::create(t, "p", oacRight);
    p->setPlacementStatus(oacLockedPlacementStatus);
    p->setPinType(oacCorePinType);
    rect()->destroy();
    rect()->addToPin(p);
    rect()->addToNet(n);
    net("gone")->destroy();

    block = reopened(block, 'a');
    n = oaNet::find(block, anyName("n"));
    ASSERT_NE(n, nullptr);
    EXPECT_EQ(n->getSigType(), oacGroundSigType);
    EXPECT_TRUE(n->isGlobal());
    t = oaTerm::find(block, 2u);
    ASSERT_NE(t, nullptr);
    EXPECT_EQ(t->getNet(), n);
    EXPECT_EQ(nameOf(t), "t");
    EXPECT_EQ(t->getTermType(), oacOutputTermType);
    EXPECT_TRUE(t->isInterface());
    p = oaPin::find(t, "p");
    ASSERT_NE(p, nullptr);
    EXPECT_EQ(p->getAccessDir(), oacRight);
    EXPECT_EQ(p->getPlacementStatus(), oacLockedPlacementStatus);
    EXPECT_EQ(p->getPinType(), oacCorePinType);
    EXPECT_EQ(p->getFigs().getCount(), 1u);
    EXPECT_EQ(n->getShapes(oacShapeIterNetOnly).getCount(), 1u);
    EXPECT_EQ(names(block->getNets()), "n");
    EXPECT_EQ(thrownBy([&] { net("n"); }), oacNetExists);
    EXPECT_EQ(thrownBy([&] { term("x")->setPosition(2); }), oacTermPositionAlreadyTaken);
}

TEST_F(ConnectivityTest, NothingChangesInADesignOpenForReading) {
    oaPin* p = oaPin::create(term("t"), "p");
    rect()->addToPin(p);
    block = reopened(block);
    oaNet* n = oaNet::find(block, anyName("t"));
    oaTerm* t = oaTerm::find(block, anyName("t"));
    p = oaPin::find(t, "p");
    oaPinFig* fig = all(p->getFigs()).front();
    const std::vector<std::function<void()>> changes = {
        [&] { net("x"); },
        [&] { n->setSigType(oacClockSigType); },
        [&] { n->setGlobal(true); },
        [&] { n->destroy(); },
        [&] { oaTerm::create(n, anyName("x")); },
        [&] { t->setPosition(1); },
        [&] { t->unsetPosition(); },
        [&] { t->setIsInterface(true); },
        [&] { t->setTermType(oacInputTermType); },
        [&] { t->moveToNet(n); },
        [&] { t->destroy(); },
        [&] { oaPin::create(t); },
        [&] { oaPin::create(t, "x"); },
        [&] { p->setName("x"); },
        [&] { p->setAccessDir(1); },
        [&] { p->setPlacementStatus(oacFixedPlacementStatus); },
        [&] { p->setPinType(oacCorePinType); },
        [&] { p->destroy(); },
        [&] { fig->removeFromPin(); },
        [&] { fig->addToPin(p); },
        [&] { fig->removeFromNet(); },
    };
    for (std::size_t i = 0; i < changes.size(); ++i)
        EXPECT_EQ(thrownBy(changes[i]), oacCannotModifyReadModeDesign) << i;
    EXPECT_FALSE(block->getDesign()->isModified());
}

TEST_F(ConnectivityTest, NetsAndTerminalsOfOneBitMayHaveItsName) {
    oaNet* net = oaNet::create(block, oaName(oaCdbaNS(), "a<3>"));
    EXPECT_EQ(nameOf(net), "a[3]");
    EXPECT_EQ(net->getNumBits(), 1u);
    EXPECT_EQ(oaNet::find(block, oaName(oaNativeNS(), "a[3]")), net);
    EXPECT_FALSE(oaNet::isValidName(block, oaName(oaCdbaNS(), "a<3>")));
    oaName bit;
    net->getName(bit);
    EXPECT_EQ(bit.getType(), oacVectorBitNameType);
    oaTerm* term = oaTerm::create(net, bit);
    oaString spelling;
    term->getName(oaCdbaNS(), spelling);
    EXPECT_EQ(spelling, "a<3>");
    const oaName vector(oaCdbaNS(), "a<3:0>");
    EXPECT_EQ(messageOf([&] { oaNet::create(block, vector); }),
              "'a[3:0]' is not a valid net name: it is the name of a vector.");
    EXPECT_EQ(thrownBy([&] { oaTerm::create(net, vector); }), oacInvalidTermName);
    EXPECT_FALSE(oaNet::isValidName(block, vector));
}

} // namespace design_test
