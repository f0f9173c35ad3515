// Designs and their blocks.

#include "pcell/names.h"
#include "xml/describe.h"
#include "xml/estimate.h"

namespace ovalis {

namespace {

void describe(XmlText& text, const oa::oaBlock& block) {
    oa::oaBox box;
    block.getBBox(box);
    text.put("<block ");
    text.lineAttribute("     DBUperUU=\"", block.getDBUPerUU());
    text.lineAttribute("     UserUnits=\"", block.getUserUnits().getName());
    text.put(">\n");
    describe(text, box);
    text.put("<shapes>\n");
    describeAll(text, block.getShapes());
    text.put("</shapes>\n<nets>\n");
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
    if (text.needsRoom()) {
        text.reserve(estimatedSize(design));
    }
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
