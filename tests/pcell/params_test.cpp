#include <ovalis/core.h>
#include <ovalis/pcell.h>

#include <limits>
#include <memory>

#include <gtest/gtest.h>

using namespace ovalis;

namespace {

// One parameter of each kind with the attribute sum of its defaults.
struct Kind {
    std::shared_ptr<Param> param;
    int attributes;
    std::string rest; ///< of the line, behind the attributes
};

std::vector<Kind> oneOfEachKind() {
    return {
        {std::make_shared<BoolParam>("p", true), 536872992,
         ",\"boolean\",-1,prm(\"boolean_yes\"))"},
        {std::make_shared<IntParam>("p", 7), 537004032,
         ",\"StdFormSet\",-1,prm(\"StdForm\",\"7\"))"},
        {std::make_shared<RealParam>("p", 0.5), 536938496,
         ",\"StdFormSet\",-1,prm(\"StdForm\",\"0.5\"))"},
        {std::make_shared<StringParam>("p", "abc"), 537135104,
         ",\"StdFormSet\",-1,prm(\"StdForm\",\"abc\"))"},
        {std::make_shared<LayerParam>("p", 5), 536872960,
         ",\"ckt_pad_layer\",-1,prm(\"layer_text_form\",\"5\"))"},
    };
}

std::string lineWith(const Kind& kind, int attributes) {
    return "create_parm(\"p\",\"\"," + std::to_string(attributes) + kind.rest;
}

std::string stringValue(const oa::oaParam& param) {
    oa::oaString value;
    param.getStringVal(value);
    return fromOa(value);
}

std::string nameOf(const oa::oaParam& param) {
    oa::oaString name;
    param.getName(name);
    return fromOa(name);
}

/// Sets the two attribute flags, as a kind of a caller's own can.
class FlaggedParam : public Param {
public:
    FlaggedParam(bool attributeA, bool attributeB) : Param("p", attributeA, attributeB) {}

    int parmType() const override { return 0; }
    std::string parmValue() const override { return "v"; }

protected:
    oa::oaParam asNativeOaParamImpl() const override { return oa::oaParam("p", oa::oaInt4{0}); }
};

} // namespace

TEST(Param, HasTheDocumentedDefaults) {
    for (const Kind& kind : oneOfEachKind()) {
        EXPECT_EQ(kind.param->name(), "p");
        EXPECT_EQ(kind.param->description(), "");
        EXPECT_TRUE(kind.param->displayOnSchematic());
        EXPECT_FALSE(kind.param->notEdited());
        EXPECT_FALSE(kind.param->notNetListed());
        EXPECT_FALSE(kind.param->evaluated());
    }
}

TEST(Param, GivesBackWhatWasSet) {
    IntParam param("p", 1);
    param.setName("länge");
    param.setDescription("Länge der Leitung");
    param.setDisplayOnSchematic(false);
    param.setNotEdited(true);
    param.setNotNetListed(true);
    param.setEvaluated(true);
    EXPECT_EQ(param.name(), "länge");
    EXPECT_EQ(param.description(), "Länge der Leitung");
    EXPECT_FALSE(param.displayOnSchematic());
    EXPECT_TRUE(param.notEdited());
    EXPECT_TRUE(param.notNetListed());
    EXPECT_TRUE(param.evaluated());
}

TEST(Param, RendersItsDefaultsInEachKind) {
    for (const Kind& kind : oneOfEachKind()) {
        EXPECT_EQ(kind.param->parm(), lineWith(kind, kind.attributes));
    }
}

TEST(Param, AddsSixtyFourWhenNotNetListed) {
    for (const Kind& kind : oneOfEachKind()) {
        kind.param->setNotNetListed(true);
        EXPECT_EQ(kind.param->parm(), lineWith(kind, kind.attributes + 64));
    }
}

TEST(Param, AddsFiveHundredTwelveWhenNotDisplayed) {
    for (const Kind& kind : oneOfEachKind()) {
        kind.param->setDisplayOnSchematic(false);
        EXPECT_EQ(kind.param->parm(), lineWith(kind, kind.attributes + 512));
    }
}

TEST(Param, RemovesABitWhenEvaluated) {
    for (const Kind& kind : oneOfEachKind()) {
        kind.param->setEvaluated(true);
        EXPECT_EQ(kind.param->parm(), lineWith(kind, kind.attributes - 536870912));
    }
}

