#include "oa/oaOccTraverser.h"

#include "design/src/occurrences.h"

namespace OpenAccess_4 {

oaOccTraverser::oaOccTraverser(oaOccurrence* topOcc) : top_(topOcc) {}

oaOccTraverser::~oaOccTraverser() = default;

void oaOccTraverser::traverse() {
    aborted_ = false;
    if (!top_ || !top_->isValid())
        impl::throwInvalidObject();
    walk(top_);
}

void oaOccTraverser::abort() {
    aborted_ = true;
}

oaUInt4& oaOccTraverser::flags() {
    return flags_;
}

oaOccurrence* oaOccTraverser::getTopOccurrence() const {
    return top_;
}

void oaOccTraverser::walk(oaOccurrence* occurrence) {
    if (!startOccurrence(occurrence) || aborted_)
        return;
    if (!has(oavOccTraversePostOrder))
        processOccurrence(occurrence);
    walkInsts(occurrence);
    if (has(oavOccTraversePostOrder) && !aborted_)
        processOccurrence(occurrence);
    if (!aborted_)
        endOccurrence(occurrence);
}

void oaOccTraverser::walkInsts(oaOccurrence* occurrence) {
    if (aborted_ || !occurrence->isValid())
        return;
    oaIter<oaOccInst> insts(occurrence->getInsts(
        has(oavOccTraverseImplicit) ? oacInstIterAll : oacInstIterNotImplicit));
    while (oaOccInst* inst = aborted_ ? nullptr : insts.getNext())
        visit(inst);
}

void oaOccTraverser::visit(oaOccInst* inst) {
    if (!has(oavOccTraversePostOrder))
        processInst(inst);
    if (has(oavOccTraverseDesigns) && !aborted_ && impl::stands(inst))
        walkBelow(inst);
    if (has(oavOccTraversePostOrder) && !aborted_ && impl::stands(inst))
        processInst(inst);
}

void oaOccTraverser::walkBelow(oaOccInst* inst) {
    if (!startInst(inst) || aborted_)
        return;
    if (oaOccurrence* below = inst->getMasterOccurrence())
        walk(below);
    if (!aborted_)
        endInst(inst);
}

oaBoolean oaOccTraverser::startOccurrence(oaOccurrence*) {
    return true;
}

void oaOccTraverser::endOccurrence(oaOccurrence*) {}

oaBoolean oaOccTraverser::startInst(oaOccInst*) {
    return true;
}

void oaOccTraverser::endInst(oaOccInst*) {}
void oaOccTraverser::processOccurrence(oaOccurrence*) {}
void oaOccTraverser::processInst(oaOccInst*) {}

} // namespace OpenAccess_4
