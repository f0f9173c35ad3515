#include "design/src/occurrences.h"

#include "design/src/design_database.h"
#include "oa/oaBlock.h"
#include "oa/oaDesign.h"

namespace OpenAccess_4::impl {

oaTypeEnum OccInstRecord::type() const {
    switch (kind) {
    case InstKind::Array:
        return oacOccArrayInstType;
    case InstKind::Vector:
        return oacOccVectorInstType;
    case InstKind::VectorBit:
    case InstKind::ImplicitBit:
        return oacOccVectorInstBitType;
    default:
        return oacOccScalarInstType;
    }
}

oaObject* OccInstRecord::construct(void* where) const {
    switch (kind) {
    case InstKind::Array:
        return Handles::construct<oaOccArrayInst>(where);
    case InstKind::Vector:
        return Handles::construct<oaOccVectorInst>(where);
    case InstKind::VectorBit:
    case InstKind::ImplicitBit:
        return Handles::construct<oaOccVectorInstBit>(where);
    default:
        return Handles::construct<oaOccScalarInst>(where);
    }
}

Occurrences::~Occurrences() {
    if (anchor_)
        anchor_->database = nullptr;
}

const ContentPtr& Occurrences::anchor() {
    if (!anchor_) {
        anchor_ = std::make_shared<ContentAnchor>(ContentAnchor{&database_});
        sharedAnchor_ = anchor_;
    }
    return sharedAnchor_;
}

void Occurrences::makeTables() {
    if (occurrences_)
        return;
    occurrences_ =
        &database_.addTable<OccurrenceRecord>(TableId{kOccurrenceTable, kTransientKind, 0});
    insts_ = &database_.addTable<OccInstRecord>(TableId{kOccInstTable, kTransientKind, 0});
}

oaOccurrence* Occurrences::top() {
    if (!database_.hasBlock())
        return nullptr;
    makeTables();
    if (top_ == kNone)
        top_ = occurrences_->add({anchor(), kNone, {}});
    return occurrenceHandle(top_);
}

oaOccurrence* Occurrences::occurrenceHandle(std::uint32_t slot) {
    return static_cast<oaOccurrence*>(occurrences_->handle(slot));
}

oaOccInst* Occurrences::instHandle(std::uint32_t slot) {
    return static_cast<oaOccInst*>(insts_->handle(slot));
}

oaOccInst* Occurrences::find(std::uint32_t occurrence, std::uint32_t inst) {
    if (inst == kNone)
        return nullptr;
    OccurrenceRecord& place = (*occurrences_)[occurrence];
    if (inst >= place.insts.size())
        place.insts.resize(place.content->database->instances.insts.slots(), kNone);
    std::uint32_t& slot = place.insts[inst];
    if (slot == kNone)
        slot = insts_->add(
            {occurrence, inst, kNone, place.content->database->instances.insts[inst].kind});
    return instHandle(slot);
}

void Occurrences::dropDestroyed(std::uint32_t occurrence) {
    OccurrenceRecord& place = (*occurrences_)[occurrence];
    const auto& insts = place.content->database->instances.insts;
    for (std::uint32_t inst = 0; inst < place.insts.size(); ++inst) {
        if (place.insts[inst] != kNone && !insts.isLive(inst))
            destroyInst(std::exchange(place.insts[inst], kNone));
    }
}

bool Occurrences::holds(std::uint32_t occurrence, const DesignDatabase& content) {
    for (;;) {
        const OccurrenceRecord& place = (*occurrences_)[occurrence];
        if (place.content->database == &content)
            return true;
        if (place.occInst == kNone)
            return false;
        occurrence = (*insts_)[place.occInst].occurrence;
    }
}

std::uint32_t Occurrences::below(std::uint32_t occInst, bool expand) {
    OccInstRecord& record = (*insts_)[occInst];
    Instances& instances = (*occurrences_)[record.occurrence].content->database->instances;
    if (record.kind == InstKind::Vector)
        return kNone;
    const oaDesign* master =
        expand ? instances.masterOf(record.inst) : instances.boundMasterOf(record.inst);
    DesignDatabase* content = master ? &designDatabaseOf(master) : nullptr;
    if (record.below != kNone &&
        (!content || occurrence(record.below).content->database != content))
        destroy(std::exchange(record.below, kNone));
    if (!content || !content->hasBlock())
        return kNone;
    if (record.below == kNone && expand && !holds(record.occurrence, *content))
        record.below = occurrences_->add({content->occurrences.anchor(), occInst, {}});
    return record.below;
}

void Occurrences::destroy(std::uint32_t occurrence) {
    const std::vector<std::uint32_t> insts = std::move((*occurrences_)[occurrence].insts);
    for (const std::uint32_t slot : insts)
        if (slot != kNone)
            destroyInst(slot);
    database_.forgetAttachments({kOccurrenceTable, occurrence});
    occurrences_->destroy(occurrence);
}

void Occurrences::destroyInst(std::uint32_t occInst) {
    if (const std::uint32_t below = (*insts_)[occInst].below; below != kNone)
        destroy(below);
    database_.forgetAttachments({kOccInstTable, occInst});
    insts_->destroy(occInst);
}

std::vector<oaObject*> Occurrences::standingFor(const ContentPtr& content, std::uint32_t inst) {
    std::vector<oaObject*> found;
    if (!insts_)
        return found;
    insts_->forEach([&](std::uint32_t slot, const OccInstRecord& record) {
        if (record.inst == inst && occurrence(record.occurrence).content == content)
            found.push_back(instHandle(slot));
    });
    return found;
}

DesignDatabase& contentOf(const oaOccurrence* occurrence) {
    DesignDatabase* content = recordOf<OccurrenceRecord>(occurrence).content->database;
    if (!content)
        throwInvalidObject();
    return *content;
}

namespace {

/// The content that an instance lies in; null when one of the two is no more.
DesignDatabase* contentWith(const OccInstRecord& record, Occurrences& occurrences) {
    DesignDatabase* content = occurrences.occurrence(record.occurrence).content->database;
    return content && content->instances.insts.isLive(record.inst) ? content : nullptr;
}

} // namespace

bool stands(const oaOccInst* occInst) {
    return occInst->isValid() &&
           contentWith(recordOf<OccInstRecord>(occInst), designDatabaseOf(occInst).occurrences);
}

oaInst* instOf(const oaOccInst* occInst) {
    const OccInstRecord& record = recordOf<OccInstRecord>(occInst);
    DesignDatabase* content = contentWith(record, designDatabaseOf(occInst).occurrences);
    if (!content)
        throwInvalidObject();
    return static_cast<oaInst*>(content->instances.insts.handle(record.inst));
}

} // namespace OpenAccess_4::impl