TEST(Param, AddsOneWhenNotEdited) {
    for (const Kind& kind : oneOfEachKind()) {
        kind.param->setNotEdited(true);
        EXPECT_EQ(kind.param->parm(), lineWith(kind, kind.attributes + 1));
    }
}

TEST(Param, SumsAllAttributesTogether) {
    for (const Kind& kind : oneOfEachKind()) {
        kind.param->setNotNetListed(true);
        kind.param->setDisplayOnSchematic(false);
        kind.param->setEvaluated(true);
        kind.param->setNotEdited(true);
        EXPECT_EQ(kind.param->parm(), lineWith(kind, kind.attributes + 64 + 512 - 536870912 + 1));
    }
}

TEST(Param, SumsTheFlagsThatAKindSetsAtConstruction) {
    const std::pair<std::pair<bool, bool>, const char*> table[] = {
        {{false, false}, "536870912"},
        {{true, false}, "536871936"},
        {{false, true}, "536872960"},
        {{true, true}, "536873984"},
    };
    for (const auto& [flags, attributes] : table) {
        EXPECT_EQ(FlaggedParam(flags.first, flags.second).parm(),
                  std::string("create_parm(\"p\",\"\",") + attributes +
                      ",\"StdFormSet\",-1,prm(\"StdForm\",\"v\"))");
    }
}

TEST(Param, InsertsNameAndDescriptionAsTheyAre) {
    StringParam param("a\"b\\c", "x");
    param.setDescription("say \"so\", größer");
    EXPECT_EQ(param.parm(), "create_parm(\"a\"b\\c\",\"say \"so\", größer\",537135104,"
                            "\"StdFormSet\",-1,prm(\"StdForm\",\"x\"))");
}

TEST(Param, CopiesAreIndependent) {
    RealParam original("p", 1.5);
    original.setValueWithUnit("1.5 mm");
    original.setUnitType(3);
    RealParam copy = original;
    original.setValueWithUnit("2 mm");
    original.setName("q");
    EXPECT_EQ(copy.name(), "p");
    EXPECT_EQ(copy.valueWithUnit(), "1.5 mm");
    copy = original;
    EXPECT_EQ(copy.name(), "q");
    EXPECT_EQ(copy.unitType(), 3);
}

TEST(BoolParam, RendersYesAndNo) {
    BoolParam param("p", true);
    EXPECT_EQ(param.parm(),
              "create_parm(\"p\",\"\",536872992,\"boolean\",-1,prm(\"boolean_yes\"))");
    param.setValue(false);
    EXPECT_FALSE(param.value());
    EXPECT_EQ(param.parm(), "create_parm(\"p\",\"\",536872992,\"boolean\",-1,prm(\"boolean_no\"))");
}

TEST(BoolParam, HasADigitAsValueText) {
    EXPECT_EQ(BoolParam("p", true).parmValue(), "1");
    EXPECT_EQ(BoolParam("p", false).parmValue(), "0");
    EXPECT_EQ(BoolParam("p", false).parmType(), 131072);
}

TEST(BoolParam, IsATextForTheDatabase) {
    const oa::oaParam native = BoolParam("flag", true).asNativeOaParam();
    EXPECT_EQ(nameOf(native), "flag");
    ASSERT_EQ(native.getType(), oa::oacStringParamType);
    EXPECT_EQ(stringValue(native), "1");
    EXPECT_EQ(stringValue(BoolParam("flag", false).asNativeOaParam()), "0");
}

TEST(IntParam, WritesTheWholeRange) {
    EXPECT_EQ(IntParam("p", 0).parmValue(), "0");
    EXPECT_EQ(IntParam("p", 1234567).parmValue(), "1234567");
    EXPECT_EQ(IntParam("p", std::numeric_limits<int>::max()).parmValue(), "2147483647");
    EXPECT_EQ(IntParam("p", std::numeric_limits<int>::min()).parmValue(), "-2147483648");
    EXPECT_EQ(IntParam("p", 0).parmType(), 131072);
}

TEST(IntParam, IsAnIntegerForTheDatabase) {
    IntParam param("n", 4);
    param.setValue(-12);
    EXPECT_EQ(param.value(), -12);
    const oa::oaParam native = param.asNativeOaParam();
    EXPECT_EQ(nameOf(native), "n");
    ASSERT_EQ(native.getType(), oa::oacIntParamType);
    EXPECT_EQ(native.getIntVal(), -12);
}

