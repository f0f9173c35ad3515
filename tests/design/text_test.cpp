#include "design_fixture.h"

namespace design_test {

namespace {

class TextTest : public DesignTest {
protected:
    oaBlock* block = makeBlock();

    oaText* label(const char* shown, oaTextAlignEnum alignment = oacLowerLeftTextAlign,
                  oaOrientEnum orient = oacR0) {
        return oaText::create(block, 1, 1, shown, oaPoint(100, 200), alignment, orient,
                              oacRomanFont, 10);
    }
    template <class Text>
    static std::string shownBy(const Text* shape) {
        oaString shown;
        shape->getText(shown);
        return text(shown);
    }
};

/// Turns an expression into capital letters.
class Capitals : public oaCommon::PlugInBase<IEvalText> {
public:
    void getName(oaString& name) override { name = "capitals"; }
    void onEval(const oaString& in, oaString& out) override {
        out = in;
        out.toUpper();
    }
};

} // namespace

TEST_F(TextTest, TextsKeepWhatTheyWereGiven) {
    oaText* t = oaText::create(block, 1, 2, "hello", oaPoint(3, 4), oacUpperCenterTextAlign, oacR90,
                               oacStickFont, 20, true, false, false);
    const auto check = [](const oaText* shape) {
        oaPoint origin;
        shape->getOrigin(origin);
        EXPECT_EQ(shownBy(shape), "hello");
        EXPECT_EQ(origin, oaPoint(3, 4));
        EXPECT_EQ(shape->getAlignment(), oacUpperCenterTextAlign);
        EXPECT_EQ(shape->getOrient(), oacR90);
        EXPECT_EQ(shape->getFont(), oacStickFont);
        EXPECT_EQ(shape->getHeight(), 20u);
        EXPECT_TRUE(shape->hasOverbar());
        EXPECT_FALSE(shape->isVisible());
        EXPECT_FALSE(shape->isDrafting());
    };
    check(t);
    block = reopened(block);
    check(static_cast<oaText*>(all(block->getShapes()).front()));
}

TEST_F(TextTest, TextsFollowTheirSetters) {
    oaText* t = label("a");
    EXPECT_FALSE(t->hasOverbar());
    EXPECT_TRUE(t->isVisible());
    EXPECT_TRUE(t->isDrafting());
    t->setText("bb");
    t->setOrigin(oaPoint(0, 0));
    t->setAlignment(oacUpperRightTextAlign);
    t->setOrient(oacR180);
    t->setFont(oacMathFont);
    t->setHeight(100);
    t->setOverbar(true);
    t->setVisible(false);
    t->setDrafting(false);
    EXPECT_EQ(shownBy(t), "bb");
    EXPECT_EQ(t->getAlignment(), oacUpperRightTextAlign);
    EXPECT_EQ(t->getOrient(), oacR180);
    EXPECT_EQ(t->getFont(), oacMathFont);
    EXPECT_TRUE(t->hasOverbar());
    EXPECT_FALSE(t->isVisible());
    EXPECT_FALSE(t->isDrafting());
    EXPECT_EQ(boxText(t), "0 0 120 100");
    EXPECT_EQ(boxText(block), "0 0 120 100");
}

TEST_F(TextTest, AlignmentPutsAPointOfTheBoxOntoTheOrigin) {
    const std::pair<oaTextAlignEnum, const char*> expected[] = {
        {oacUpperLeftTextAlign, "100 190 124 200"},   {oacCenterLeftTextAlign, "100 195 124 205"},
        {oacLowerLeftTextAlign, "100 200 124 210"},   {oacUpperCenterTextAlign, "88 190 112 200"},
        {oacCenterCenterTextAlign, "88 195 112 205"}, {oacLowerCenterTextAlign, "88 200 112 210"},
        {oacUpperRightTextAlign, "76 190 100 200"},   {oacCenterRightTextAlign, "76 195 100 205"},
        {oacLowerRightTextAlign, "76 200 100 210"},
    };
    for (const auto& [alignment, box] : expected)
        EXPECT_EQ(boxText(label("abcd", alignment)), box) << alignment;
    EXPECT_EQ(boxText(label("abcd", oacLowerLeftTextAlign, oacR90)), "90 200 100 224");
}

TEST_F(TextTest, BoxesCountCharactersAndLines) {
    EXPECT_EQ(boxText(label("\xC3\xA4\xE2\x82\xAC")), "100 200 112 210");
    EXPECT_EQ(boxText(label("ab\nabcd\nc")), "100 200 124 230");
    EXPECT_EQ(boxText(label("")), "100 200 100 200");
}

TEST_F(TextTest, EvaluatedTextsShowWhatTheirEvaluatorSays) {
    EXPECT_EQ(oaEvalTextLink::create(nullptr), nullptr);
    oaEvalTextLink* link = oaEvalTextLink::create(new Capitals);
    EXPECT_EQ(messageOf([&] {
                  oaCommon::SPtr<IEvalText> second(new Capitals);
                  oaEvalTextLink::create(second.getRef());
              }),
              "A text evaluator named 'capitals' is already registered.");
    EXPECT_EQ(oaEvalTextLink::find("capitals"), link);
    oaEvalText* t = oaEvalText::create(block, 1, 1, "abc", oaPoint(0, 0), oacLowerLeftTextAlign,
                                       oacR0, oacRomanFont, 10, link);
    EXPECT_EQ(shownBy(t), "ABC");
    EXPECT_EQ(shownBy<oaText>(t), "ABC");
    oaString read;
    t->getExpression(read);
    EXPECT_EQ(text(read), "abc");
    t->getEvaluatorName(read);
    EXPECT_EQ(text(read), "capitals");
    EXPECT_EQ(t->getLink(), link);
    t->setText("x");
    EXPECT_EQ(shownBy(t), "X");
    t->setLink(nullptr);
    EXPECT_EQ(shownBy(t), "x");
    EXPECT_EQ(t->getLink(), nullptr);

    block = reopened(block, 'a');
    t = static_cast<oaEvalText*>(all(block->getShapes()).front());
    EXPECT_EQ(t->getType(), oacEvalTextType);
    EXPECT_EQ(shownBy(t), "x");
    oaEvalText* named =
        oaEvalText::create(block, 1, 1, "y", oaPoint(0, 0), oacLowerLeftTextAlign, oacR0,
                           oacRomanFont, 10, oaString("capitals"), true, false, false);
    EXPECT_EQ(shownBy(named), "Y");
    EXPECT_TRUE(named->hasOverbar());
    link->destroy();
    EXPECT_EQ(oaEvalTextLink::find("capitals"), nullptr);
    EXPECT_EQ(shownBy(named), "y");
}

TEST_F(TextTest, DisplaysOfPropertiesFollowThem) {
    oaRect* rect = oaRect::create(block, 1, 1, oaBox(0, 0, 1, 1));
    oaIntProp* prop = oaIntProp::create(rect, "count", 5);
    const auto show = [&](oaTextDisplayFormatEnum format) {
        return oaPropDisplay::create(prop, 2, 2, oaPoint(0, 0), oacLowerLeftTextAlign, oacR0,
                                     oacRomanFont, 10, format);
    };
    oaPropDisplay* nameOnly = show(oacNameTextDisplayFormat);
    oaPropDisplay* value = show(oacValueTextDisplayFormat);
    oaPropDisplay* both = show(oacNameValueTextDisplayFormat);
    EXPECT_EQ(shownBy(nameOnly), "count");
    EXPECT_EQ(shownBy(value), "5");
    EXPECT_EQ(shownBy(both), "count=5");
    EXPECT_EQ(value->getProp(), prop);
    EXPECT_EQ(boxText(value), "0 0 6 10");
    EXPECT_EQ(boxText(block), "0 0 42 10");
    prop->setValue(12345678);
    EXPECT_EQ(boxText(block), "0 0 84 10");
    nameOnly->setFormat(oacValueTextDisplayFormat);
    EXPECT_EQ(nameOnly->getFormat(), oacValueTextDisplayFormat);
    EXPECT_EQ(shownBy(nameOnly), "12345678");
    EXPECT_EQ(oaTextDisplay::getTextDisplays(prop).getCount(), 3u);
    EXPECT_TRUE(oaTextDisplay::getTextDisplays(rect).isEmpty());
    prop->destroy();
    EXPECT_FALSE(value->isValid());
    EXPECT_EQ(block->getShapes().getCount(), 1u);
}

TEST_F(TextTest, DisplaysOfAttributesFollowTheirObject) {
    oaScalarNet* net = oaScalarNet::create(block, name("n1"));
    oaTerm* term = oaTerm::create(net, oaName(oaNativeNS(), "t1"));
    const auto show = [&](oaObject* object, oaAttrType attribute) {
        return oaAttrDisplay::create(object, attribute, 2, 2, oaPoint(0, 0), oacLowerLeftTextAlign,
                                     oacR0, oacRomanFont, 10, oacNameValueTextDisplayFormat);
    };
    const oaNetAttrType netName(oacNameNetAttrType);
    const oaTermAttrType pins(oacHasPinsTermAttrType);
    const oaDesignAttrType cell(oacCellNameDesignAttrType);
    oaAttrDisplay* a = show(net, netName);
    oaAttrDisplay* b = show(term, pins);
    oaAttrDisplay* c = show(block->getDesign(), cell);
    EXPECT_EQ(shownBy(a), "name=n1");
    EXPECT_EQ(shownBy(b), "hasPins=false");
    EXPECT_EQ(shownBy(c), "cellName=cell");
    EXPECT_EQ(a->getObject(), net);
    EXPECT_EQ(a->getAttribute(), oaUInt4(oacNameNetAttrType));
    net->setName(name("longer"));
    oaPin::create(term);
    EXPECT_EQ(shownBy(a), "name=longer");
    EXPECT_EQ(shownBy(b), "hasPins=true");
    oaString spelling;
    a->getText(oaCdbaNS(), spelling);
    EXPECT_EQ(text(spelling), "name=longer");

    EXPECT_EQ(messageOf([&] { show(net, oaAttrType(6)); }),
              "There is no attribute 6 of an object of type 'ScalarNet'.");
    oaRect* rect = oaRect::create(block, 1, 1, oaBox(0, 0, 1, 1));
    EXPECT_EQ(thrownBy([&] { show(rect, oaAttrType(0)); }), oacInvalidAttributeForObject);
    EXPECT_EQ(thrownBy([&] { show(open("empty", 'w'), cell); }), oacNoBlockForDisplay);
    net->destroy();
    EXPECT_FALSE(a->isValid());
    EXPECT_FALSE(b->isValid());
    EXPECT_TRUE(c->isValid());
}

TEST_F(TextTest, DisplaysAreSavedAndStayInTheirDesign) {
    oaScalarNet* net = oaScalarNet::create(block, name("n1"));
    oaRect::create(block, 1, 1, oaBox(0, 0, 1, 1))->destroy();
    oaStringProp* gone = oaStringProp::create(net, "gone", "x");
    oaStringProp* prop = oaStringProp::create(net, "p", "v");
    gone->destroy();
    oaPropDisplay::create(prop, 2, 2, oaPoint(0, 0), oacLowerLeftTextAlign, oacR0, oacRomanFont, 10,
                          oacNameValueTextDisplayFormat);
    oaAttrDisplay::create(net, oaNetAttrType(oacNameNetAttrType), 2, 2, oaPoint(0, 0),
                          oacLowerLeftTextAlign, oacR0, oacRomanFont, 10,
                          oacNameValueTextDisplayFormat);
    block = reopened(block, 'a');
    const auto shapes = all(block->getShapes());
    ASSERT_EQ(shapes.size(), 2u);
    EXPECT_EQ(shownBy(static_cast<oaTextDisplay*>(shapes[0])), "p=v");
    EXPECT_EQ(shownBy(static_cast<oaTextDisplay*>(shapes[1])), "name=n1");
    oaBlock* other = makeBlock("other");
    for (oaShape* shape : shapes) {
        EXPECT_TRUE(shape->isTextDisplay());
        EXPECT_EQ(messageOf([&] { shape->copy(oaTransform(), other); }),
                  "A display of an attribute or property of design 'lib/cell/layout' cannot go to "
                  "another design.");
        shape->copy(oaTransform(1, 1));
    }
    EXPECT_EQ(block->getShapes().getCount(), 4u);
    EXPECT_TRUE(other->getShapes().isEmpty());
}

TEST_F(TextTest, AttributesHaveNames) {
    EXPECT_EQ(text(oaNetAttrType(oacSigTypeNetAttrType).getName()), "sigType");
    EXPECT_EQ(oaTermAttrType(oaString("numBits")).getValue(), oacNumBitsTermAttrType);
    EXPECT_EQ(oaInstAttrType(oaAttrType(3)).getValue(), oacNameInstAttrType);
    EXPECT_EQ(thrownBy([] { oaDesignAttrType(oaString("none")); }), oacInvalidEnumName);
}

} // namespace design_test
