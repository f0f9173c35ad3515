#include "design_fixture.h"

namespace design_test {

namespace {

class LayerTest : public DesignTest {
protected:
    oaBlock* block = makeBlock();

    oaRect* rect(oaLayerNum layer, oaPurposeNum purpose, const oaBox& box = oaBox(0, 0, 10, 20)) {
        return oaRect::create(block, layer, purpose, box);
    }
    std::string headers() const {
        std::string result;
        for (const oaLPPHeader* header : all(block->getLPPHeaders()))
            result += std::to_string(header->getLayerNum()) + "/" +
                      std::to_string(header->getPurposeNum()) + ":" +
                      std::to_string(header->getShapes().getCount()) + " ";
        return result;
    }
};

} // namespace

TEST_F(LayerTest, HeadersAppearWithTheFirstShape) {
    EXPECT_EQ(headers(), "");
    EXPECT_EQ(oaLPPHeader::find(block, 1, 2), nullptr);
    EXPECT_EQ(oaLayerHeader::find(block, 1), nullptr);
    oaRect* shape = rect(1, 2);
    oaDot::create(block, 1, 2, oaPoint(50, 50));
    rect(1, 3);
    rect(0xFFFFFFFF, 0xFFFFFFFF);
    EXPECT_EQ(headers(), "1/2:2 1/3:1 4294967295/4294967295:1 ");
    oaLPPHeader* header = oaLPPHeader::find(block, 1, 2);
    EXPECT_EQ(shape->getHeader(), header);
    EXPECT_EQ(header->getLayerHeader(), oaLayerHeader::find(block, 1));
    EXPECT_EQ(header->getLayerHeader()->getLayerNum(), 1u);
    EXPECT_EQ(header->getLayerHeader()->getLPPHeaders().getCount(), 2u);
    EXPECT_EQ(block->getLayerHeaders().getCount(), 2u);
    oaBox box;
    header->getShapeBBox(box);
    EXPECT_EQ(spelled(box), "0 0 50 50");
    EXPECT_FALSE(header->isBound());
    EXPECT_EQ(header->getLayer(), nullptr);
    EXPECT_EQ(header->getPurpose(), nullptr);
}

TEST_F(LayerTest, HeadersKnowTheLayersOfTheTechnology) {
    oaTech* tech = oaTech::create(lib);
    oaLayer* layer = oaPhysicalLayer::create(tech, "metal", 7);
    rect(7, 0xFFFFFFFF);
    rect(7, 1234);
    oaLPPHeader* header = oaLPPHeader::find(block, 7, 0xFFFFFFFF);
    EXPECT_EQ(header->getLayer(), layer);
    ASSERT_NE(header->getPurpose(), nullptr);
    EXPECT_EQ(header->getPurpose()->getNumber(), 0xFFFFFFFF);
    EXPECT_TRUE(header->isBound());
    EXPECT_TRUE(oaLayerHeader::find(block, 7)->isBound());
    EXPECT_FALSE(oaLPPHeader::find(block, 7, 1234)->isBound());
}

TEST_F(LayerTest, ShapesThatChangeTheirLayerStayWhatTheyAre) {
    oaRect* moved = rect(1, 2, oaBox(0, 0, 100, 100));
    rect(1, 2);
    rect(5, 6);
    moved->setLPP(5, 6);
    EXPECT_TRUE(moved->isValid());
    EXPECT_EQ(moved->getLayerNum(), 5u);
    EXPECT_EQ(moved->getPurposeNum(), 6u);
    EXPECT_EQ(headers(), "1/2:1 5/6:2 ");
    oaBox box;
    oaLPPHeader::find(block, 1, 2)->getShapeBBox(box);
    EXPECT_EQ(spelled(box), "0 0 10 20");
    oaLPPHeader::find(block, 5, 6)->getShapeBBox(box);
    EXPECT_EQ(spelled(box), "0 0 100 100");

    moved->setPurposeNum(9);
    EXPECT_EQ(headers(), "1/2:1 5/6:1 5/9:1 ");
    moved->setLayerNum(1);
    moved->setPurposeNum(2);
    EXPECT_EQ(headers(), "1/2:2 5/6:1 ");
    EXPECT_EQ(block->getShapes().getCount(), 3u);
}

TEST_F(LayerTest, ShapesThatChangedTheirLayerAreSavedThere) {
    oaRect* moved = rect(1, 2, oaBox(0, 0, 100, 100));
    oaRect* destroyed = rect(1, 2, oaBox(0, 0, 200, 200));
    rect(1, 2);
    moved->setLPP(5, 6);
    destroyed->setLPP(5, 6);
    destroyed->destroy();
    block = reopened(block, 'a');
    EXPECT_EQ(headers(), "1/2:1 5/6:1 ");
    oaShape* shape = all(oaLPPHeader::find(block, 5, 6)->getShapes()).front();
    EXPECT_EQ(boxText(shape), "0 0 100 100");
    shape->destroy();
    EXPECT_EQ(headers(), "1/2:1 ");
    block = reopened(block);
    EXPECT_EQ(headers(), "1/2:1 ");
}

TEST_F(LayerTest, BlockBoxFollowsEveryChange) {
    oaRect* a = rect(1, 1, oaBox(0, 0, 10, 10));
    oaRect* b = rect(1, 1, oaBox(5, 5, 20, 20));
    oaLine* c = oaLine::create(block, 2, 1, points({{-5, 0}, {3, 3}}));
    EXPECT_EQ(boxText(block), "-5 0 20 20");
    b->destroy();
    EXPECT_EQ(boxText(block), "-5 0 10 10");
    a->setBBox(oaBox(1, 1, 4, 4));
    EXPECT_EQ(boxText(block), "-5 0 4 4");
    c->move(oaTransform(100, 0));
    EXPECT_EQ(boxText(block), "1 0 103 4");
    c->setPoints(points({{0, 0}, {2, 2}}));
    EXPECT_EQ(boxText(block), "0 0 4 4");
    a->destroy();
    c->destroy();
    EXPECT_EQ(boxText(block), "none");
}

TEST_F(LayerTest, UnitsAreThoseOfTheTechnology) {
    EXPECT_EQ(block->getDBUPerUU(), 1000u);
    EXPECT_EQ(block->getUserUnits(), oacMicron);
    oaTech* tech = oaTech::create(lib);
    tech->setDBUPerUU(oaViewType::get(oacMaskLayout), 2000);
    tech->setUserUnits(oaViewType::get(oacMaskLayout), oacMil);
    EXPECT_EQ(block->getDBUPerUU(), 2000u);
    EXPECT_EQ(block->getUserUnits(), oacMil);
}

} // namespace design_test
