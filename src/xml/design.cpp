// Designs and their blocks.

#include "pcell/names.h"
#include "xml/describe.h"

namespace ovalis {

namespace {

// After so many shapes the length of all of them is estimated.
constexpr std::size_t sample = 256;

void describeShapes(XmlText& text, const oa::oaBlock& block) {
    const auto shapes = block.getShapes();
    const std::size_t before = text.size();
    text.put("<shapes>\n");
    oa::oaIter<oa::oaShape> iterator(shapes);
    for (std::size_t done = 0; const oa::oaShape* shape = iterator.getNext();) {
        describe(text, *shape);
        if (++done % sample == 0) {
            text.expect(before, done, shapes.getCount());
        }
    }
    text.put("</shapes>\n");
}

void describe(XmlText& text, const oa::oaBlock& block) {
    oa::oaBox box;
    block.getBBox(box);
    text.put("<block ");
    text.lineAttribute("     DBUperUU=\"", block.getDBUPerUU());
    text.lineAttribute("     UserUnits=\"", block.getUserUnits().getName());
    text.put(">\n");
    describe(text, box);
    describeShapes(text, block);
    text.put("<nets>\n");
    describeAll(text, block.getNets());
    text.put("</nets>\n<pins>\n");
    describeAll(text, block.getPins());
    text.put("</pins>\n<instTerms>\n");
    describeAll(text, block.getInstTerms());
    text.put("</instTerms>\n</block>\n");
}

/// Puts what the definition of a component of ours keeps.
void describePcellData(XmlText& text, const oa::oaDesign& design) {
    oa::oaPcellDef* def = design.getPcellDef(); // null without its evaluator
    oa::oaString value;
    if (def != nullptr && def->getDataValue(scriptMacroDataName.c_str(), value)) {
        text.attribute("<pCellData data=\"", scriptMacroDataName);
        text.attribute(" value=\"", value);
        text.put("/>\n");
    }
}

void describeParams(XmlText& text, const oa::oaDesign& design) {
    oa::oaParamArray params;
    design.getParams(params);
    for (oa::oaUInt4 i = 0; i < params.getNumElements(); ++i) {
        describe(text, params[i]);
    }
}

} // namespace

void describe(XmlText& text, const oa::oaDesign& design) {
    const bool isSuperMaster = design.isSuperMaster() != 0;
    oa::oaString evaluator;
    text.put("<design ");
    text.lineAttribute("      hasProp=\"", design.hasProp() != 0);
    text.lineAttribute("      hasAppDef=\"", design.hasAppDef() != 0);
    text.lineAttribute("      isSubMaster=\"", design.isSubMaster() != 0);
    text.lineAttribute("      isSuperMaster=\"", isSuperMaster);
    if (isSuperMaster) {
        design.getPcellEvaluatorName(evaluator);
        text.lineAttribute("      PcellEvaluatorName=\"", evaluator);
    }
    text.put(">\n");
    describeAppDefs(text, design);
    describeProps(text, design);
    if (evaluator == skrEvaluatorName.c_str()) {
        describePcellData(text, design);
    }
    describeParams(text, design);
    if (const oa::oaBlock* block = design.getTopBlock()) {
        describe(text, *block);
    }
    if (const oa::oaOccurrence* occurrence = design.getTopOccurrence()) {
        describe(text, *occurrence);
    }
    text.put("</design>\n");
}

} // namespace ovalis
