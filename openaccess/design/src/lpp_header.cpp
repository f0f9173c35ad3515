#include "oa/oaLPPHeader.h"

#include "base/src/source.h"
#include "design/src/design_database.h"
#include "oa/oaDesign.h"
#include "oa/oaLayer.h"
#include "oa/oaPurpose.h"
#include "oa/oaTech.h"

namespace OpenAccess_4 {

using namespace impl;

namespace {

oaLayer* findLayer(const oaBlockObject* object, oaLayerNum number) {
    oaTech* tech = object->getDesign()->getTech();
    return tech ? oaLayer::find(tech, number) : nullptr;
}

} // namespace

oaLayerHeader* oaLayerHeader::find(const oaBlock* block, oaLayerNum layerNum) {
    DesignDatabase& database = designDatabaseOf(block);
    const std::uint32_t slot = database.shapes.findLayer(layerNum);
    if (slot == kNone || !database.shapes.isLayerUsed(slot))
        return nullptr;
    return static_cast<oaLayerHeader*>(database.table(kLayerHeaderTable)->handle(slot));
}

oaLayerNum oaLayerHeader::getLayerNum() const {
    return recordOf<LayerHeaderRecord>(this).layer;
}

oaLayer* oaLayerHeader::getLayer() const {
    return findLayer(this, getLayerNum());
}

oaBoolean oaLayerHeader::isBound() const {
    return getLayer() != nullptr;
}

oaCollection<oaLPPHeader, oaLayerHeader> oaLayerHeader::getLPPHeaders() const {
    DesignDatabase& database = designDatabaseOf(this);
    const auto& pairs =
        static_cast<const Table<LPPHeaderRecord>&>(*database.table(kLPPHeaderTable));
    std::vector<oaObject*> used;
    for (std::uint32_t slot = 0; slot < pairs.slots(); ++slot)
        if (pairs[slot].layerHeader == slotOf(this) && database.shapes.isPairUsed(slot))
            used.push_back(database.table(kLPPHeaderTable)->handle(slot));
    return collectionOf<oaCollection<oaLPPHeader, oaLayerHeader>>(std::move(used));
}

oaLPPHeader* oaLPPHeader::find(const oaBlock* block, oaLayerNum layerNum, oaPurposeNum purposeNum) {
    DesignDatabase& database = designDatabaseOf(block);
    const std::uint32_t slot = database.shapes.findPair(layerNum, purposeNum);
    if (slot == kNone || !database.shapes.isPairUsed(slot))
        return nullptr;
    return static_cast<oaLPPHeader*>(database.table(kLPPHeaderTable)->handle(slot));
}

oaLayerNum oaLPPHeader::getLayerNum() const {
    return designDatabaseOf(this).shapes.layerOf(slotOf(this));
}

oaPurposeNum oaLPPHeader::getPurposeNum() const {
    return recordOf<LPPHeaderRecord>(this).purpose;
}

oaLayer* oaLPPHeader::getLayer() const {
    return findLayer(this, getLayerNum());
}

oaPurpose* oaLPPHeader::getPurpose() const {
    oaTech* tech = getDesign()->getTech();
    return tech ? oaPurpose::find(tech, getPurposeNum()) : nullptr;
}

oaBoolean oaLPPHeader::isBound() const {
    return getLayer() && getPurpose();
}

oaLayerHeader* oaLPPHeader::getLayerHeader() const {
    return static_cast<oaLayerHeader*>(databaseOf(this)
                                           .table(kLayerHeaderTable)
                                           ->handle(recordOf<LPPHeaderRecord>(this).layerHeader));
}

oaCollection<oaShape, oaLPPHeader> oaLPPHeader::getShapes() const {
    ShapeTables& shapes = designDatabaseOf(this).shapes;
    if (shapes.anyMoved())
        return collectionOf<oaCollection<oaShape, oaLPPHeader>>(shapes.shapesOf(slotOf(this)));
    return collectionOf<oaCollection<oaShape, oaLPPHeader>>(shapes.tablesOf(slotOf(this)));
}

void oaLPPHeader::getShapeBBox(oaBox& bBox) const {
    bBox = designDatabaseOf(this).shapes.extentOf(slotOf(this));
}

} // namespace OpenAccess_4
