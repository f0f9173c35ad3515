#include "definitions.h"
#include "visit.h"
#include "visit_shapes.h"

#include <vector>

namespace fuzz {

namespace {

void visitParam(const oa::oaParam& param, Digest& digest) {
    oa::oaString name;
    param.getName(name);
    digest.add(name);
    digest.add(param.getType());
    switch (param.getType()) {
    case oa::oacIntParamType:
        return digest.add(param.getIntVal());
    case oa::oacFloatParamType:
        return digest.add(param.getFloatVal());
    case oa::oacDoubleParamType:
        return digest.add(param.getDoubleVal());
    case oa::oacBooleanParamType:
        return digest.add(param.getBooleanVal());
    case oa::oacTimeParamType:
        return digest.add(param.getTimeVal());
    case oa::oacStringParamType:
        return digest.add(oa::oaString(param.getStringVal()));
    default:
        return digest.add(param.getNumBytes());
    }
}

void visitParams(const oa::oaParamArray& params, Digest& digest) {
    digest.add(params.getNumElements());
    for (oa::oaUInt4 i = 0; i < params.getNumElements(); ++i)
        visitParam(params[i], digest);
}

void visitPcell(const oa::oaDesign* design, Digest& digest) {
    digest.add(design->isSuperMaster());
    if (!design->isSuperMaster())
        return;
    oa::oaString text;
    design->getPcellEvaluatorName(text);
    digest.add(text);
    if (oa::oaPcellDef* def = design->getPcellDef()) {
        def->getDataValue("note", text);
        digest.add(text);
    }
    oa::oaParamArray params;
    design->getParams(params);
    visitParams(params, digest);
}

void visitInst(const oa::oaInst* inst, Digest& digest) {
    const oa::oaNativeNS ns;
    oa::oaString name;
    oa::oaBox box;
    oa::oaPoint origin;
    visitObject(inst, digest);
    visitName(inst, digest);
    inst->getLibName(ns, name);
    digest.add(name);
    inst->getCellName(ns, name);
    digest.add(name);
    inst->getViewName(ns, name);
    digest.add(name);
    inst->getBBox(box);
    digest.add(box);
    inst->getOrigin(origin);
    digest.add(origin);
    digest.add(inst->getOrient());
    digest.add(inst->getMaster() != nullptr);
    digest.add(inst->getNumBits());
    digest.add(inst->isImplicit());
    digest.add(inst->getHeader()->isSubHeader());
    digest.add(inst->getInstTerms().getCount());
    digest.add(inst->usesTermPositions());
    digest.add(inst->getPlacementStatus());
    oa::oaParamArray params;
    inst->getParams(params);
    visitParams(params, digest);
}

void visitHeader(const oa::oaInstHeader* header, Digest& digest) {
    const oa::oaNativeNS ns;
    oa::oaString name;
    oa::oaBox box;
    oa::oaParamArray params;
    visitObject(header, digest);
    header->getCellName(ns, name);
    digest.add(name);
    digest.add(header->isSuperHeader());
    digest.add(header->getMaster() != nullptr);
    digest.add(header->getInsts(oa::oacInstIterAll).getCount());
    header->getAllParams(params);
    visitParams(params, digest);
    header->getBBox(box);
    digest.add(box);
    oa::oaIter<oa::oaInstHeader> subs(header->getSubHeaders());
    while (const oa::oaInstHeader* sub = subs.getNext()) {
        digest.add(sub->getInsts().getCount());
        sub->getParams(params);
        visitParams(params, digest);
    }
}

void visitVia(const oa::oaVia* via, Digest& digest) {
    oa::oaString name;
    oa::oaBox box;
    oa::oaTransform xform;
    visitObject(via, digest);
    via->getViaDefName(name);
    digest.add(name);
    via->getBBox(box);
    digest.add(box);
    via->getTransform(xform);
    digest.add(xform.offset());
    digest.add(via->getOrient());
    digest.add(via->getViaDef() != nullptr);
    digest.add(via->getMaster() != nullptr);
    digest.add(via->hasNet());
    digest.add(via->getHeader()->isSubHeader());
    if (via->getType() == oa::oacStdViaType) {
        oa::oaViaParam params;
        static_cast<const oa::oaStdVia*>(via)->getViaParams(params);
        return visitViaParam(params, digest);
    }
    oa::oaParamArray params;
    static_cast<const oa::oaCustomVia*>(via)->getParams(params);
    visitParams(params, digest);
}

void visitViaHeader(const oa::oaViaHeader* header, Digest& digest) {
    oa::oaString name;
    oa::oaBox box;
    visitObject(header, digest);
    header->getViaDefName(name);
    digest.add(name);
    header->getBBox(box);
    digest.add(box);
    digest.add(header->getVias().getCount());
    digest.add(header->getMaster() != nullptr);
    oa::oaIter<oa::oaViaHeader> subs(header->getSubHeaders());
    while (const oa::oaViaHeader* sub = subs.getNext()) {
        visitObject(sub, digest);
        digest.add(sub->getVias().getCount());
        digest.add(sub->getSuperHeader() == header);
    }
    if (header->getType() != oa::oacCustomViaHeaderType)
        return;
    const auto* custom = static_cast<const oa::oaCustomViaHeader*>(header);
    oa::oaScalarName cell;
    custom->getCellName(cell);
    cell.get(oa::oaNativeNS(), name);
    digest.add(name);
    oa::oaParamArray params;
    custom->getAllParams(params);
    visitParams(params, digest);
}

void visitInstTerm(const oa::oaInstTerm* term, Digest& digest) {
    oa::oaString name;
    visitObject(term, digest);
    visitName(term->getInst(), digest);
    term->getTermName(oa::oaNativeNS(), name);
    digest.add(name);
    digest.add(term->getTermPosition());
    digest.add(term->usesTermPosition());
    digest.add(term->getNumBits());
    digest.add(term->getTerm() != nullptr);
    digest.add(term->getNet() != nullptr);
}

void visitPin(const oa::oaPin* pin, Digest& digest) {
    oa::oaString name;
    pin->getName(name);
    digest.add(name);
    visitObject(pin, digest);
    visitName(pin->getTerm(), digest);
    digest.add(pin->getAccessDir());
    digest.add(pin->getPlacementStatus());
    digest.add(pin->getPinType());
    digest.add(definitions().angle->get(pin));
    digest.add(oa::oaPin::find(pin->getTerm(), name) != nullptr);
    digest.add(pin->getFigs().getCount());
    oa::oaBox box;
    oa::oaIter<oa::oaPinFig> figures(pin->getFigs());
    while (const oa::oaPinFig* figure = figures.getNext()) {
        figure->getBBox(box);
        digest.add(box);
        digest.add(figure->getPin() == pin);
    }
}

void visitTerm(const oa::oaTerm* term, Digest& digest) {
    visitObject(term, digest);
    visitName(term, digest);
    visitName(term->getNet(), digest);
    digest.add(term->getTermType());
    digest.add(term->getPosition());
    digest.add(term->isInterface());
    oa::oaName name;
    term->getName(name);
    digest.add(oa::oaTerm::find(term->getBlock(), name) == term);
    oa::oaByte fixed[4] = {};
    definitions().fixed->get(term, fixed);
    digest.add(fixed[0]);
    std::vector<oa::oaByte> free(definitions().free->getSize(term));
    definitions().free->get(term, free.data());
    digest.add(free.size());
    digest.add(term->getPins().getCount());
}

void visitNet(const oa::oaNet* net, Digest& digest) {
    visitObject(net, digest);
    visitName(net, digest);
    digest.add(net->getSigType());
    digest.add(net->isGlobal());
    digest.add(net->isEmpty());
    oa::oaName name;
    net->getName(name);
    digest.add(oa::oaNet::find(net->getBlock(), name) == net);
    digest.add(definitions().checked->get(net));
    oa::oaString remark;
    definitions().remark->get(net, remark);
    digest.add(remark);
    digest.add(net->getTerms().getCount());
    digest.add(net->getPins().getCount());
    digest.add(net->getShapes().getCount());
    digest.add(net->getInstTerms().getCount());
    digest.add(net->getVias().getCount());
}

void visitLayers(const oa::oaBlock* block, Digest& digest) {
    oa::oaIter<oa::oaLPPHeader> pairs(block->getLPPHeaders());
    while (const oa::oaLPPHeader* pair = pairs.getNext()) {
        oa::oaBox box;
        pair->getShapeBBox(box);
        digest.add(box);
        digest.add(pair->getLayerNum());
        digest.add(pair->getPurposeNum());
        digest.add(pair->getShapes().getCount());
        digest.add(pair->isBound());
    }
}

/// Visits everything of a collection.
template <class Object, class Owner, class Visit>
void visitAll(const oa::oaCollection<Object, Owner>& objects, Digest& digest, Visit visit) {
    digest.add(objects.getCount());
    oa::oaIter<Object> all(objects);
    while (const Object* object = all.getNext())
        visit(object, digest);
}

} // namespace

std::uint64_t visitDesign(const oa::oaDesign* design) {
    Digest digest;
    visitObject(design, digest);
    digest.add(design->getCellType());
    digest.add(design->getCreateTime());
    visitPcell(design, digest);
    const oa::oaBlock* block = design->getTopBlock();
    digest.add(block != nullptr);
    if (!block)
        return digest.value();
    oa::oaBox box;
    block->getBBox(box);
    digest.add(box);
    visitObject(block, digest);
    visitLayers(block, digest);
    visitAll(block->getShapes(), digest, visitShape);
    visitAll(block->getNets(), digest, visitNet);
    visitAll(block->getTerms(), digest, visitTerm);
    visitAll(block->getPins(), digest, visitPin);
    visitAll(block->getInsts(oa::oacInstIterAll), digest, visitInst);
    visitAll(block->getInstHeaders(), digest, visitHeader);
    visitAll(block->getInstTerms(), digest, visitInstTerm);
    visitAll(block->getVias(), digest, visitVia);
    visitAll(block->getViaHeaders(), digest, visitViaHeader);
    return digest.value();
}

namespace {

template <class Object, class Owner>
void destroyHalfOf(const oa::oaCollection<Object, Owner>& objects) {
    bool destroying = false;
    oa::oaIter<Object> all(objects);
    while (Object* object = all.getNext()) {
        if (destroying)
            object->destroy();
        destroying = !destroying;
    }
}

} // namespace

void destroyHalf(oa::oaBlock* block) {
    destroyHalfOf(block->getProps());
    destroyHalfOf(block->getShapes());
    destroyHalfOf(block->getInstTerms());
    destroyHalfOf(block->getInsts());
    destroyHalfOf(block->getVias());
    destroyHalfOf(block->getPins());
    destroyHalfOf(block->getTerms());
    destroyHalfOf(block->getNets());
}

} // namespace fuzz
