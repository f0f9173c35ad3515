#include "design/src/shape_tables.h"

#include "design/src/design_database.h"
#include "design/src/shape_geometry.h"

namespace OpenAccess_4::impl {

namespace {

/// False for kinds whose boxes follow other objects, or evaluators of the application.
bool keepsItsBox(std::uint32_t kind) {
    return kind < kEvalTextKind;
}

bool touchesEdge(const oaBox& inner, const oaBox& outer) {
    return inner.left() <= outer.left() || inner.bottom() <= outer.bottom() ||
           inner.right() >= outer.right() || inner.top() >= outer.top();
}

} // namespace

ShapeTables::ShapeTables(DesignDatabase& database)
    : database_(database),
      layers_(database.addTable<LayerHeaderRecord>(kLayerHeaderTable)),
      pairs_(database.addTable<LPPHeaderRecord>(kLPPHeaderTable)),
      movedTable_(database.addTable<MovedShapeRecord>(kMovedShapeTable)),
      moved_(movedTable_) {}

std::uint32_t ShapeTables::findLayer(oaLayerNum layer) {
    catchUp();
    const std::uint32_t* found = layerSlots_.find(layer);
    return found ? *found : kNone;
}

std::uint32_t ShapeTables::findPair(oaLayerNum layer, oaPurposeNum purpose) {
    if (lastPair_ != kNone && layerOf(lastPair_) == layer && purposeOf(lastPair_) == purpose)
        return lastPair_;
    const std::uint32_t header = findLayer(layer);
    if (header == kNone)
        return kNone;
    const std::uint32_t* found = pairSlots_.find(keyOf({header, purpose}));
    return found ? lastPair_ = *found : kNone;
}

std::uint32_t ShapeTables::pair(oaLayerNum layer, oaPurposeNum purpose) {
    const std::uint32_t found = findPair(layer, purpose);
    if (found != kNone)
        return found;
    std::uint32_t header = findLayer(layer);
    if (header == kNone)
        header = layers_.add({layer});
    const std::uint32_t slot = pairs_.add({header, purpose});
    catchUp();
    return lastPair_ = slot;
}

oaLayerNum ShapeTables::layerOf(std::uint32_t pair) const {
    return layers_[pairs_[pair].layerHeader].layer;
}

oaPurposeNum ShapeTables::purposeOf(std::uint32_t pair) const {
    return pairs_[pair].purpose;
}

std::uint32_t ShapeTables::countOf(std::uint32_t pair) {
    std::uint32_t count = 0;
    for (const TableBase* table : tablesOf(pair))
        count += table->live();
    movedTable_.forEach([&](std::uint32_t, const MovedShapeRecord& moved) {
        count += moved.owner == pair;
        count -= database_.table(moved.fig.table)->id().parameter == pair;
    });
    return count;
}

bool ShapeTables::isPairUsed(std::uint32_t pair) {
    return countOf(pair) > 0;
}

bool ShapeTables::isLayerUsed(std::uint32_t layerHeader) {
    for (std::uint32_t pair = 0; pair < pairs_.slots(); ++pair)
        if (pairs_[pair].layerHeader == layerHeader && isPairUsed(pair))
            return true;
    return false;
}

TableBase* ShapeTables::make(const TableId& id) {
    if (id.kind < kFirstShapeKind || id.kind >= kEndOfShapeKinds || id.parameter >= pairs_.slots())
        return nullptr;
    tables_.resize(pairs_.slots());
    TableBase*& place = tables_[id.parameter][id.kind - kFirstShapeKind];
    if (place)
        return nullptr;
    place = addTable(id);
    extentEntry(*place).known = false;
    return place;
}

std::uint32_t ShapeTables::pairOf(const ObjectRef& shape) {
    const std::uint32_t moved = moved_.ownerOf(shape);
    return moved == kNone ? database_.table(shape.table)->id().parameter : moved;
}

void ShapeTables::setPair(const ObjectRef& shape, std::uint32_t pair) {
    if (pair == database_.table(shape.table)->id().parameter)
        moved_.remove(shape);
    else if (moved_.ownerOf(shape) != pair)
        moved_.set(shape, pair);
}

std::vector<TableBase*> ShapeTables::all() const {
    std::vector<TableBase*> tables;
    tables.reserve(extents_.size());
    for (std::uint32_t pair = 0; pair < tables_.size(); ++pair)
        for (TableBase* table : tables_[pair])
            if (table)
                tables.push_back(table);
    return tables;
}

std::vector<TableBase*> ShapeTables::tablesOf(std::uint32_t pair) const {
    std::vector<TableBase*> tables;
    if (pair < tables_.size())
        for (TableBase* table : tables_[pair])
            if (table)
                tables.push_back(table);
    return tables;
}

std::vector<oaObject*> ShapeTables::shapesOf(std::uint32_t pair) {
    std::vector<oaObject*> shapes;
    for (TableBase* table : tablesOf(pair))
        for (std::uint32_t slot = 0; slot < table->slots(); ++slot)
            if (table->isLive(slot) && moved_.ownerOf({table->id().number, slot}) == kNone)
                shapes.push_back(table->handle(slot));
    for (const ObjectRef& shape : moved_.figsOf(pair))
        shapes.push_back(database_.handle(shape));
    return shapes;
}

oaBox ShapeTables::extent() {
    oaBox box = emptyBox();
    for (const TableBase* table : all())
        enlarge(box, extentOfTable(*table));
    return box;
}

oaBox ShapeTables::extentOf(std::uint32_t pair) {
    oaBox box = emptyBox();
    if (!anyMoved()) {
        for (const TableBase* table : tablesOf(pair))
            enlarge(box, extentOfTable(*table));
        return box;
    }
    for (const oaObject* shape : shapesOf(pair))
        enlarge(box, boxOf(impl::tableOf(shape), slotOf(shape)));
    return box;
}

oaBox ShapeTables::boxOf(const TableBase& table, std::uint32_t slot) const {
    return withShapeRecord(table.id().kind, [&]<class Record>() {
        return impl::boxOf(database_, static_cast<const Table<Record>&>(table)[slot]);
    });
}

void ShapeTables::shrink(const TableBase& table, std::uint32_t slot) {
    Extent& extent = extentEntry(table);
    if (extent.known && touchesEdge(boxOf(table, slot), extent.box))
        extent.known = false;
}

void ShapeTables::grow(const TableBase& table, std::uint32_t slot) {
    Extent& extent = extentEntry(table);
    if (extent.known && keepsItsBox(table.id().kind))
        enlarge(extent.box, boxOf(table, slot));
}

bool ShapeTables::isSound() {
    catchUp();
    return layerSlots_.size() == layers_.slots() && pairSlots_.size() == pairs_.slots() &&
           moved_.isSound();
}

TableBase& ShapeTables::tableOf(std::uint32_t pair, std::uint32_t kind) {
    tables_.resize(std::max<std::size_t>(tables_.size(), pair + 1));
    TableBase*& place = tables_[pair][kind - kFirstShapeKind];
    if (!place) {
        const std::uint32_t number = std::max(database_.tableCount(), kFirstVariableTable);
        place = addTable({number, kind, pair});
    }
    return *place;
}

TableBase* ShapeTables::addTable(const TableId& id) {
    TableBase* table = withShapeRecord(
        id.kind, [&]<class Record>() -> TableBase* { return &database_.addTable<Record>(id); });
    if (id.kind == kPropDisplayKind || id.kind == kAttrDisplayKind)
        displayTables_.push_back(table);
    return table;
}

ShapeTables::Extent& ShapeTables::extentEntry(const TableBase& table) {
    const std::size_t place = table.id().number - kFirstVariableTable;
    if (place >= extents_.size())
        extents_.resize(place + 1);
    return extents_[place];
}

const oaBox& ShapeTables::extentOfTable(const TableBase& table) {
    Extent& extent = extentEntry(table);
    if (extent.known && keepsItsBox(table.id().kind))
        return extent.box;
    extent.box = emptyBox();
    withShapeRecord(table.id().kind, [&]<class Record>() {
        const auto& shapes = static_cast<const Table<Record>&>(table);
        for (std::uint32_t slot = 0; slot < shapes.slots(); ++slot)
            if (shapes.isLive(slot))
                enlarge(extent.box, impl::boxOf(database_, shapes[slot]));
    });
    extent.known = true;
    return extent.box;
}

void ShapeTables::catchUp() {
    for (; indexedLayers_ < layers_.slots(); ++indexedLayers_)
        layerSlots_[layers_[indexedLayers_].layer] = indexedLayers_;
    for (; indexedPairs_ < pairs_.slots(); ++indexedPairs_)
        pairSlots_[keyOf(pairs_[indexedPairs_])] = indexedPairs_;
}

bool ShapeTables::isPairNeeded(std::uint32_t pair) {
    // The table of a pair names its header even when all of its shapes have moved elsewhere.
    for (const TableBase* table : tablesOf(pair))
        if (table->live() > 0)
            return true;
    return moved_.owns(pair);
}

void ShapeTables::dropUnusedHeaders() {
    catchUp();
    std::vector<bool> needed(layers_.slots());
    pairs_.forEach([&](std::uint32_t pair, const LPPHeaderRecord& header) {
        if (isPairNeeded(pair)) {
            needed[header.layerHeader] = true;
            return;
        }
        pairSlots_.erase(keyOf(header));
        database_.forgetAttachments({kLPPHeaderTable, pair});
        pairs_.destroy(pair);
    });
    layers_.forEach([&](std::uint32_t layer, const LayerHeaderRecord& header) {
        if (needed[layer])
            return;
        layerSlots_.erase(header.layer);
        database_.forgetAttachments({kLayerHeaderTable, layer});
        layers_.destroy(layer);
    });
    lastPair_ = kNone;
}

} // namespace OpenAccess_4::impl
