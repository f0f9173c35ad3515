// The hierarchy below a design in which every path is told apart.

#include "design_fixture.h"

namespace design_test {

namespace {

using Names = std::vector<std::string>;

/// "top" holds the scalar s and the vector v[1:0] of "middle", which holds an array of "leaf".
class OccurrenceTest : public DesignTest {
protected:
    OccurrenceTest() {
        oaRect::create(leaf, 1, 1, oaBox(0, 0, 10, 20));
        a = oaArrayInst::create(middle, leaf->getDesign(), name("a"), oaTransform(), 100, 100, 2,
                                3);
        s = oaScalarInst::create(top, middle->getDesign(), name("s"), oaTransform());
        v = oaVectorInst::create(top, middle->getDesign(), name("v"), 1, 0, oaTransform(0, 500));
        occurrence = top->getDesign()->getTopOccurrence();
    }

    static std::string pathOf(const oaOccInst* inst, const oaNameSpace& ns = oaNativeNS()) {
        oaString path;
        inst->getPathName(ns, path);
        return text(path);
    }
    static Names paths(const oaOccurrence* occurrence, oaUInt4 flags = oacInstIterNotImplicit) {
        Names names;
        for (const oaOccInst* inst : all(occurrence->getInsts(flags)))
            names.push_back(pathOf(inst));
        return names;
    }

