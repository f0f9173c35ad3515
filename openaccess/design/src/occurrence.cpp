#include "oa/oaOccurrence.h"

#include "base/src/source.h"
#include "design/src/design_database.h"
#include "design/src/names.h"
#include "oa/oaDesign.h"

namespace OpenAccess_4 {

using namespace impl;

namespace {

Occurrences& occurrencesOf(const oaOccObject* object) {
    return designDatabaseOf(object).occurrences;
}

bool isInst(const oaOccObject* object) {
    return tableOf(object).id().number == kOccInstTable;
}

} // namespace

oaOccurrence* oaDesign::getTopOccurrence() const {
    return designDatabaseOf(this).occurrences.top();
}

oaOccInst* oaInst::getOccInst() const {
    Occurrences& occurrences = designDatabaseOf(this).occurrences;
    occurrences.top();
    return occurrences.find(occurrences.topSlot(), slotOf(this));
}

oaCollection<oaOccInst, oaInst> oaInst::getOccInsts(const oaOccurrence* top) const {
    return collectionOf<oaCollection<oaOccInst, oaInst>>(
        occurrencesOf(top).standingFor(designDatabaseOf(this).occurrences.anchor(), slotOf(this)));
}

oaOccurrence* oaOccObject::getOccurrence() const {
    Occurrences& occurrences = occurrencesOf(this);
    if (isInst(this))
        return occurrences.occurrenceHandle(recordOf<OccInstRecord>(this).occurrence);
    const std::uint32_t inst = recordOf<OccurrenceRecord>(this).occInst;
    return inst == kNone ? nullptr
                         : occurrences.occurrenceHandle(occurrences.inst(inst).occurrence);
}

oaOccurrence* oaOccObject::getTopOccurrence() const {
    Occurrences& occurrences = occurrencesOf(this);
    return occurrences.occurrenceHandle(occurrences.topSlot());
}

oaBoolean oaOccObject::isOccInst() const {
    return isInst(this);
}

oaBoolean oaOccObject::isOccBitInst() const {
    return isInst(this) && getType() != oacOccVectorInstType;
}

oaBlock* oaOccurrence::getBlock() const {
    DesignDatabase* content = recordOf<OccurrenceRecord>(this).content->database;
    return content ? content->block() : nullptr;
}

oaOccInst* oaOccurrence::getOccInst() const {
    const std::uint32_t inst = recordOf<OccurrenceRecord>(this).occInst;
    return inst == kNone ? nullptr : occurrencesOf(this).instHandle(inst);
}

oaCollection<oaOccInst, oaOccurrence> oaOccurrence::getInsts(oaUInt4 filterFlags) const {
    std::vector<oaObject*> shown;
    const oaBlock* block = getBlock();
    if (block) {
        Occurrences& occurrences = occurrencesOf(this);
        occurrences.dropDestroyed(slotOf(this));
        oaIter<oaInst> insts(block->getInsts(filterFlags));
        while (const oaInst* inst = insts.getNext())
            shown.push_back(occurrences.find(slotOf(this), slotOf(inst)));
    }
    return collectionOf<oaCollection<oaOccInst, oaOccurrence>>(std::move(shown));
}

} // namespace OpenAccess_4
