#include "comparison/designs.h"

#include <ovalis/pcell.h>

#include "comparison/attachments.h"
#include "comparison/connectivity.h"
#include "comparison/groups.h"
#include "comparison/shapes.h"
#include "comparison/text.h"

namespace comparison {
namespace {

std::string macroEvaluator() {
    oa::oaString name;
    ovalis::VexSKRPcell().getName(name);
    return ovalis::fromOa(name);
}

/// What the definition of a component of ours keeps; nobody else's data have names that are known.
void addDefinition(Fields& fields, const oa::oaDesign& design, const std::string& evaluator) {
    static const std::string ours = macroEvaluator();
    oa::oaPcellDef* const def = evaluator == ours ? design.getPcellDef() : nullptr;
    const std::string name = ovalis::VexSKRPcell::dataName_SKRMacro();
    oa::oaString value;
    if (def != nullptr && def->getDataValue(name.c_str(), value))
        fields.add("definition data " + quoted(name), quoted(value));
}

void addPcell(Fields& fields, const oa::oaDesign& design) {
    fields.set("pcell", yesOrNo(design.isSuperMaster()));
    if (!design.isSuperMaster())
        return;
    oa::oaString evaluator;
    design.getPcellEvaluatorName(evaluator);
    fields.set("evaluator", quoted(evaluator));
    addDefinition(fields, design, ovalis::fromOa(evaluator));
    oa::oaParamArray params;
    design.getParams(params);
    addParams(fields, params);
}

Fields fieldsOf(const oa::oaDesign& design) {
    Fields fields;
    fields.set("cell type", enumText(design.getCellType()));
    fields.set("view type", plainNameOf(*design.getViewType()));
    addPcell(fields, design);
    addAttachments(fields, design);
    return fields;
}

Fields fieldsOf(const oa::oaBlock& block) {
    Fields fields;
    fields.set("visible to the module", yesOrNo(block.isVisibleToModule()));
    addAttachments(fields, block);
    return fields;
}

/// What hangs on the headers of the instances and shapes of a block, by their names.
std::map<std::string, Fields> headersOf(const oa::oaBlock& block, const LibraryNames& libraries,
                                        bool isSecond, const Labels& labels) {
    std::map<std::string, Fields> all;
    const auto add = [&all](const std::string& name, const oa::oaObject& header) {
        if (hasAttachments(header))
            addAttachments(all[name], header);
    };
    oa::oaIter<oa::oaInstHeader> masters(block.getInstHeaders());
    while (const oa::oaInstHeader* header = masters.getNext()) {
        if (!hasAttachments(*header))
            continue;
        const oa::oaNativeNS ns;
        oa::oaString library;
        oa::oaString cell;
        oa::oaString view;
        header->getLibName(ns, library);
        header->getCellName(ns, cell);
        header->getViewName(ns, view);
        const std::string named = ovalis::fromOa(library);
        add("instances of " + (isSecond ? libraries.shared(named) : named) + "/" +
                ovalis::fromOa(cell) + "/" + ovalis::fromOa(view),
            *header);
    }
    oa::oaIter<oa::oaViaHeader> definitions(block.getViaHeaders());
    while (const oa::oaViaHeader* header = definitions.getNext())
        if (hasAttachments(*header)) {
            oa::oaString name;
            header->getViaDefName(name);
            add("vias of " + quoted(name), *header);
        }
    oa::oaIter<oa::oaLPPHeader> pairs(block.getLPPHeaders());
    while (const oa::oaLPPHeader* header = pairs.getNext())
        if (hasAttachments(*header))
            add("shapes on " + labels.layerText(header->getLayerNum(), header->getPurposeNum()),
                *header);
    return all;
}

void compareHeaders(const Place& place, std::map<std::string, Fields> was,
                    std::map<std::string, Fields> is) {
    for (const auto& [name, fields] : is)
        was.try_emplace(name);
    for (const auto& [name, fields] : was)
        compareFields(place, name, fields, is[name]);
}

void compareBlocks(const Place& place, const oa::oaBlock& was, const oa::oaBlock& is,
                   const LibraryNames& libraries, Labels& labels) {
    compareFields(place, "block", fieldsOf(was), fieldsOf(is));
    const Connectivity connectivity(was, is, labels);
    const Instances instances(was, is, libraries, labels);
    connectivity.compare(place);
    instances.compare(place);
    compareHeaders(place, headersOf(was, libraries, false, labels),
                   headersOf(is, libraries, true, labels));
    compareShapes(place, was, is, labels);
}

} // namespace

void compareDesigns(const Place& place, const oa::oaDesign& was, const oa::oaDesign& is,
                    const LibraryNames& libraries) {
    Labels labels(was, is);
    labels.pair(&was, &is, "design");
    compareFields(place, "design", fieldsOf(was), fieldsOf(is));
    const oa::oaBlock* const first = was.getTopBlock();
    const oa::oaBlock* const second = is.getTopBlock();
    if (first != nullptr && second != nullptr) {
        labels.pair(first, second, "block");
        compareBlocks(place, *first, *second, libraries, labels);
    } else if (first != nullptr) {
        place.removed("block");
    } else if (second != nullptr) {
        place.added("block");
    }
    compareGroups(place, was, is, labels);
}

void compareUnits(const Place& place, const oa::oaDesign& was, const oa::oaDesign& is) {
    const auto unitsOf = [](const oa::oaDesign& design) {
        Fields fields;
        if (const oa::oaBlock* block = design.getTopBlock()) {
            fields.set("database units per user unit", numberText(block->getDBUPerUU()));
            fields.set("user unit", enumText(block->getUserUnits()));
        }
        return fields;
    };
    if (was.getTopBlock() != nullptr && is.getTopBlock() != nullptr)
        compareFields(place, "block", unitsOf(was), unitsOf(is));
}

} // namespace comparison