    oaBlock* leaf = makeBlock("leaf");
    oaBlock* middle = makeBlock("middle");
    oaBlock* top = makeBlock("top");
    oaArrayInst* a;
    oaScalarInst* s;
    oaVectorInst* v;
    oaOccurrence* occurrence;
};

} // namespace

TEST_F(OccurrenceTest, TopIsMissingWithoutABlock) {
    EXPECT_EQ(open("empty", 'w')->getTopOccurrence(), nullptr);
}

TEST_F(OccurrenceTest, TopIsThereOnce) {
    EXPECT_EQ(top->getDesign()->getTopOccurrence(), occurrence);
    EXPECT_EQ(occurrence->getType(), oacOccurrenceType);
    EXPECT_EQ(occurrence->getDomain(), oacOccDomain);
    EXPECT_EQ(occurrence->getBlock(), top);
    EXPECT_EQ(occurrence->getDesign(), top->getDesign());
    EXPECT_EQ(occurrence->getOccInst(), nullptr);
    EXPECT_EQ(occurrence->getOccurrence(), nullptr);
    EXPECT_EQ(occurrence->getTopOccurrence(), occurrence);
    EXPECT_FALSE(occurrence->isOccInst());
    EXPECT_FALSE(occurrence->isOccBitInst());
    EXPECT_FALSE(occurrence->isBlockObject());
}

TEST_F(OccurrenceTest, HasTheInstancesOfItsBlock) {
    EXPECT_EQ(paths(occurrence), (Names{"s", "v[1:0]"}));
    EXPECT_EQ(paths(occurrence, oacInstIterSingleBit), (Names{"s", "v[1]", "v[0]"}));
    EXPECT_EQ(paths(occurrence, oacInstIterAll).size(), 4u);
    EXPECT_EQ(all(occurrence->getInsts()), all(occurrence->getInsts()));
}

TEST_F(OccurrenceTest, InstancesSayWhatTheyStandFor) {
    oaOccScalarInst* inst = oaOccScalarInst::find(occurrence, name("s"));
    ASSERT_NE(inst, nullptr);
    EXPECT_EQ(inst->getInst(), s);
    EXPECT_EQ(s->getOccInst(), inst);
    EXPECT_EQ(inst->getType(), oacOccScalarInstType);
    EXPECT_EQ(inst->getDomain(), oacOccDomain);
    EXPECT_EQ(inst->getOccurrence(), occurrence);
    EXPECT_EQ(inst->getMaster(), middle->getDesign());
    EXPECT_EQ(nameOf(inst), "s");
    EXPECT_EQ(pathOf(inst), "s");
    EXPECT_EQ(inst->getNumBits(), 1u);
    EXPECT_TRUE(inst->isBound());
    EXPECT_TRUE(inst->isOccInst());
    EXPECT_TRUE(inst->isOccBitInst());
    EXPECT_TRUE(inst->isOccDesignInst());
    EXPECT_FALSE(inst->isOccModuleInst());
    EXPECT_FALSE(inst->isImplicit());
    EXPECT_FALSE(inst->usesTermPositions());
    EXPECT_FALSE(inst->isBlockObject());
    oaString cell;
    inst->getCellName(oaNativeNS(), cell);
    EXPECT_EQ(cell, "middle");
    oaScalarName own;
    inst->getName(own);
    EXPECT_TRUE(own == name("s"));
}

TEST_F(OccurrenceTest, VectorsHaveBits) {
    oaOccVectorInst* vector = oaOccVectorInst::find(occurrence, name("v"), 1, 0);
    ASSERT_NE(vector, nullptr);
    EXPECT_EQ(vector->getInst(), v);
    EXPECT_EQ(vector->getType(), oacOccVectorInstType);
    EXPECT_EQ(vector->getStart(), 1u);
    EXPECT_EQ(vector->getStop(), 0u);
    EXPECT_EQ(vector->getNumBits(), 2u);
    EXPECT_FALSE(vector->isOccBitInst());
    oaOccVectorInstBit* bit = vector->getBit(1);
    EXPECT_EQ(bit, oaOccVectorInstBit::find(occurrence, name("v"), 0));
    EXPECT_EQ(bit->getInst(), v->getBit(1));
    EXPECT_EQ(bit->getType(), oacOccVectorInstBitType);
    EXPECT_EQ(bit->getBitIndex(), 0u);
    EXPECT_EQ(pathOf(bit), "v[0]");
    EXPECT_TRUE(bit->isImplicit());
    EXPECT_EQ(vector->getBit(2), nullptr);
}

TEST_F(OccurrenceTest, IsThereForEachPath) {
    const auto below = [&](const char* path) {
        return oaOccInst::find(occurrence, oaSimpleName(oaNativeNS(), path))->getMasterOccurrence();
    };
    oaOccurrence* first = below("s");
    oaOccurrence* second = below("v[0]");
    ASSERT_NE(first, nullptr);
    ASSERT_NE(second, nullptr);
    EXPECT_NE(first, second);
    EXPECT_EQ(first, below("s"));
    EXPECT_EQ(first->getBlock(), middle);
    EXPECT_EQ(first->getTopOccurrence(), occurrence);
    EXPECT_EQ(first->getOccurrence(), occurrence);
    EXPECT_EQ(first->getOccInst(), s->getOccInst());
    EXPECT_EQ(paths(first), Names{"s/a"});
    EXPECT_EQ(paths(second), Names{"v[0]/a"});
    EXPECT_EQ(below("v[1:0]"), nullptr);
    oaOccArrayInst* array = oaOccArrayInst::find(second, name("a"));
    EXPECT_EQ(array->getInst(), a);
    EXPECT_EQ(array->getDesign(), top->getDesign());
    EXPECT_EQ(array->getMasterOccurrence()->getBlock(), leaf);
}

TEST_F(OccurrenceTest, PathsAreSpelledMemberByMember) {
    s->setName(name("s.1"));
    const oaOccurrence* below = s->getOccInst()->getMasterOccurrence();
    const oaOccArrayInst* array = oaOccArrayInst::find(below, name("a"));
    EXPECT_EQ(pathOf(array), "s.1/a");
    EXPECT_EQ(pathOf(array, oaUnixNS()), "s#2e1/a");
    oaScalarName scalar;
    array->getPathName(scalar);
    EXPECT_TRUE(scalar == name("s.1/a"));
    oaSimpleName simple;
    array->getPathName(simple);
    EXPECT_EQ(simple.getType(), oacScalarNameType);
    const oaOccVectorInst* vector = oaOccVectorInst::find(occurrence, name("v"), 1, 0);
    EXPECT_EQ(pathOf(vector, oaCdbaNS()), "v<1:0>");
    oaVectorName vectorPath;
    vector->getPathName(vectorPath);
    EXPECT_TRUE(vectorPath == oaVectorName(name("v"), 1, 0));
    oaVectorBitName bitPath;
    vector->getBit(0)->getPathName(bitPath);
    EXPECT_TRUE(bitPath == oaVectorBitName(name("v"), 1));
}

TEST_F(OccurrenceTest, InstancesOfOneDesignAreFoundBelowATop) {
    EXPECT_TRUE(all(a->getOccInsts(occurrence)).empty());
    for (const oaOccInst* inst : all(occurrence->getInsts(oacInstIterAll)))
        if (const oaOccurrence* below = inst->getMasterOccurrence())
            below->getInsts();
    Names names;
    for (const oaOccInst* inst : all(a->getOccInsts(occurrence)))
        names.push_back(pathOf(inst));
    EXPECT_EQ(names, (Names{"s/a", "v[1]/a", "v[0]/a"}));
    const oaOccurrence* own = middle->getDesign()->getTopOccurrence();
    EXPECT_EQ(all(a->getOccInsts(own)), std::vector<oaOccInst*>{});
    EXPECT_EQ(pathOf(a->getOccInst()), "a");
    EXPECT_EQ(all(a->getOccInsts(own)), std::vector<oaOccInst*>{a->getOccInst()});
}

TEST_F(OccurrenceTest, IsExpandedWhenItIsAskedFor) {
    top = reopened(top);
    middle->getDesign()->save();
    middle->getDesign()->close();
    occurrence = top->getDesign()->getTopOccurrence();
    const oaOccScalarInst* inst = oaOccScalarInst::find(occurrence, name("s"));
    EXPECT_FALSE(inst->isBound());
    EXPECT_EQ(inst->getMasterOccurrence(false), nullptr);
    EXPECT_FALSE(inst->isBound());
    EXPECT_NE(inst->getMasterOccurrence(), nullptr);
    EXPECT_TRUE(inst->isBound());
    EXPECT_EQ(inst->getMasterOccurrence(false), inst->getMasterOccurrence());
    EXPECT_FALSE(top->getDesign()->isModified());
}

TEST_F(OccurrenceTest, IsNotThereBelowMissingMasters) {
    const oaInst* inst =
        oaScalarInst::create(top, name("lib"), name("none"), name("layout"), oaTransform());
    EXPECT_EQ(inst->getOccInst()->getMasterOccurrence(), nullptr);
    const oaInst* empty =
        oaScalarInst::create(top, open("empty", 'w'), name("empty"), oaTransform());
    EXPECT_EQ(empty->getOccInst()->getMasterOccurrence(), nullptr);
}

TEST_F(OccurrenceTest, IsNotExpandedBelowItself) {
    const oaInst* back =
        oaScalarInst::create(middle, top->getDesign(), name("back"), oaTransform());
    const oaOccurrence* below = s->getOccInst()->getMasterOccurrence();
    const oaOccScalarInst* inst = oaOccScalarInst::find(below, name("back"));
    EXPECT_EQ(inst->getInst(), back);
    EXPECT_EQ(inst->getMaster(), top->getDesign());
    EXPECT_EQ(inst->getMasterOccurrence(), nullptr);
}

TEST_F(OccurrenceTest, FollowsTheBlock) {
    oaOccInst* gone = s->getOccInst();
    oaOccurrence* below = gone->getMasterOccurrence();
    s->destroy();
    EXPECT_EQ(thrownBy([&] { gone->getNumBits(); }), oacInvalidObject);
    oaScalarInst::create(top, leaf->getDesign(), name("n"), oaTransform());
    EXPECT_EQ(paths(occurrence), (Names{"v[1:0]", "n"}));
    EXPECT_FALSE(gone->isValid());
    EXPECT_FALSE(below->isValid());
}

TEST_F(OccurrenceTest, FollowsTheContentOfMasters) {
    const oaOccurrence* old = s->getOccInst()->getMasterOccurrence();
    const oaOccInst* inst = all(old->getInsts())[0];
    oaDesign* master = middle->getDesign();
    master->save();
    master->reopen('w');
    EXPECT_EQ(old->getBlock(), nullptr);
    EXPECT_TRUE(old->getInsts().isEmpty());
    EXPECT_EQ(thrownBy([&] { inst->getInst(); }), oacInvalidObject);
    EXPECT_EQ(s->getOccInst()->getMasterOccurrence(), nullptr);
    EXPECT_FALSE(old->isValid());
    EXPECT_FALSE(inst->isValid());
    oaBlock* block = oaBlock::create(master);
    EXPECT_EQ(s->getOccInst()->getMasterOccurrence()->getBlock(), block);
}

TEST_F(OccurrenceTest, EndsWithItsDesign) {
    oaOccurrence* below = s->getOccInst()->getMasterOccurrence();
    top->getDesign()->purge();
    EXPECT_FALSE(occurrence->isValid());
    EXPECT_FALSE(below->isValid());
}

TEST_F(OccurrenceTest, IsNotStored) {
    all(s->getOccInst()->getMasterOccurrence()->getInsts());
    oaIntProp::create(s, "p", 1);
    EXPECT_EQ(thrownBy([&] { oaIntProp::create(s->getOccInst(), "p", 1); }), oacInvalidObjForProp);
    top = reopened(top);
    EXPECT_EQ(paths(top->getDesign()->getTopOccurrence()), (Names{"s", "v[1:0]"}));
}

} // namespace design_test
