#include <ovalis/pcell.h>

#include "two_designs.h"

namespace comparison::test {
namespace {

class DesignTest : public TwoDesigns {};

oa::oaParamArray params(oa::oaInt4 turns) {
    const oa::oaParam all[] = {oa::oaParam("turns", turns), oa::oaParam("width", 2.5)};
    return {all, 2};
}

TEST_F(DesignTest, ThatIsSavedAsAnotherOneDiffersInNothing) {
    oa::oaNet* const net = oa::oaNet::create(wasBlock(), general("n"));
    oa::oaPin* const pin = oa::oaPin::create(oa::oaTerm::create(net, general("T")), "p");
    oa::oaRect::create(wasBlock(), 1, drawing, oa::oaBox(0, 0, 9, 9))->addToPin(pin);
    oa::oaStringProp::create(pin, "use", "shield");
    ovalis::vexPinAngle->set(pin, 90.0);
    oa::oaScalarInst* const inst =
        oa::oaScalarInst::create(wasBlock(), scalar("lib"), scalar("coil"), scalar("layout"),
                                 scalar("I1"), oa::oaTransform(3, 4, oa::oacMX));
    oa::oaInstTerm::create(net, inst, general("T"));
    oa::oaGroupMember::create(oa::oaGroup::create(&was(), "g"), net);
    was().setCellType(oa::oacPadCellType);
    was().save();
    is().close();
    was().saveAs(scalar("lib"), scalar("is"), scalar("layout"));
    was().close();
    reopen();
    design("was", "layout", 'r');
    design("is", "layout", 'r');
    EXPECT_THAT(differences(), IsEmpty());
}

TEST_F(DesignTest, AttributesDiffer) {
    is().setCellType(oa::oacPadCellType);
    oa::oaStringProp::create(&is(), "author", "somebody");
    oa::oaStringProp::create(isBlock(), "use", "shield");
    EXPECT_THAT(differences(), ElementsAre("design: cell type was none, is pad",
                                           "design: property \"author\" added: \"somebody\"",
                                           "block: property \"use\" added: \"shield\""));
}

TEST_F(DesignTest, AnotherViewTypeDiffers) {
    oa::oaDesign& symbol = design("is", "symbol", 'w', oa::oacSchematicSymbol);
    oa::oaBlock::create(&symbol);
    Log log;
    compareDesigns(Place("at", log), was(), symbol, {"lib", "lib"});
    EXPECT_THAT(log.lines, ElementsAre("at: design: view type was maskLayout, is schematicSymbol"));
}

TEST_F(DesignTest, WithoutABlockIsOneLine) {
    isBlock()->destroy();
    EXPECT_THAT(differences(), ElementsAre("block removed"));
}

TEST_F(DesignTest, PcellsDifferInParametersEvaluatorAndDefinition) {
    oa::oaPcellDef* const macro = oa::oaPcellLink::getPcellDef("SKRPcell");
    macro->addData(ovalis::VexSKRPcell::dataName_SKRMacro().c_str(), "first");
    was().defineSuperMaster(macro, params(3));
    oa::oaPcellDef* const other = oa::oaPcellLink::getPcellDef("SKRPcell");
    other->addData(ovalis::VexSKRPcell::dataName_SKRMacro().c_str(), "second");
    is().defineSuperMaster(other, params(4));
    EXPECT_THAT(differences(), ElementsAre("design: definition data \"SKRMacroName\" was "
                                           "\"first\", is \"second\"",
                                           "design: parameter \"turns\" was int 3, is int 4"));
    is().undefineSuperMaster();
    is().defineSuperMaster(oa::oaPcellLink::getPcellDef("PSNPcell"), params(3));
    EXPECT_THAT(differences(), ElementsAre("design: definition data \"SKRMacroName\" removed: "
                                           "\"first\"",
                                           "design: evaluator was \"SKRPcell\", is \"PSNPcell\""));
    is().undefineSuperMaster();
    EXPECT_THAT(differences(), ElementsAre("design: definition data \"SKRMacroName\" removed: "
                                           "\"first\"",
                                           "design: evaluator was \"SKRPcell\", is none",
                                           "design: parameter \"turns\" removed: int 3",
                                           "design: parameter \"width\" removed: double 2.5",
                                           "design: pcell was yes, is no"));
}

TEST_F(DesignTest, HeadersOfShapesAndInstancesCarryPropertiesToo) {
    inBoth([](oa::oaBlock* block) {
        oa::oaRect::create(block, 1, drawing, oa::oaBox(0, 0, 9, 9));
        oa::oaScalarInst::create(block, scalar("lib"), scalar("coil"), scalar("layout"),
                                 scalar("I1"), oa::oaTransform(0, 0));
    });
    oa::oaIntProp::create(oa::oaLPPHeader::find(isBlock(), 1, drawing), "N", 1);
    oa::oaIter<oa::oaInstHeader> headers(isBlock()->getInstHeaders());
    oa::oaIntProp::create(headers.getNext(), "N", 2);
    EXPECT_THAT(differences(),
                ElementsAre("instances of lib/coil/layout: property \"N\" added: int 2",
                            "shapes on M1/drawing: property \"N\" added: int 1"));
}

TEST_F(DesignTest, UnitsAreComparedOnTheirOwn) {
    oa::oaBlock::create(&design("is", "symbol", 'w', oa::oacSchematicSymbol));
    Log log;
    const Place place("at", log);
    compareUnits(place, was(), is());
    EXPECT_THAT(log.lines, IsEmpty());
    compareUnits(place, was(), design("is", "symbol", 'r', oa::oacSchematicSymbol));
    EXPECT_THAT(log.lines, ElementsAre("at: block: database units per user unit was 1000, is 160",
                                       "at: block: user unit was micron, is inch"));
}

} // namespace
} // namespace comparison::test
