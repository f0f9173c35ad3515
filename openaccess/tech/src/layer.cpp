#include "base/src/source.h"
#include "oa/oaDerivedLayer.h"
#include "oa/oaDerivedLayerDef.h"
#include "oa/oaPhysicalLayer.h"
#include "oa/oaSizedLayer.h"
#include "oa/oaTech.h"
#include "oa/oaTechException.h"
#include "tech/src/derived_layer_defs.h"
#include "tech/src/derived_layer_keys.h"
#include "tech/src/open_techs.h"
#include "tech/src/tech_conflicts.h"
#include "tech/src/tech_database.h"
#include "tech/src/tech_graph.h"
#include "tech/src/via_defs.h"

#include <algorithm>
#include <string>
#include <vector>

namespace OpenAccess_4 {

using namespace impl;

namespace {

LayerRecord& layerOf(const oaLayer* layer) {
    return recordOf<LayerRecord>(layer);
}

/// The record of a layer, to be changed.
LayerRecord& editedLayer(const oaLayer* layer) {
    databaseOf(layer).edit();
    return layerOf(layer);
}

void requireFreeName(TechDatabase& tech, const oaString& name, const oaLayer* own = nullptr) {
    const oaLayer* layer = oaLayer::find(static_cast<oaTech*>(tech.object()), name);
    if (layer && layer != own)
        throw oaTechError(oacLayerNameExists, nameOf(techDatabaseOf(layer)).c_str(),
                          static_cast<const oaChar*>(name));
}

void requireFreeNumber(TechDatabase& tech, oaLayerNum number, const oaLayer* own = nullptr) {
    const oaLayer* layer = oaLayer::find(static_cast<oaTech*>(tech.object()), number);
    if (layer && layer != own)
        throw oaTechError(oacLayerNumberExists, nameOf(techDatabaseOf(layer)).c_str(), number);
}

/// Adds a layer of which all but the name is filled in.
oaObject* addLayer(TechDatabase& tech, const oaString& name, LayerRecord layer) {
    tech.requireEditable();
    requireFreeName(tech, name);
    requireFreeNumber(tech, layer.number);
    tech.edit();
    layer.name = tech.strings.intern(std::string_view(name));
    oaObject* added = tech.layers.handle(tech.layers.add(layer));
    reportConflictsOf(added);
    return added;
}

oaObject* layerIn(TechDatabase& tech, std::uint32_t slot) {
    return slot == kNone ? nullptr : tech.layers.handle(slot);
}

template <class Key>
oaObject* findLayer(const oaTech* tech, Key key, oaBoolean local) {
    return firstInGraph(tech, local, [&](const oaTech* each) {
        TechDatabase& database = techDatabaseOf(each);
        return layerIn(database, database.layerIndex.find(key));
    });
}

/// The layer of one kind that has a name or a number, or null.
template <class Layer, class Key>
Layer* findLayerOf(LayerKind kind, const oaTech* tech, Key key, oaBoolean local = false) {
    oaObject* layer = findLayer(tech, key, local);
    return layer && recordOf<LayerRecord>(layer).kind == kind ? static_cast<Layer*>(layer)
                                                              : nullptr;
}

/// The layer that a derived layer names by its number, or null.
oaLayer* sourceOf(const oaLayer* layer, std::size_t index) {
    const LayerRecord& record = layerOf(layer);
    if (index >= record.sources)
        return nullptr;
    return static_cast<oaLayer*>(findLayer(layer->getTech(), record.sourceNumbers[index], false));
}

LayerRecord derivedFrom(LayerKind kind, oaLayerNum number, std::uint32_t what) {
    LayerRecord layer;
    layer.kind = kind;
    layer.number = number;
    layer.what = what;
    return layer;
}

void addSource(LayerRecord& layer, TechDatabase& tech, const oaLayer* source,
               const oaString& name) {
    const std::vector<oaTech*> seen = graphOf(static_cast<oaTech*>(tech.object()));
    if (std::ranges::find(seen, source->getTech()) == seen.end())
        throw oaTechError(oacDerivedLayerInvalid, static_cast<const oaChar*>(name),
                          "its technology does not see a layer that it follows from");
    layer.sourceNumbers[layer.sources++] = layerOf(source).number;
}

oaDerivedLayer* findDerived(const oaTech* tech, std::vector<oaLayerNum> sources,
                            const oaDerivedLayerDef* def, const oaDerivedLayerParamArray* params,
                            oaBoolean local) {
    const std::string key = derivationKey(def, sources, params);
    return firstInGraph(tech, local, [&](const oaTech* each) {
        TechDatabase& database = techDatabaseOf(each);
        oaObject* found = nullptr;
        database.layers.forEach([&](std::uint32_t slot, const LayerRecord& layer) {
            if (!found && layer.kind == LayerKind::Derived && derivationKey(database, slot) == key)
                found = database.layers.handle(slot);
        });
        return static_cast<oaDerivedLayer*>(found);
    });
}

oaDerivedLayer* createDerived(oaTech* tech, std::initializer_list<const oaLayer*> sources,
                              const oaDerivedLayerDef* def, const oaString& name, oaLayerNum number,
                              const oaDerivedLayerParamArray* params) {
    const DerivedLayerDefRecord& definition = recordOf<DerivedLayerDefRecord>(def);
    if (definition.numLayers != sources.size())
        throw oaTechError(oacDerivedLayerInvalid, static_cast<const oaChar*>(name),
                          "its operation takes another number of layers");
    TechDatabase& database = techDatabaseOf(tech);
    LayerRecord layer = derivedFrom(LayerKind::Derived, number, definition.operation);
    for (const oaLayer* source : sources)
        addSource(layer, database, source, name);
    database.edit();
    if (definition.operation == oacUserDefinedLayerOp)
        layer.def = database.strings.intern(definition.name);
    if (!params)
        return static_cast<oaDerivedLayer*>(addLayer(database, name, layer));
    requireNoneTwice(*params);
    auto* added = static_cast<oaDerivedLayer*>(addLayer(database, name, layer));
    added->setParams(*params);
    return added;
}

} // namespace

oaLayer* oaLayer::find(const oaTech* tech, const oaString& name, oaBoolean local) {
    return static_cast<oaLayer*>(findLayer(tech, std::string_view(name), local));
}

oaLayer* oaLayer::find(const oaTech* tech, oaLayerNum number, oaBoolean local) {
    return static_cast<oaLayer*>(findLayer(tech, number, local));
}

void oaLayer::getName(oaString& name) const {
    name = databaseOf(this).strings.chars(layerOf(this).name);
}

void oaLayer::setName(const oaString& name) {
    TechDatabase& tech = techDatabaseOf(this);
    tech.requireEditable();
    if (name == tech.strings.chars(layerOf(this).name))
        return;
    requireFreeName(tech, name, this);
    tech.edit();
    tech.layerIndex.rename(slotOf(this), std::string_view(name));
    reportConflictsOf(this);
}

oaLayerNum oaLayer::getNumber() const {
    return layerOf(this).number;
}

void oaLayer::setNumber(oaLayerNum number) {
    TechDatabase& tech = techDatabaseOf(this);
    tech.requireEditable();
    const oaLayerNum before = layerOf(this).number;
    if (number == before)
        return;
    requireFreeNumber(tech, number, this);
    tech.edit();
    tech.layerIndex.renumber(slotOf(this), number);
    tech.layers.forEach([&](std::uint32_t, LayerRecord& layer) {
        for (std::size_t i = 0; i < layer.sources; ++i)
            if (layer.sourceNumbers[i] == before)
                layer.sourceNumbers[i] = number;
    });
    renumberLayerOfViaDefs(tech, before, number);
    reportConflictsOf(this);
}

void oaLayer::destroy() {
    TechDatabase& tech = techDatabaseOf(this);
    tech.edit();
    const std::uint32_t slot = slotOf(this);
    tech.forgetExclusions(slot);
    tech.destroyParamsOf(slot);
    tech.forgetAttachments({kLayerTable, slot});
    tech.layerIndex.remove(slot);
    tech.layers.destroy(slot);
}

oaPhysicalLayer* oaPhysicalLayer::create(oaTech* tech, const oaString& name, oaLayerNum number,
                                         oaMaterial material, oaUInt4 maskNumber) {
    LayerRecord layer;
    layer.number = number;
    layer.what = material;
    layer.maskNumber = maskNumber;
    return static_cast<oaPhysicalLayer*>(addLayer(techDatabaseOf(tech), name, layer));
}

oaPhysicalLayer* oaPhysicalLayer::find(const oaTech* tech, const oaString& name, oaBoolean local) {
    return findLayerOf<oaPhysicalLayer>(LayerKind::Physical, tech, std::string_view(name), local);
}

oaPhysicalLayer* oaPhysicalLayer::find(const oaTech* tech, oaLayerNum number, oaBoolean local) {
    return findLayerOf<oaPhysicalLayer>(LayerKind::Physical, tech, number, local);
}

oaMaterial oaPhysicalLayer::getMaterial() const {
    return oaMaterialEnum(layerOf(this).what);
}

void oaPhysicalLayer::setMaterial(oaMaterial material) {
    editedLayer(this).what = material;
}

oaUInt4 oaPhysicalLayer::getMaskNumber() const {
    return layerOf(this).maskNumber;
}

void oaPhysicalLayer::setMaskNumber(oaUInt4 number) {
    editedLayer(this).maskNumber = number;
}

oaPrefRoutingDir oaPhysicalLayer::getPrefRoutingDir() const {
    return oaPrefRoutingDirEnum(layerOf(this).routingDir);
}

void oaPhysicalLayer::setPrefRoutingDir(oaPrefRoutingDir direction) {
    editedLayer(this).routingDir = direction;
}

oaDist oaPhysicalLayer::getManufacturingGrid() const {
    const std::uint32_t grid = layerOf(this).grid;
    return grid != kNone ? grid : getTech()->getDefaultManufacturingGrid();
}

void oaPhysicalLayer::setManufacturingGrid(oaDist grid) {
    editedLayer(this).grid = grid;
}

void oaPhysicalLayer::resetManufacturingGrid() {
    editedLayer(this).grid = kNone;
}

oaDerivedLayer* oaDerivedLayer::create(oaLayer* layer1, oaLayer* layer2, oaLayerOp operation,
                                       const oaString& name, oaLayerNum number) {
    return create(layer1->getTech(), layer1, layer2, operation, name, number);
}

oaDerivedLayer* oaDerivedLayer::create(oaTech* tech, oaLayer* layer1, oaLayer* layer2,
                                       oaLayerOp operation, const oaString& name,
                                       oaLayerNum number) {
    const oaDerivedLayerDef* def = oaDerivedLayerDef::get(operation);
    if (!def)
        throw oaTechError(oacDerivedLayerInvalid, static_cast<const oaChar*>(name),
                          "its operation is not a built-in one");
    return createDerived(tech, {layer1, layer2}, def, name, number, nullptr);
}

oaDerivedLayer* oaDerivedLayer::create(oaTech* tech, const oaLayer* layer,
                                       const oaDerivedLayerDef* def, const oaString& name,
                                       oaLayerNum number, const oaDerivedLayerParamArray* params) {
    return createDerived(tech, {layer}, def, name, number, params);
}

oaDerivedLayer* oaDerivedLayer::create(oaTech* tech, const oaLayer* layer1, const oaLayer* layer2,
                                       const oaDerivedLayerDef* def, const oaString& name,
                                       oaLayerNum number, const oaDerivedLayerParamArray* params) {
    return createDerived(tech, {layer1, layer2}, def, name, number, params);
}

oaDerivedLayer* oaDerivedLayer::find(const oaTech* tech, const oaString& name, oaBoolean local) {
    return findLayerOf<oaDerivedLayer>(LayerKind::Derived, tech, std::string_view(name), local);
}

oaDerivedLayer* oaDerivedLayer::find(const oaTech* tech, oaLayerNum number, oaBoolean local) {
    return findLayerOf<oaDerivedLayer>(LayerKind::Derived, tech, number, local);
}

oaDerivedLayer* oaDerivedLayer::find(const oaTech* tech, oaLayerNum layerNum,
                                     const oaDerivedLayerDef* def,
                                     const oaDerivedLayerParamArray* params, oaBoolean local) {
    return findDerived(tech, {layerNum}, def, params, local);
}

oaDerivedLayer* oaDerivedLayer::find(const oaTech* tech, oaLayerNum layer1Num, oaLayerNum layer2Num,
                                     const oaDerivedLayerDef* def,
                                     const oaDerivedLayerParamArray* params, oaBoolean local) {
    return findDerived(tech, {layer1Num, layer2Num}, def, params, local);
}

oaDerivedLayer* oaDerivedLayer::find(const oaLayer* layer1, const oaLayer* layer2,
                                     oaLayerOp operation) {
    const oaDerivedLayerDef* def = oaDerivedLayerDef::get(operation);
    return def ? findDerived(layer1->getTech(), {layer1->getNumber(), layer2->getNumber()}, def,
                             nullptr, false)
               : nullptr;
}

oaLayer* oaDerivedLayer::getLayer1() const {
    return sourceOf(this, 0);
}

oaLayerNum oaDerivedLayer::getLayer1Num() const {
    return layerOf(this).sourceNumbers[0];
}

oaLayer* oaDerivedLayer::getLayer2() const {
    return sourceOf(this, 1);
}

oaLayerNum oaDerivedLayer::getLayer2Num() const {
    return layerOf(this).sourceNumbers[1];
}

oaLayerOp oaDerivedLayer::getOperation() const {
    return oaLayerOpEnum(layerOf(this).what);
}

oaDerivedLayerDef* oaDerivedLayer::getDef() const {
    const LayerRecord& layer = layerOf(this);
    if (layer.what != oacUserDefinedLayerOp)
        return oaDerivedLayerDef::get(getOperation());
    const oaString name = databaseOf(this).strings.chars(layer.def);
    oaDerivedLayerDef* def = oaDerivedLayerDef::find(name);
    return def ? def : oaDerivedLayerDef::create(name, layer.sources);
}

oaSizedLayer* oaSizedLayer::create(oaLayer* layer, oaSizeOp operation, oaDist value,
                                   const oaString& name, oaLayerNum number) {
    TechDatabase& tech = techDatabaseOf(layer);
    LayerRecord sized = derivedFrom(LayerKind::Sized, number, operation);
    addSource(sized, tech, layer, name);
    sized.distance = value;
    return static_cast<oaSizedLayer*>(addLayer(tech, name, sized));
}

oaSizedLayer* oaSizedLayer::find(const oaTech* tech, const oaString& name) {
    return findLayerOf<oaSizedLayer>(LayerKind::Sized, tech, std::string_view(name));
}

oaSizedLayer* oaSizedLayer::find(const oaTech* tech, oaLayerNum number) {
    return findLayerOf<oaSizedLayer>(LayerKind::Sized, tech, number);
}

oaSizedLayer* oaSizedLayer::find(const oaLayer* layer, oaSizeOp operation, oaDist value) {
    TechDatabase& tech = techDatabaseOf(layer);
    const oaLayerNum number = layerOf(layer).number;
    std::uint32_t found = kNone;
    tech.layers.forEach([&](std::uint32_t slot, const LayerRecord& sized) {
        if (found == kNone && sized.kind == LayerKind::Sized && sized.what == operation &&
            sized.distance == value && sized.sourceNumbers[0] == number)
            found = slot;
    });
    return static_cast<oaSizedLayer*>(layerIn(tech, found));
}

oaLayer* oaSizedLayer::getLayer() const {
    return sourceOf(this, 0);
}

oaSizeOp oaSizedLayer::getOperation() const {
    return oaSizeOpEnum(layerOf(this).what);
}

oaDist oaSizedLayer::getValue() const {
    return layerOf(this).distance;
}

} // namespace OpenAccess_4
