#include "design_fixture.h"

namespace design_test {

namespace {

class InstTest : public DesignTest {
protected:
    oaBlock* master = makeBlock("master");
    oaBlock* block = makeBlock();

    InstTest() { oaRect::create(master, 1, 1, oaBox(0, 0, 10, 20)); }

    oaScalarInst* inst(const char* instName, const oaTransform& xform = oaTransform(100, 0)) {
        return oaScalarInst::create(block, master->getDesign(), name(instName), xform);
    }
    static std::string masterNames(const oaInst* instance) {
        oaString lib;
        oaString cell;
        oaString view;
        instance->getLibName(oaNativeNS(), lib);
        instance->getCellName(oaNativeNS(), cell);
        instance->getViewName(oaNativeNS(), view);
        return text(lib) + "/" + text(cell) + "/" + text(view);
    }
};

} // namespace

TEST_F(InstTest, InstancesShowTheirMaster) {
    oaScalarInst* a = inst("a", oaTransform(100, 200, oacR90));
    EXPECT_EQ(a->getMaster(), master->getDesign());
    EXPECT_TRUE(a->isBound());
    EXPECT_EQ(masterNames(a), "lib/master/layout");
    EXPECT_EQ(nameOf(a), "a");
    EXPECT_EQ(boxText(a), "80 200 100 210");
    EXPECT_EQ(boxText(block), "80 200 100 210");
    oaPoint origin;
    a->getOrigin(origin);
    EXPECT_EQ(origin, oaPoint(100, 200));
    EXPECT_EQ(a->getOrient(), oacR90);
    EXPECT_EQ(a->getNumBits(), 1u);
    EXPECT_FALSE(a->isImplicit());
    EXPECT_EQ(a->getPlacementStatus(), oacNonePlacementStatus);
    EXPECT_EQ(a->getType(), oacScalarInstType);
    EXPECT_TRUE(a->isInst());
    EXPECT_TRUE(a->isBitInst());
    EXPECT_EQ(all(block->getInsts()), (std::vector<oaInst*>{a}));
    EXPECT_EQ(all(block->getInsts(0)), (std::vector<oaInst*>{a}));
    EXPECT_TRUE(block->getShapes().isEmpty());

    a->setOrigin(oaPoint(0, 0));
    a->setOrient(oacR0);
    EXPECT_EQ(boxText(a), "0 0 10 20");
    a->setTransform(oaTransform(5, 5, oacMX));
    a->setPlacementStatus(oacPlacedPlacementStatus);
    oaTransform xform;
    a->getTransform(xform);
    EXPECT_TRUE(xform == oaTransform(5, 5, oacMX));
    EXPECT_EQ(a->getPlacementStatus(), oacPlacedPlacementStatus);
    a->move(oaTransform(0, 100));
    EXPECT_EQ(boxText(a), "5 85 15 105");
}

TEST_F(InstTest, NamesOfInstancesDiffer) {
    oaScalarInst* a = inst("a");
    EXPECT_EQ(messageOf([&] { inst("a"); }), "There is already an instance named 'a'.");
    EXPECT_EQ(thrownBy([&] {
                  oaScalarInst::create(block, master->getDesign(), oaScalarName(), oaTransform());
              }),
              oacInvalidInstName);
    oaScalarInst* first = oaScalarInst::create(block, master->getDesign(), oaTransform());
    oaScalarInst* second = oaScalarInst::create(block, master->getDesign(), oaTransform());
    EXPECT_EQ(nameOf(first), "I__0");
    EXPECT_EQ(nameOf(second), "I__1");
    EXPECT_EQ(oaInst::find(block, name("I__1")), second);
    EXPECT_EQ(oaScalarInst::find(block, name("a")), a);
    EXPECT_EQ(oaArrayInst::find(block, name("a")), nullptr);
    EXPECT_FALSE(oaScalarInst::isValidName(block, name("a")));
    EXPECT_TRUE(oaArrayInst::isValidName(block, name("b")));
    a->setName(name("b"));
    EXPECT_EQ(oaInst::find(block, name("a")), nullptr);
    EXPECT_EQ(oaInst::find(block, name("b")), a);
    EXPECT_EQ(thrownBy([&] { a->setName(name("I__0")); }), oacInstNameExists);
    first->destroy();
    EXPECT_FALSE(first->isValid());
    EXPECT_EQ(oaInst::find(block, name("I__0")), nullptr);
}

TEST_F(InstTest, ArraysRepeatTheirMaster) {
    oaArrayInst* array = oaArrayInst::create(block, master->getDesign(), name("array"),
                                             oaTransform(0, 0), 30, 50, 2, 4);
    EXPECT_EQ(array->getType(), oacArrayInstType);
    EXPECT_EQ(array->getNumRows(), 2u);
    EXPECT_EQ(array->getNumCols(), 4u);
    EXPECT_EQ(array->getDX(), 30);
    EXPECT_EQ(array->getDY(), 50);
    EXPECT_EQ(boxText(array), "0 0 100 70");
    oaBox box;
    array->getBBox(1, 2, box);
    EXPECT_EQ(spelled(box), "60 50 70 70");
    oaTransform xform;
    array->getTransform(1, 2, xform);
    EXPECT_TRUE(xform == oaTransform(60, 50));
    array->move(oaTransform(0, 0, oacR90));
    EXPECT_EQ(boxText(array), "-70 0 0 100");
    array->setDX(-100);
    array->setDY(0);
    array->setNumRows(1);
    array->setNumCols(2);
    EXPECT_EQ(boxText(array), "-120 0 0 10");
    EXPECT_EQ(messageOf([&] { array->setNumCols(0); }),
              "An array of 1 rows and 0 columns has no instances.");
    EXPECT_EQ(thrownBy([&] {
                  oaArrayInst::create(block, master->getDesign(), oaTransform(), 1, 1, 0, 1);
              }),
              oacArrayInstEmpty);
}

TEST_F(InstTest, MastersAreOpenedWhenTheyAreAskedFor) {
    const oaScalarName lib_ = name("lib");
    const oaScalarName view = name("layout");
    oaScalarInst* missing =
        oaScalarInst::create(block, lib_, name("missing"), view, name("m"), oaTransform());
    EXPECT_FALSE(missing->isBound());
    EXPECT_EQ(missing->getMaster(), nullptr);
    EXPECT_EQ(boxText(missing), "none");
    oaScalarInst* noLibrary =
        oaScalarInst::create(block, name("other"), name("c"), view, oaTransform());
    EXPECT_EQ(noLibrary->getMaster(), nullptr);
    EXPECT_EQ(masterNames(noLibrary), "other/c/layout");

    master->getDesign()->save();
    master->getDesign()->close();
    oaArrayInst* byName =
        oaArrayInst::create(block, lib_, name("master"), view, oaTransform(), 10, 10, 1, 2);
    EXPECT_FALSE(byName->isBound());
    EXPECT_EQ(oaDesign::find(lib_, name("master"), view), nullptr);
    oaDesign* opened = byName->getMaster();
    ASSERT_NE(opened, nullptr);
    EXPECT_TRUE(byName->isBound());
    EXPECT_EQ(opened->getMode(), 'r');
    EXPECT_EQ(opened->getRefCount(), 1u);
    missing->setMaster(lib_, name("master"), view);
    EXPECT_EQ(missing->getMaster(), opened);
    EXPECT_EQ(opened->getRefCount(), 1u);
    EXPECT_EQ(boxText(block), "0 0 20 20");

    block->getDesign()->close();
    EXPECT_FALSE(opened->isValid());
}

TEST_F(InstTest, ABoundMasterStaysOpenForItsInstances) {
    inst("a");
    oaDesign* design = master->getDesign();
    EXPECT_EQ(design->getRefCount(), 2u);
    design->save();
    design->close();
    EXPECT_TRUE(design->isValid());
    EXPECT_EQ(design->getRefCount(), 1u);
    oaInst::find(block, name("a"))->destroy();
    EXPECT_EQ(design->getRefCount(), 0u);
    design->close();
    EXPECT_FALSE(design->isValid());
}

TEST_F(InstTest, EmptyingADesignLetsItsMastersGo) {
    master->getDesign()->save();
    master->getDesign()->close();
    oaScalarInst* a = oaScalarInst::create(block, name("lib"), name("master"), name("layout"),
                                           name("a"), oaTransform());
    oaScalarInst::create(block, block->getDesign(), name("self"), oaTransform());
    oaDesign* opened = a->getMaster();
    ASSERT_NE(opened, nullptr);
    oaDesign* design = block->getDesign();
    design->reopen('w');
    EXPECT_FALSE(opened->isValid());
    EXPECT_TRUE(design->isValid());
}

TEST_F(InstTest, PurgingAMasterUnbindsItsInstances) {
    oaScalarInst* a = inst("a");
    master->getDesign()->save();
    master->getDesign()->purge();
    EXPECT_FALSE(a->isBound());
    EXPECT_NE(a->getMaster(), nullptr);
    EXPECT_TRUE(a->isBound());
}

TEST_F(InstTest, ADesignMayHoldItself) {
    oaRect::create(block, 1, 1, oaBox(0, 0, 10, 10));
    oaScalarInst* self =
        oaScalarInst::create(block, block->getDesign(), name("self"), oaTransform(100, 0));
    EXPECT_EQ(boxText(self), "100 0 110 10");
    EXPECT_EQ(boxText(block), "0 0 110 10");
    EXPECT_EQ(block->getDesign()->getRefCount(), 1u);
}

TEST_F(InstTest, InstancesCanBeOnPinsAndNetsAndHaveProperties) {
    oaScalarInst* a = inst("a");
    oaNet* net = oaNet::create(block, oaName(oaNativeNS(), "n"));
    oaPin* pin = oaPin::create(oaTerm::create(net, oaName(oaNativeNS(), "n")), "p");
    a->addToPin(pin);
    EXPECT_EQ(pin->getFigs().getCount(), 1u);
    EXPECT_TRUE(net->getShapes().isEmpty());
    oaIntProp::create(a, "p", 3);
    auto* copy = static_cast<oaScalarInst*>(a->copy(oaTransform(0, 100)));
    EXPECT_EQ(nameOf(copy), "I__0");
    EXPECT_FALSE(copy->hasPin());
    EXPECT_TRUE(copy->hasProp());
    EXPECT_EQ(boxText(copy), "100 100 110 120");
    a->destroy();
    EXPECT_TRUE(pin->getFigs().isEmpty());
}

TEST_F(InstTest, EverythingIsFoundAgainAfterSaving) {
    inst("gone")->destroy();
    inst("a", oaTransform(1, 2, oacMYR90))->setPlacementStatus(oacFixedPlacementStatus);
    oaArrayInst::create(block, master->getDesign(), name("b"), oaTransform(3, 4), -5, 6, 7, 8);
    master->getDesign()->save();
    master->getDesign()->close();
    block = reopened(block);
    auto* a = oaScalarInst::find(block, name("a"));
    ASSERT_NE(a, nullptr);
    EXPECT_FALSE(a->isBound());
    EXPECT_EQ(masterNames(a), "lib/master/layout");
    oaTransform xform;
    a->getTransform(xform);
    EXPECT_TRUE(xform == oaTransform(1, 2, oacMYR90));
    EXPECT_EQ(a->getPlacementStatus(), oacFixedPlacementStatus);
    auto* b = oaArrayInst::find(block, name("b"));
    ASSERT_NE(b, nullptr);
    EXPECT_EQ(b->getDX(), -5);
    EXPECT_EQ(b->getDY(), 6);
    EXPECT_EQ(b->getNumRows(), 7u);
    EXPECT_EQ(b->getNumCols(), 8u);
    EXPECT_EQ(boxText(b), "-32 4 13 60");
    EXPECT_EQ(thrownBy([&] { a->setOrient(oacR0); }), oacCannotModifyReadModeDesign);
    EXPECT_EQ(thrownBy([&] { b->setDX(1); }), oacCannotModifyReadModeDesign);
    EXPECT_EQ(thrownBy([&] { a->move(oaTransform(1, 1)); }), oacCannotModifyReadModeDesign);
}

TEST_F(InstTest, InstancesOfTheSameDesignGoToAnotherBlock) {
    oaScalarInst* a = inst("a");
    oaBlock* other = makeBlock("other");
    oaFig* moved = a->move(oaTransform(0, 0), other);
    EXPECT_FALSE(a->isValid());
    EXPECT_EQ(boxText(moved), "100 0 110 20");
    EXPECT_EQ(masterNames(static_cast<oaInst*>(moved)), "lib/master/layout");
    EXPECT_TRUE(block->getInsts().isEmpty());
}

} // namespace design_test
