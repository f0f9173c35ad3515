#include "design_fixture.h"

#include "support/files.h"

#include <numbers>

namespace design_test {

using ovalis::test::readText;

namespace {

/// A block with one object of every kind, and how each is found again.
class SavedTest : public DesignTest {
protected:
    void fill(oaBlock* block) {
        oaRect::create(block, 1, 1, oaBox(0, 0, 10, 20));
        oaPolygon::create(block, 1, 1, points({{0, 0}, {10, 0}, {0, 10}}));
        oaLine::create(block, 1, 1, points({{0, 0}, {10, 0}, {0, 10}}));
        oaPath::create(block, 1, 1, 6, points({{0, 0}, {10, 0}}), oacVariablePathStyle, 3, 4);
        oaSegStyle segStyle(8, oacVariableEndStyle, oacTruncateEndStyle, 5);
        oaPathSeg::create(block, 1, 1, oaPoint(0, 0), oaPoint(50, 0), segStyle);
        oaArc::create(block, 1, 1, oaBox(0, 0, 10, 20), 0, std::numbers::pi);
        oaEllipse::create(block, 1, 1, oaBox(0, 0, 30, 20));
        oaDonut::create(block, 1, 1, oaPoint(5, 5), 9, 3);
        oaDot::create(block, 1, 1, oaPoint(1, 2), 3, 4);
        oaText::create(block, 1, 1, "text", oaPoint(0, 0), oacLowerLeftTextAlign, oacR0,
                       oacRomanFont, 10);
        oaEvalText::create(block, 1, 1, "eval", oaPoint(0, 0), oacLowerLeftTextAlign, oacR0,
                           oacRomanFont, 10, oaString("nobody"));
        oaNet* net = oaScalarNet::create(block, name("net"));
        oaTerm* term = oaTerm::create(net, oaName(oaNativeNS(), "term"));
        oaPin::create(term, "pin");
        oaScalarInst::create(block, name("lib"), name("m"), name("layout"), name("scalar"),
                             oaTransform());
        oaArrayInst::create(block, name("lib"), name("m"), name("layout"), name("array"),
                            oaTransform(), 1, 2, 3, 4);
        oaAttrDisplay::create(net, oaNetAttrType(oacNameNetAttrType), 1, 1, oaPoint(0, 0),
                              oacLowerLeftTextAlign, oacR0, oacRomanFont, 10);
        oaPropDisplay::create(oaIntProp::create(block, "shown", 1), 1, 1, oaPoint(0, 0),
                              oacLowerLeftTextAlign, oacR0, oacRomanFont, 10);
    }
    /// Every object of a block, itself and its design included.
    static std::vector<oaObject*> objects(oaBlock* block) {
        std::vector<oaObject*> result = {block->getDesign(), block};
        const auto add = [&](const auto& collection) {
            for (oaObject* object : all(collection))
                result.push_back(object);
        };
        add(block->getShapes());
        add(block->getNets());
        add(block->getTerms());
        add(block->getPins());
        add(block->getInsts());
        add(block->getLayerHeaders());
        add(block->getLPPHeaders());
        return result;
    }
    static std::string type(const oaObject* object) { return text(object->getType().getName()); }
    static std::string types(const std::vector<oaObject*>& list) {
        std::string result;
        for (const oaObject* object : list)
            result += type(object) + " ";
        return result;
    }
};

} // namespace

TEST_F(SavedTest, EveryKindIsFoundAgain) {
    oaBlock* block = makeBlock();
    fill(block);
    const std::string before = types(objects(block));
    EXPECT_EQ(before,
              "Design Block Rect Polygon Line Path PathSeg Arc Ellipse Donut Dot Text EvalText "
              "PropDisplay AttrDisplay ScalarNet ScalarTerm Pin ScalarInst ArrayInst LayerHeader "
              "LPPHeader ");
    std::vector<std::string> boxes;
    for (const oaShape* shape : all(block->getShapes()))
        boxes.push_back(boxText(shape));
    block = reopened(block);
    EXPECT_EQ(types(objects(block)), before);
    std::size_t i = 0;
    for (const oaShape* shape : all(block->getShapes()))
        EXPECT_EQ(boxText(shape), boxes[i++]) << type(shape);
}

TEST_F(SavedTest, EveryObjectCarriesPropertiesAndValues) {
    oaBlock* block = makeBlock();
    fill(block);
    auto* onShapes = oaIntAppDef<oaShape>::get("onShapes", 0);
    auto* onPins = oaStringAppDef<oaPin>::get("onPins", "none");
    auto* onDesign = oaDoubleAppDef<oaDesign>::get("onDesign", 0);
    int number = 0;
    for (oaObject* object : objects(block)) {
        oaHierProp* outer = oaHierProp::create(object, "outer");
        oaIntProp::create(outer, "number", number++);
    }
    for (oaShape* shape : all(block->getShapes()))
        onShapes->set(shape, 7);
    onPins->set(all(block->getPins()).front(), "here");
    onDesign->set(block->getDesign(), 2.5);

    block = reopened(block, 'a');
    number = 0;
    for (oaObject* object : objects(block)) {
        oaProp* outer = oaProp::find(object, "outer");
        ASSERT_NE(outer, nullptr) << type(object);
        auto* inner = static_cast<oaIntProp*>(oaProp::find(outer, "number"));
        ASSERT_NE(inner, nullptr) << type(object);
        EXPECT_EQ(inner->getValue(), number++) << type(object);
        EXPECT_EQ(outer->getOwner(), object);
        EXPECT_EQ(inner->getDatabase(), block->getDesign());
        EXPECT_TRUE(object->hasProp());
    }
    for (const oaShape* shape : all(block->getShapes())) {
        EXPECT_EQ(onShapes->get(shape), 7);
        EXPECT_TRUE(shape->hasAppDef());
    }
    oaString value;
    onPins->get(all(block->getPins()).front(), value);
    EXPECT_EQ(text(value), "here");
    EXPECT_EQ(onDesign->get(block->getDesign()), 2.5);
}

TEST_F(SavedTest, PropertiesGoWithTheirObject) {
    oaBlock* block = makeBlock();
    fill(block);
    std::vector<oaObject*> props;
    std::vector<oaObject*> list = objects(block);
    for (oaObject* object : list)
        props.push_back(oaIntProp::create(object, "p", 1));
    block->destroy();
    for (std::size_t i = 1; i < props.size(); ++i)
        EXPECT_FALSE(list[i]->isValid() || props[i]->isValid()) << i;
    EXPECT_TRUE(props.front()->isValid());
    EXPECT_EQ(list.front()->getProps().getCount(), 1u);
}

TEST_F(SavedTest, DestroyedObjectsLeaveNoTraceInTheFile) {
    oaBlock* block = makeBlock();
    oaRect::create(block, 1, 1, oaBox(0, 0, 10, 20));
    oaPolygon::create(block, 1, 1, points({{0, 0}, {10, 0}, {0, 10}}));
    oaStringProp::create(oaScalarNet::create(block, name("kept")), "p", "v");
    oaScalarInst::create(block, name("lib"), name("m"), name("layout"), name("i"), oaTransform());
    // Texts stand in the order of their first use once a file has left something out.
    oaRect::create(block, 1, 1, oaBox(0, 0, 1, 1))->destroy();
    block->getDesign()->save();
    const std::string before = readText(file("cell"));
    block = reopened(block, 'a');

    const std::vector<oaObject*> kept = objects(block);
    oaRect::create(block, 5, 6, oaBox(0, 0, 1, 1));
    oaText::create(block, 1, 1, "gone", oaPoint(), oacLowerLeftTextAlign, oacR0, oacRomanFont, 10);
    oaNet* net = oaScalarNet::create(block, name("gone"));
    oaStringProp::create(net, "gone", "gone");
    oaPin::create(oaTerm::create(net, oaName(oaNativeNS(), "gone")))->destroy();
    oaPolygon::create(block, 1, 1, points({{0, 0}, {30, 0}, {0, 10}}))->addToNet(net);
    oaScalarInst::create(block, name("gone"), name("gone"), name("gone"), oaTransform())->destroy();
    for (oaShape* shape : all(block->getShapes()))
        if (std::find(kept.begin(), kept.end(), shape) == kept.end())
            shape->destroy();
    net->destroy();
    block->getDesign()->save();
    EXPECT_TRUE(readText(file("cell")) == before);
    EXPECT_EQ(before.find("gone"), std::string::npos);

    oaRect::create(block, 5, 6, oaBox(0, 0, 1, 1));
    block = reopened(block);
    EXPECT_EQ(block->getLPPHeaders().getCount(), 2u);
    EXPECT_EQ(all(block->getShapes()).back()->getLayerNum(), 5u);
}

TEST_F(SavedTest, HeadersAndMastersAreRenumbered) {
    oaBlock* block = makeBlock();
    for (oaLayerNum layer = 0; layer < 6; ++layer)
        oaRect::create(block, layer, layer, oaBox(0, 0, 1, oaCoord(layer) + 1));
    for (const char* cell : {"a", "b", "c"})
        oaScalarInst::create(block, name("lib"), name(cell), name("layout"), name(cell),
                             oaTransform());
    for (oaShape* shape : all(block->getShapes()))
        if (shape->getLayerNum() % 2 == 0)
            shape->destroy();
    oaInst::find(block, name("a"))->destroy();
    block->getDesign()->save();
    oaRect::create(block, 2, 2, oaBox(0, 0, 1, 3));
    oaScalarInst::create(block, name("lib"), name("a"), name("layout"), name("a2"), oaTransform());
    block = reopened(block);
    std::string read;
    for (const oaShape* shape : all(block->getShapes()))
        read += std::to_string(shape->getLayerNum()) + "/" +
                std::to_string(shape->getPurposeNum()) + ":" + boxText(shape) + "; ";
    EXPECT_EQ(read, "1/1:0 0 1 2; 3/3:0 0 1 4; 5/5:0 0 1 6; 2/2:0 0 1 3; ");
    read.clear();
    for (const oaInst* inst : all(block->getInsts())) {
        oaString cell;
        inst->getCellName(oaNativeNS(), cell);
        read += nameOf(inst) + ":" + text(cell) + " ";
    }
    EXPECT_EQ(read, "b:b c:c a2:a ");
}

TEST_F(SavedTest, ALargeDesignIsWholeAfterSaving) {
    oaBlock* block = makeBlock();
    constexpr int kCount = 200000;
    for (int i = 0; i < kCount; ++i)
        oaRect::create(block, oaLayerNum(i % 8), 1, oaBox(i, -i, i + 1, i + 1));
    block = reopened(block);
    std::uint64_t sum = 0;
    oaIter<oaShape> shapes(block->getShapes());
    while (const oaShape* shape = shapes.getNext())
        sum += std::uint64_t(boxOf(shape).left());
    EXPECT_EQ(block->getShapes().getCount(), oaUInt4(kCount));
    EXPECT_EQ(sum, std::uint64_t(kCount) * (kCount - 1) / 2);
    EXPECT_EQ(boxText(block), "0 -199999 200000 200000");
    EXPECT_EQ(block->getLPPHeaders().getCount(), 8u);
}

} // namespace design_test
