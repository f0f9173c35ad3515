#include "oa/oaBlock.h"

#include "base/src/source.h"
#include "design/src/design_database.h"
#include "design/src/shape_edit.h"
#include "oa/oaDesign.h"
#include "oa/oaDesignException.h"
#include "oa/oaTech.h"
#include "oa/oaTerm.h"

namespace OpenAccess_4 {

using namespace impl;

oaBlock* oaBlock::create(const oaDesign* design, oaBoolean visibleToModule) {
    DesignDatabase& database = designDatabaseOf(design);
    database.requireEditable();
    if (database.hasBlock())
        throw oaDesignError(oacBlockExists, database.names().lib.c_str(),
                            database.names().cell.c_str(), database.names().view.c_str());
    database.edit();
    const std::uint32_t slot = database.blocks.add({visibleToModule ? 1u : 0u});
    return static_cast<oaBlock*>(database.blocks.handle(slot));
}

void oaBlock::getBBox(oaBox& bBox) const {
    bBox = designDatabaseOf(this).extent();
}

oaUInt4 oaBlock::getDBUPerUU() const {
    const oaDesign* design = getDesign();
    const oaTech* tech = design->getTech();
    return tech ? tech->getDBUPerUU(design->getViewType())
                : oaTech::getDefaultDBUPerUU(design->getViewType());
}

oaUserUnitsType oaBlock::getUserUnits() const {
    const oaDesign* design = getDesign();
    const oaTech* tech = design->getTech();
    return tech ? tech->getUserUnits(design->getViewType())
                : oaTech::getDefaultUserUnits(design->getViewType());
}

oaBoolean oaBlock::isVisibleToModule() const {
    return recordOf<BlockRecord>(this).visibleToModule != 0;
}

void oaBlock::setVisibleToModule() {
    edited(this);
    recordOf<BlockRecord>(this).visibleToModule = 1;
}

oaCollection<oaShape, oaBlock> oaBlock::getShapes() const {
    return collectionOf<oaCollection<oaShape, oaBlock>>(designDatabaseOf(this).shapes.all());
}

oaCollection<oaNet, oaBlock> oaBlock::getNets(oaUInt4 filterFlags) const {
    Table<NetRecord>& nets = designDatabaseOf(this).connectivity.nets;
    // All nets are scalar ones, made by the application.
    if (filterFlags & oacNetIterBundle)
        return collectionOf<oaCollection<oaNet, oaBlock>>(std::vector<TableBase*>());
    if (!(filterFlags & oacNetIterGlobal))
        return collectionOf<oaCollection<oaNet, oaBlock>>(std::vector<TableBase*>{&nets});
    std::vector<oaObject*> global;
    nets.forEach([&](std::uint32_t slot, const NetRecord& net) {
        if (net.isGlobal)
            global.push_back(nets.handle(slot));
    });
    return collectionOf<oaCollection<oaNet, oaBlock>>(std::move(global));
}

oaCollection<oaTerm, oaBlock> oaBlock::getTerms(oaUInt4 filterFlags) const {
    std::vector<TableBase*> tables;
    if (!(filterFlags & oacTermIterBundle))
        tables.push_back(&designDatabaseOf(this).connectivity.terms);
    return collectionOf<oaCollection<oaTerm, oaBlock>>(std::move(tables));
}

oaCollection<oaPin, oaBlock> oaBlock::getPins() const {
    return collectionOf<oaCollection<oaPin, oaBlock>>(
        std::vector<TableBase*>{&designDatabaseOf(this).connectivity.pins});
}

oaCollection<oaInst, oaBlock> oaBlock::getInsts(oaUInt4 filterFlags) const {
    Instances& instances = designDatabaseOf(this).instances;
    // Without vectors, all are of one bit and explicit, so that every filter lets them pass.
    if (instances.vectors().empty())
        return collectionOf<oaCollection<oaInst, oaBlock>>(
            std::vector<TableBase*>{&instances.insts});
    std::vector<oaObject*> shown;
    instances.insts.forEach([&](std::uint32_t slot, const InstRecord& inst) {
        if (!inst.isImplicit())
            instances.collect(slot, filterFlags, shown);
    });
    return collectionOf<oaCollection<oaInst, oaBlock>>(std::move(shown));
}

oaCollection<oaLayerHeader, oaBlock> oaBlock::getLayerHeaders() const {
    DesignDatabase& database = designDatabaseOf(this);
    TableBase* layers = database.table(kLayerHeaderTable);
    std::vector<oaObject*> used;
    for (std::uint32_t slot = 0; slot < layers->slots(); ++slot)
        if (database.shapes.isLayerUsed(slot))
            used.push_back(layers->handle(slot));
    return collectionOf<oaCollection<oaLayerHeader, oaBlock>>(std::move(used));
}

oaCollection<oaLPPHeader, oaBlock> oaBlock::getLPPHeaders() const {
    DesignDatabase& database = designDatabaseOf(this);
    TableBase* pairs = database.table(kLPPHeaderTable);
    std::vector<oaObject*> used;
    for (std::uint32_t slot = 0; slot < pairs->slots(); ++slot)
        if (database.shapes.isPairUsed(slot))
            used.push_back(pairs->handle(slot));
    return collectionOf<oaCollection<oaLPPHeader, oaBlock>>(std::move(used));
}

void oaBlock::getTermsByPosition(oaTermArray& array) const {
    Table<TermRecord>& terms = designDatabaseOf(this).connectivity.terms;
    array.setNumElements(0);
    const oaUInt4 last = oaTerm::getMaxPosition(this);
    if (last == oacNullIndex)
        return;
    array.setNumElements(last + 1);
    for (oaUInt4 i = 0; i <= last; ++i)
        array[i] = nullptr;
    terms.forEach([&](std::uint32_t slot, const TermRecord& term) {
        if (term.position != kNone)
            array[term.position] = static_cast<oaTerm*>(terms.handle(slot));
    });
}

oaBoolean oaBlock::hasConnectivity() const {
    return designDatabaseOf(this).connectivity.nets.live() > 0;
}

oaBoolean oaBlock::hasGlobalNet() const {
    return !getNets(oacNetIterGlobal).isEmpty();
}

void oaBlock::destroy() {
    edited(this).destroyBlock();
}

} // namespace OpenAccess_4
