#include "design_fixture.h"

namespace design_test {

namespace {

class VectorInstTest : public DesignTest {
protected:
    oaBlock* master = makeBlock("master");
    oaBlock* block = makeBlock();

    VectorInstTest() { oaRect::create(master, 1, 1, oaBox(0, 0, 10, 20)); }

    oaVectorInst* vector(oaUInt4 start, oaUInt4 stop, const char* base = "v") {
        return oaVectorInst::create(block, master->getDesign(), name(base), start, stop,
                                    oaTransform(100, 0));
    }
    std::vector<std::string> names(oaUInt4 flags) const {
        std::vector<std::string> result;
        for (const oaInst* inst : all(block->getInsts(flags)))
            result.push_back(nameOf(inst));
        std::sort(result.begin(), result.end());
        return result;
    }
};

using Names = std::vector<std::string>;

} // namespace

TEST_F(VectorInstTest, VectorsHaveABaseNameAndARange) {
    const oaVectorInst* v = vector(3, 1);
    EXPECT_EQ(nameOf(v), "v[3:1]");
    EXPECT_EQ(v->getStart(), 3u);
    EXPECT_EQ(v->getStop(), 1u);
    EXPECT_EQ(v->getNumBits(), 3u);
    EXPECT_FALSE(v->isImplicit());
    EXPECT_EQ(v->getType(), oacVectorInstType);
    EXPECT_TRUE(v->isInst());
    EXPECT_FALSE(v->isBitInst());
    EXPECT_EQ(boxText(v), "100 0 110 20");
    EXPECT_EQ(boxText(block), "100 0 110 20");
    oaVectorName vectorName;
    v->getName(vectorName);
    EXPECT_TRUE(vectorName == oaVectorName(name("v"), 3, 1));
    oaString spelling;
    v->getName(oaCdbaNS(), spelling);
    EXPECT_EQ(spelling, "v<3:1>");
    EXPECT_EQ(oaVectorInst::find(block, name("v"), 3, 1), v);
    EXPECT_EQ(oaInst::find(block, oaSimpleName(oaCdbaNS(), "v<3:1>")), v);
    EXPECT_EQ(oaVectorInst::find(block, name("v"), 1, 3), nullptr);
    EXPECT_EQ(oaScalarInst::find(block, name("v[3:1]")), nullptr);
}

TEST_F(VectorInstTest, BitsShowTheirVector) {
    oaVectorInst* v = vector(3, 1);
    oaVectorInstBit* bit = v->getBit(1);
    ASSERT_NE(bit, nullptr);
    EXPECT_EQ(nameOf(bit), "v[2]");
    EXPECT_EQ(bit->getBitIndex(), 2u);
    EXPECT_TRUE(bit->isImplicit());
    EXPECT_TRUE(bit->isBitInst());
    EXPECT_EQ(bit->getType(), oacVectorInstBitType);
    EXPECT_EQ(bit->getMaster(), master->getDesign());
    EXPECT_EQ(bit->getNumBits(), 1u);
    EXPECT_EQ(v->getBit(3), nullptr);
    EXPECT_EQ(oaVectorInstBit::find(block, name("v"), 2), bit);
    EXPECT_EQ(oaInst::find(block, oaSimpleName(oaCdbaNS(), "v<2>")), bit);
    oaVectorBitName bitName;
    bit->getName(bitName);
    EXPECT_TRUE(bitName == oaVectorBitName(name("v"), 2));
    v->setOrigin(oaPoint(7, 8));
    EXPECT_EQ(boxText(bit), "7 8 17 28");
    EXPECT_EQ(names(oacInstIterNotImplicit), Names{"v[3:1]"});
    EXPECT_EQ(names(oacInstIterAll), (Names{"v[1]", "v[2]", "v[3:1]", "v[3]"}));
    EXPECT_EQ(names(oacInstIterSingleBit), (Names{"v[1]", "v[2]", "v[3]"}));
    EXPECT_EQ(names(oacInstIterSingleBit | oacInstIterNotImplicit), Names());
}

TEST_F(VectorInstTest, BitsChangeWithTheirVectorOnly) {
    oaVectorInst* v = vector(0, 1);
    oaVectorInstBit* bit = v->getBit(0);
    EXPECT_EQ(messageOf([&] { bit->destroy(); }),
              "Instance 'v[0]' is a bit of a vector and changes with the vector only.");
    const oaUInt4 refusal = oacCannotModifyImplicitInst;
    EXPECT_EQ(thrownBy([&] { bit->setOrigin(oaPoint(0, 0)); }), refusal);
    EXPECT_EQ(thrownBy([&] { bit->move(oaTransform(1, 1)); }), refusal);
    EXPECT_EQ(thrownBy([&] { bit->move(oaTransform(1, 1), master); }), refusal);
    EXPECT_EQ(thrownBy([&] { bit->setName(name("w"), 3); }), refusal);
    EXPECT_EQ(thrownBy([&] { bit->setMaster(master->getDesign()); }), refusal);
    EXPECT_EQ(thrownBy([&] { bit->setParams(oaParamArray()); }), refusal);
    EXPECT_EQ(master->getInsts().getCount(), 0u);
    v->setMaster(name("lib"), name("missing"), name("layout"));
    EXPECT_EQ(bit->getMaster(), nullptr);
    v->destroy();
    EXPECT_FALSE(bit->isValid());
    EXPECT_EQ(names(oacInstIterAll), Names());
}

TEST_F(VectorInstTest, NamesOfVectorsAndBitsDiffer) {
    vector(0, 2);
    const oaScalarName v = name("v");
    EXPECT_EQ(messageOf([&] { vector(0, 2); }), "There is already an instance named 'v[0:2]'.");
    EXPECT_EQ(messageOf([&] { vector(2, 4); }), "There is already an instance named 'v[2]'.");
    EXPECT_EQ(
        thrownBy([&] { oaVectorInstBit::create(block, master->getDesign(), v, 1, oaTransform()); }),
        oacInstNameExists);
    EXPECT_EQ(thrownBy([&] { vector(0, 1, ""); }), oacInvalidNameInput);
    EXPECT_EQ(thrownBy([&] {
                  oaVectorInst::create(block, master->getDesign(), oaScalarName(), 0, 1,
                                       oaTransform());
              }),
              oacInvalidInstName);
    EXPECT_EQ(messageOf([&] { vector(0, 65536, "w"); }),
              "'w[0:65536]' is not a valid instance name: it has more than 65536 bits.");
    EXPECT_EQ(thrownBy([&] { vector(0, 0xFFFFFFFF, "w"); }), oacInvalidInstName);
    EXPECT_FALSE(oaVectorInst::isValidName(block, v, 2, 3));
    EXPECT_TRUE(oaVectorInst::isValidName(block, v, 3, 4));
    EXPECT_FALSE(oaVectorInst::isValidName(block, oaScalarName(), 3, 4));
    EXPECT_FALSE(oaVectorInstBit::isValidName(block, v, 2));
    EXPECT_TRUE(oaVectorInstBit::isValidName(block, v, 3));
    EXPECT_EQ(block->getInsts().getCount(), 1u);
}

TEST_F(VectorInstTest, BitsMayStandForThemselves) {
    oaVectorInstBit* bit =
        oaVectorInstBit::create(block, master->getDesign(), name("v"), 5, oaTransform(1, 2));
    EXPECT_FALSE(bit->isImplicit());
    EXPECT_EQ(names(oacInstIterNotImplicit), Names{"v[5]"});
    bit->setName(name("w"), 6);
    EXPECT_EQ(nameOf(bit), "w[6]");
    bit->setOrigin(oaPoint(0, 0));
    EXPECT_EQ(boxText(bit), "0 0 10 20");
    EXPECT_EQ(nameOf(static_cast<oaInst*>(bit->copy(oaTransform(5, 5)))), "I__0[6]");
    oaVectorInstBit* byName = oaVectorInstBit::create(block, name("lib"), name("missing"),
                                                      name("layout"), name("v"), 5, oaTransform());
    EXPECT_FALSE(byName->isBound());
}

TEST_F(VectorInstTest, RangesCanBeChanged) {
    oaVectorInst* v = vector(0, 2);
    const oaInst* kept = v->getBit(2);
    const oaInst* dropped = v->getBit(0);
    vector(7, 9);
    v->setRange(2, 4);
    EXPECT_EQ(nameOf(v), "v[2:4]");
    EXPECT_EQ(v->getBit(0), kept);
    EXPECT_FALSE(dropped->isValid());
    EXPECT_EQ(thrownBy([&] { v->setRange(4, 7); }), oacInstNameExists);
    v->setBaseName(name("w"));
    EXPECT_EQ(nameOf(v), "w[2:4]");
    EXPECT_EQ(nameOf(kept), "w[2]");
    EXPECT_EQ(names(oacInstIterSingleBit), (Names{"v[7]", "v[8]", "v[9]", "w[2]", "w[3]", "w[4]"}));
}

TEST_F(VectorInstTest, CopiesHaveBitsOfTheirOwn) {
    oaVectorInst* v = vector(1, 0);
    auto* copy = static_cast<oaVectorInst*>(v->copy(oaTransform(0, 50)));
    EXPECT_EQ(nameOf(copy), "I__0[1:0]");
    EXPECT_EQ(nameOf(copy->getBit(1)), "I__0[0]");
    EXPECT_EQ(boxText(copy->getBit(1)), "100 50 110 70");
    const oaFig* single = v->getBit(0)->copy(oaTransform(0, 100));
    EXPECT_EQ(single->getType(), oacScalarInstType);
    EXPECT_EQ(boxText(single), "100 100 110 120");
}

TEST_F(VectorInstTest, EverythingIsFoundAgainAfterSaving) {
    vector(9, 8, "gone")->destroy();
    vector(1, 3);
    oaVectorInstBit::create(block, master->getDesign(), name("w"), 5, oaTransform(1, 2));
    master->getDesign()->save();
    block = reopened(block);
    EXPECT_EQ(names(oacInstIterAll), (Names{"v[1:3]", "v[1]", "v[2]", "v[3]", "w[5]"}));
    EXPECT_EQ(names(oacInstIterNotImplicit), (Names{"v[1:3]", "w[5]"}));
    const oaVectorInst* v = oaVectorInst::find(block, name("v"), 1, 3);
    ASSERT_NE(v, nullptr);
    EXPECT_EQ(boxText(v->getBit(2)), "100 0 110 20");
    EXPECT_EQ(thrownBy([&] { const_cast<oaVectorInst*>(v)->setRange(1, 2); }),
              oacCannotModifyReadModeDesign);
}

TEST_F(VectorInstTest, GoWithTheBlock) {
    const oaInst* v = vector(1, 3);
    block->destroy();
    EXPECT_FALSE(v->isValid());
    block = oaBlock::create(open("cell", 'a'));
    EXPECT_TRUE(block->getInsts(oacInstIterAll).isEmpty());
}

} // namespace design_test