TEST(RealParam, HasNoUnitAtFirst) {
    const RealParam param("w", 1.5);
    EXPECT_EQ(param.unitType(), -1);
    EXPECT_EQ(param.valueWithUnit(), "");
    EXPECT_EQ(param.parmType(), 65536);
    EXPECT_EQ(param.parm(), "create_parm(\"w\",\"\",536938496,\"StdFormSet\",-1,"
                            "prm(\"StdForm\",\"1.5\"))");
}

TEST(RealParam, ShowsTheTextWithUnitInPlaceOfTheNumber) {
    RealParam param("w", 0.01);
    param.setValueWithUnit("10 mm");
    param.setUnitType(3);
    EXPECT_EQ(param.parmValue(), "10 mm");
    EXPECT_EQ(param.parm(), "create_parm(\"w\",\"\",536938496,\"StdFormSet\",3,"
                            "prm(\"StdForm\",\"10 mm\"))");
}

TEST(RealParam, IsADoubleForTheDatabaseWhateverItsUnit) {
    RealParam param("w", 1.0);
    param.setValue(0.01);
    param.setValueWithUnit("10 mm");
    const oa::oaParam native = param.asNativeOaParam();
    EXPECT_EQ(nameOf(native), "w");
    ASSERT_EQ(native.getType(), oa::oacDoubleParamType);
    EXPECT_EQ(native.getDoubleVal(), 0.01);
}

TEST(StringParam, RendersTheExample) {
    StringParam param("note", "abc");
    param.setDescription("Note");
    EXPECT_EQ(param.parm(), "create_parm(\"note\",\"Note\",537135104,\"StdFormSet\",-1,"
                            "prm(\"StdForm\",\"abc\"))");
}

TEST(StringParam, KeepsItsValueUnchanged) {
    StringParam param("s", "a");
    param.setValue("µm \"x\" \\n");
    EXPECT_EQ(param.parmValue(), "µm \"x\" \\n");
    EXPECT_EQ(param.parmType(), 262144);
    const oa::oaParam native = param.asNativeOaParam();
    EXPECT_EQ(nameOf(native), "s");
    ASSERT_EQ(native.getType(), oa::oacStringParamType);
    EXPECT_EQ(stringValue(native), "µm \"x\" \\n");
}

TEST(LayerParam, HasTwoFormsOfItsNumber) {
    const LayerParam param("l", 5);
    EXPECT_EQ(param.valueStr(), "");
    EXPECT_EQ(param.parmType(), 131072);
    EXPECT_EQ(param.parmValue(), "layer_5");
    EXPECT_EQ(param.parm(), "create_parm(\"l\",\"\",536872960,\"ckt_pad_layer\",-1,"
                            "prm(\"layer_text_form\",\"5\"))");
}

TEST(LayerParam, NamesTheDefaultLayerForZero) {
    const LayerParam param("l", 0);
    EXPECT_EQ(param.parmValue(), "\"default:drawing\"");
    EXPECT_EQ(param.parm(), "create_parm(\"l\",\"\",536872960,\"ckt_pad_layer\",-1,"
                            "prm(\"layer_text_form\",\"0\"))");
}

TEST(LayerParam, ShowsItsTextInTheLineAlone) {
    LayerParam param("l", "cond:drawing");
    EXPECT_EQ(param.value(), 0);
    EXPECT_EQ(param.parm(), "create_parm(\"l\",\"\",536872960,\"ckt_pad_layer\",-1,"
                            "prm(\"layer_text_form\",\"cond:drawing\"))");
    param.setValue(-3);
    EXPECT_EQ(param.parmValue(), "layer_-3");
    param.setValueStr("");
    EXPECT_EQ(param.parm(), "create_parm(\"l\",\"\",536872960,\"ckt_pad_layer\",-1,"
                            "prm(\"layer_text_form\",\"-3\"))");
}

TEST(LayerParam, IsAnIntegerForTheDatabase) {
    LayerParam param("l", "cond:drawing");
    EXPECT_EQ(param.asNativeOaParam().getIntVal(), 0);
    param.setValue(231);
    const oa::oaParam native = param.asNativeOaParam();
    EXPECT_EQ(nameOf(native), "l");
    ASSERT_EQ(native.getType(), oa::oacIntParamType);
    EXPECT_EQ(native.getIntVal(), 231);
}
