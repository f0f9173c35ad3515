#include "design_fixture.h"

namespace design_test {

namespace {

oaName any(const char* text) {
    return oaName(oaNativeNS(), text);
}

/// Instances of a master with the terminals "a" at position 0 and "b" without one.
class InstTermTest : public DesignTest {
protected:
    oaBlock* master = makeBlock("master");
    oaBlock* block = makeBlock();
    oaTerm* a = oaTerm::create(oaNet::create(master, any("n")), any("a"));
    oaTerm* b = oaTerm::create(oaNet::find(master, any("n")), any("b"));
    oaScalarInst* inst = place("i");
    oaNet* net = oaNet::create(block, any("net"));

    InstTermTest() { a->setPosition(0); }

    oaScalarInst* place(const char* instName) {
        return oaScalarInst::create(block, master->getDesign(), name(instName), oaTransform());
    }
    static std::string termName(const oaInstTerm* term) {
        oaString text;
        term->getTermName(oaNativeNS(), text);
        return std::string(text);
    }
};

} // namespace

TEST_F(InstTermTest, ConnectsTheTerminalOfAName) {
    oaInstTerm* term = oaInstTerm::create(net, inst, any("a"));
    EXPECT_EQ(term->getType(), oacInstTermType);
    EXPECT_EQ(term->getInst(), inst);
    EXPECT_EQ(term->getNet(), net);
    EXPECT_EQ(term->getTerm(), a);
    EXPECT_TRUE(term->isBound());
    EXPECT_EQ(termName(term), "a");
    EXPECT_EQ(term->getTermPosition(), 0u);
    EXPECT_FALSE(term->usesTermPosition());
    EXPECT_FALSE(inst->usesTermPositions());
    EXPECT_FALSE(term->isImplicit());
    EXPECT_EQ(term->getNumBits(), 1u);
    EXPECT_EQ(oaInstTerm::find(inst, any("a")), term);
    EXPECT_EQ(oaInstTerm::find(inst, a), term);
    EXPECT_EQ(oaInstTerm::find(inst, 0u), nullptr);
    EXPECT_EQ(oaInstTerm::find(inst, any("b")), nullptr);
    const std::vector<oaInstTerm*> terms = {term};
    EXPECT_EQ(all(block->getInstTerms()), terms);
    EXPECT_EQ(all(inst->getInstTerms()), terms);
    EXPECT_EQ(all(net->getInstTerms()), terms);
    EXPECT_FALSE(net->isEmpty());
}

TEST_F(InstTermTest, ConnectsTheTerminalAtAPosition) {
    const oaInstTerm* term = oaInstTerm::create(net, inst, 0u);
    EXPECT_TRUE(term->usesTermPosition());
    EXPECT_TRUE(inst->usesTermPositions());
    EXPECT_EQ(term->getTermPosition(), 0u);
    EXPECT_EQ(term->getTerm(), a);
    EXPECT_EQ(termName(term), "a");
    EXPECT_EQ(oaInstTerm::find(inst, 0u), term);
    EXPECT_EQ(oaInstTerm::find(inst, a), term);
    EXPECT_EQ(oaInstTerm::find(inst, b), nullptr);
    const oaInstTerm* nothing = oaInstTerm::create(net, inst, 7u);
    EXPECT_EQ(nothing->getTerm(), nullptr);
    EXPECT_EQ(termName(nothing), "");
    EXPECT_FALSE(nothing->isBound());
    EXPECT_EQ(inst->getInstTerms().getCount(), 2u);
}

TEST_F(InstTermTest, TakesATerminalTheWayTheInstanceGoes) {
    EXPECT_FALSE(oaInstTerm::create(net, inst, b)->usesTermPosition());
    oaInst* byPosition = place("j");
    oaInstTerm::create(net, byPosition, 3u);
    EXPECT_TRUE(oaInstTerm::create(net, byPosition, a)->usesTermPosition());
    EXPECT_EQ(messageOf([&] { oaInstTerm::create(net, byPosition, any("b")); }),
              "Instance 'j' is not connected by the names of terminals, as for terminal 'b'.");
    EXPECT_EQ(messageOf([&] { oaInstTerm::create(net, inst, 0u); }),
              "Instance 'i' is not connected by the positions of terminals, as for terminal '0'.");
    EXPECT_EQ(thrownBy([&] { oaInstTerm::create(net, byPosition, b); }), oacInvalidTermName);
}

TEST_F(InstTermTest, IsThereOnce) {
    oaInstTerm::create(net, inst, any("a"));
    EXPECT_EQ(messageOf([&] { oaInstTerm::create(net, inst, a); }),
              "Instance 'i' already has a connection to terminal 'a'.");
    EXPECT_NE(oaInstTerm::create(net, place("j"), any("a")), nullptr);
}

TEST_F(InstTermTest, StaysInOneBlock) {
    oaNet* foreign = oaNet::find(master, any("n"));
    EXPECT_EQ(messageOf([&] { oaInstTerm::create(foreign, inst, any("a")); }),
              "The instance 'i' and the net lie in different blocks.");
    oaInstTerm* term = oaInstTerm::create(net, inst, any("a"));
    EXPECT_EQ(thrownBy([&] { term->addToNet(foreign); }), oacInstTermNotInSameBlock);
    oaTerm* own = oaTerm::create(net, any("own"));
    EXPECT_EQ(messageOf([&] { oaInstTerm::create(net, inst, own); }),
              "Terminal 'own' is not one of the master of instance 'i'.");
    EXPECT_EQ(oaInstTerm::find(inst, own), nullptr);
    EXPECT_EQ(thrownBy([&] { oaInstTerm::create(net, inst, oaName()); }), oacInvalidTermName);
}

TEST_F(InstTermTest, MayChangeItsNetOrHaveNone) {
    oaInstTerm* term = oaInstTerm::create(nullptr, inst, any("a"));
    EXPECT_EQ(term->getNet(), nullptr);
    term->addToNet(net);
    EXPECT_EQ(term->getNet(), net);
    oaNet* other = oaNet::create(block, any("other"));
    term->addToNet(other);
    EXPECT_TRUE(net->getInstTerms().isEmpty());
    EXPECT_EQ(all(other->getInstTerms()), std::vector<oaInstTerm*>{term});
    term->removeFromNet();
    EXPECT_EQ(term->getNet(), nullptr);
    EXPECT_TRUE(other->isEmpty());
    term->addToNet(other);
    other->destroy();
    EXPECT_TRUE(term->isValid());
    EXPECT_EQ(term->getNet(), nullptr);
    EXPECT_EQ(oaInstTerm::find(inst, any("a")), term);
}

TEST_F(InstTermTest, GoesWithItsInstance) {
    oaInstTerm* first = oaInstTerm::create(net, inst, any("a"));
    oaInstTerm* second = oaInstTerm::create(net, inst, any("b"));
    first->destroy();
    EXPECT_FALSE(first->isValid());
    EXPECT_EQ(oaInstTerm::find(inst, any("a")), nullptr);
    EXPECT_EQ(all(net->getInstTerms()), std::vector<oaInstTerm*>{second});
    inst->destroy();
    EXPECT_FALSE(second->isValid());
    EXPECT_TRUE(net->isEmpty());
    EXPECT_TRUE(block->getInstTerms().isEmpty());
}

TEST_F(InstTermTest, OutlivesTheTerminalOfTheMaster) {
    const oaInstTerm* term = oaInstTerm::create(net, inst, any("a"));
    a->destroy();
    EXPECT_EQ(term->getTerm(), nullptr);
    EXPECT_FALSE(term->isBound());
    EXPECT_EQ(term->getTermPosition(), oacNullIndex);
    EXPECT_EQ(termName(term), "a");
    oaTerm* again = oaTerm::create(oaNet::find(master, any("n")), any("a"));
    EXPECT_EQ(term->getTerm(), again);
}

TEST_F(InstTermTest, HasTheBitsOfItsInstance) {
    oaVectorInst* vector =
        oaVectorInst::create(block, master->getDesign(), name("v"), 0, 3, oaTransform());
    EXPECT_EQ(oaInstTerm::create(net, vector, any("a"))->getNumBits(), 4u);
    EXPECT_EQ(oaInstTerm::create(net, vector->getBit(0), any("a"))->getNumBits(), 1u);
    EXPECT_EQ(oaInstTerm::create(net, vector, any("d[1:0]"))->getNumBits(), 8u);
    vector->destroy();
    EXPECT_TRUE(block->getInstTerms().isEmpty());
}

TEST_F(InstTermTest, IsFoundAgainAfterSaving) {
    oaInstTerm::create(net, place("gone"), any("a"));
    oaInst::find(block, name("gone"))->destroy();
    oaInstTerm::create(net, inst, any("a"));
    oaInstTerm::create(nullptr, inst, any("open"));
    oaInst* byPosition = place("j");
    oaInstTerm::create(net, byPosition, 0u);
    master->getDesign()->save();
    master->getDesign()->close();
    block = reopened(block);
    net = oaNet::find(block, any("net"));
    const oaInst* again = oaInst::find(block, name("i"));
    const oaInstTerm* term = oaInstTerm::find(again, any("a"));
    ASSERT_NE(term, nullptr);
    EXPECT_FALSE(term->isBound());
    EXPECT_FALSE(again->isBound());
    EXPECT_EQ(term->getNet(), net);
    ASSERT_NE(term->getTerm(), nullptr);
    EXPECT_TRUE(term->isBound());
    EXPECT_EQ(oaInstTerm::find(again, any("open"))->getNet(), nullptr);
    EXPECT_EQ(net->getInstTerms().getCount(), 2u);
    EXPECT_TRUE(oaInst::find(block, name("j"))->usesTermPositions());
    EXPECT_EQ(block->getInstTerms().getCount(), 3u);
    EXPECT_EQ(thrownBy([&] { const_cast<oaInstTerm*>(term)->removeFromNet(); }),
              oacCannotModifyReadModeDesign);
}

} // namespace design_test
