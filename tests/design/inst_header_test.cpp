#include "design_fixture.h"

namespace design_test {

namespace {

class InstHeaderTest : public DesignTest {
protected:
    oaBlock* master = makeBlock("master");
    oaBlock* block = makeBlock();

    InstHeaderTest() { oaRect::create(master, 1, 1, oaBox(0, 0, 10, 20)); }

    oaScalarInst* inst(const char* instName, oaInt4 x = 0) {
        return oaScalarInst::create(block, master->getDesign(), name(instName), oaTransform(x, 0));
    }
};

} // namespace

TEST_F(InstHeaderTest, OneStandsForAllInstancesOfAMaster) {
    EXPECT_TRUE(block->getInstHeaders().isEmpty());
    EXPECT_EQ(oaInstHeader::find(block, master->getDesign()), nullptr);
    const std::vector<oaInst*> insts = {inst("a"), inst("b", 50)};
    oaInstHeader* header = insts[0]->getHeader();
    EXPECT_EQ(all(block->getInstHeaders()), std::vector<oaInstHeader*>{header});
    EXPECT_EQ(insts[1]->getHeader(), header);
    EXPECT_EQ(static_cast<oaRef*>(insts[1])->getHeader(), header);
    EXPECT_EQ(all(header->getInsts()), insts);
    EXPECT_EQ(oaInstHeader::find(block, master->getDesign()), header);
    EXPECT_EQ(oaInstHeader::find(block, name("lib"), name("master"), name("layout")), header);
    EXPECT_EQ(oaInstHeader::find(block, name("lib"), name("other"), name("layout")), nullptr);
    EXPECT_EQ(header->getType(), oacInstHeaderType);
    EXPECT_EQ(header->getBlock(), block);
    EXPECT_EQ(header->getMaster(), master->getDesign());
    EXPECT_TRUE(header->isBound());
    EXPECT_FALSE(header->isSuperHeader());
    EXPECT_FALSE(header->isSubHeader());
    EXPECT_EQ(header->getSuperHeader(), nullptr);
    EXPECT_TRUE(header->getSubHeaders().isEmpty());
    oaString text;
    header->getLibName(oaNativeNS(), text);
    EXPECT_EQ(text, "lib");
    header->getCellName(oaNativeNS(), text);
    EXPECT_EQ(text, "master");
    header->getViewName(oaNativeNS(), text);
    EXPECT_EQ(text, "layout");
    oaParamArray params;
    header->getAllParams(params);
    EXPECT_EQ(params.getNumElements(), 0u);
    oaBox box;
    header->getMasterBBox(box);
    EXPECT_EQ(spelled(box), "0 0 10 20");
    header->getBBox(box);
    EXPECT_EQ(spelled(box), "0 0 60 20");
}

TEST_F(InstHeaderTest, OpensTheMasterWhenItIsAskedFor) {
    inst("a");
    master->getDesign()->save();
    master->getDesign()->close();
    block = reopened(block);
    const oaInstHeader* header =
        oaInstHeader::find(block, name("lib"), name("master"), name("layout"));
    ASSERT_NE(header, nullptr);
    EXPECT_FALSE(header->isBound());
    EXPECT_NE(header->getMaster(), nullptr);
    EXPECT_TRUE(header->isBound());
    EXPECT_TRUE(oaInst::find(block, name("a"))->isBound());
}

TEST_F(InstHeaderTest, FollowsTheMastersOfInstances) {
    oaInst* a = inst("a");
    oaInst* b = inst("b");
    const oaInstHeader* header = a->getHeader();
    a->setMaster(name("lib"), name("missing"), name("layout"));
    EXPECT_EQ(all(header->getInsts()), std::vector<oaInst*>{b});
    const oaInstHeader* missing = a->getHeader();
    EXPECT_NE(missing, header);
    EXPECT_EQ(missing->getMaster(), nullptr);
    oaBox box;
    missing->getMasterBBox(box);
    EXPECT_TRUE(box.isInverted());
    EXPECT_EQ(block->getInstHeaders().getCount(), 2u);
    b->destroy();
    EXPECT_EQ(oaInstHeader::find(block, master->getDesign()), nullptr);
    EXPECT_EQ(block->getInstHeaders().getCount(), 1u);
}

TEST_F(InstHeaderTest, KeepsItsProperties) {
    inst("a");
    oaIntProp::create(inst("b")->getHeader(), "note", 7);
    oaInstHeader* gone = oaScalarInst::create(block, name("lib"), name("x"), name("layout"),
                                              name("c"), oaTransform())
                             ->getHeader();
    oaIntProp::create(gone, "note", 8);
    oaInst::find(block, name("c"))->destroy();
    master->getDesign()->save();
    block = reopened(block);
    const oaInstHeader* header =
        oaInstHeader::find(block, name("lib"), name("master"), name("layout"));
    ASSERT_NE(oaProp::find(header, "note"), nullptr);
    EXPECT_EQ(header->getProps().getCount(), 1u);
    EXPECT_EQ(block->getInstHeaders().getCount(), 1u);
}

} // namespace design_test
