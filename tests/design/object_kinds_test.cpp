#include "design_fixture.h"

namespace design_test {

namespace {

/// The tests of oaBlockObject that hold for an object.
std::string kinds(const oaBlockObject* object) {
    std::string result;
    const auto add = [&](oaBoolean holds, const char* kind) {
        if (holds)
            result += (result.empty() ? "" : " ") + std::string(kind);
    };
    add(object->isFig(), "fig");
    add(object->isConnFig(), "connFig");
    add(object->isPinFig(), "pinFig");
    add(object->isShape(), "shape");
    add(object->isTextDisplay(), "textDisplay");
    add(object->isRef(), "ref");
    add(object->isInst(), "inst");
    add(object->isBitInst(), "bitInst");
    add(object->isVia(), "via");
    add(object->isNet(), "net");
    add(object->isBitNet(), "bitNet");
    add(object->isTerm(), "term");
    add(object->isBitTerm(), "bitTerm");
    return result;
}

} // namespace

using ObjectKindsTest = DesignTest;

TEST_F(ObjectKindsTest, ObjectsTellWhatTheyAre) {
    oaBlock* block = makeBlock();
    const std::string shape = "fig connFig pinFig shape";
    oaRect* rect = oaRect::create(block, 1, 1, oaBox(0, 0, 1, 1));
    oaNet* net = oaScalarNet::create(block);
    oaTerm* term = oaTerm::create(net, oaName(oaNativeNS(), "t"));
    EXPECT_EQ(kinds(block), "");
    EXPECT_EQ(kinds(rect), shape);
    EXPECT_EQ(kinds(rect->getHeader()), "");
    EXPECT_EQ(kinds(rect->getHeader()->getLayerHeader()), "");
    EXPECT_EQ(kinds(oaDot::create(block, 1, 1, oaPoint())), shape);
    EXPECT_EQ(kinds(oaAttrDisplay::create(net, oaNetAttrType(oacNameNetAttrType), 1, 1, oaPoint(),
                                          oacLowerLeftTextAlign, oacR0, oacRomanFont, 10)),
              shape + " textDisplay");
    EXPECT_EQ(kinds(net), "net bitNet");
    EXPECT_EQ(kinds(term), "term bitTerm");
    EXPECT_EQ(kinds(oaPin::create(term)), "");
    const std::string inst = "fig connFig pinFig ref inst bitInst";
    EXPECT_EQ(kinds(oaScalarInst::create(block, name("l"), name("c"), name("v"), oaTransform())),
              inst);
    EXPECT_EQ(kinds(oaArrayInst::create(block, name("l"), name("c"), name("v"), oaTransform(), 1, 1,
                                        1, 1)),
              inst);
}

TEST_F(ObjectKindsTest, ClassesFormOneTree) {
    oaBlock* block = makeBlock();
    oaObject* rect = oaRect::create(block, 1, 1, oaBox(0, 0, 1, 1));
    EXPECT_NE(dynamic_cast<oaShape*>(rect), nullptr);
    EXPECT_NE(dynamic_cast<oaPinFig*>(rect), nullptr);
    EXPECT_NE(dynamic_cast<oaBlockObject*>(rect), nullptr);
    EXPECT_EQ(dynamic_cast<oaPolygon*>(rect), nullptr);
    oaObject* inst =
        oaArrayInst::create(block, name("l"), name("c"), name("v"), oaTransform(), 1, 1, 1, 1);
    EXPECT_NE(dynamic_cast<oaRef*>(inst), nullptr);
    EXPECT_NE(dynamic_cast<oaArrayInst*>(inst), nullptr);
    EXPECT_EQ(dynamic_cast<oaScalarInst*>(inst), nullptr);
    oaObject* text = oaEvalText::create(block, 1, 1, "t", oaPoint(), oacLowerLeftTextAlign, oacR0,
                                        oacRomanFont, 1);
    EXPECT_NE(dynamic_cast<oaText*>(text), nullptr);
    EXPECT_NE(dynamic_cast<oaDesignObject*>(static_cast<oaObject*>(block->getDesign())), nullptr);
}

TEST_F(ObjectKindsTest, ObjectsKnowTheirDomainAndDesign) {
    oaBlock* block = makeBlock();
    oaRect* rect = oaRect::create(block, 1, 1, oaBox(0, 0, 1, 1));
    EXPECT_EQ(rect->getDomain(), oacBlockDomain);
    EXPECT_EQ(block->getDomain(), oacBlockDomain);
    EXPECT_EQ(block->getDesign()->getDomain(), oacNoDomain);
    EXPECT_EQ(rect->getDatabase(), block->getDesign());
    EXPECT_EQ(rect->getDesign(), block->getDesign());
    EXPECT_EQ(rect->getBlock(), block);
    EXPECT_FALSE(rect->isDesign());
}

} // namespace design_test
