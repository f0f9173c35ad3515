#include "oa/oaDerivedLayerDefObserver.h"

#include "base/src/session.h"
#include "base/src/source.h"
#include "oa/oaLayer.h"
#include "oa/oaTech.h"
#include "oa/oaTechException.h"
#include "tech/src/derived_layer_defs.h"
#include "tech/src/open_techs.h"
#include "tech/src/tech_database.h"

namespace OpenAccess_4 {

using namespace impl;
using Observer = oaVersionedObserver<oaDerivedLayerDef, 0>;

namespace {

/// How many layers a built-in operation takes.
std::uint32_t numLayersOf(oaLayerOpEnum operation) {
    return operation >= oacAreaLayerOp ? 1 : 2;
}

Table<DerivedLayerDefRecord>& makeDefs() {
    auto& defs = Session::instance().addTable<DerivedLayerDefRecord>(kDerivedLayerDefTable);
    for (std::uint32_t value = 0; value <= oacShrinkHorizontalLayerOp; ++value) {
        const auto operation = oaLayerOpEnum(value);
        if (operation != oacUserDefinedLayerOp)
            defs.add({static_cast<const oaChar*>(oaLayerOp(operation).getName()),
                      numLayersOf(operation), operation});
    }
    return defs;
}

Table<DerivedLayerDefRecord>& definitions() {
    static Table<DerivedLayerDefRecord>& defs = makeDefs();
    return defs;
}

/// The first definition that `matches`, or null.
template <class Matches>
oaDerivedLayerDef* findDef(Matches matches) {
    std::uint32_t found = kNone;
    definitions().forEach([&](std::uint32_t slot, const DerivedLayerDefRecord& def) {
        if (found == kNone && matches(def))
            found = slot;
    });
    return found == kNone ? nullptr : static_cast<oaDerivedLayerDef*>(definitions().handle(found));
}

} // namespace

oaDerivedLayerDef* oaDerivedLayerDef::create(const oaString& name, oaUInt4 numLayers) {
    const oaChar* text = name;
    if (find(name))
        throw oaTechError(oacDerivedLayerDefExists, text);
    const std::uint32_t slot = definitions().add({text, numLayers, oacUserDefinedLayerOp});
    auto* def = static_cast<oaDerivedLayerDef*>(definitions().handle(slot));
    Observer::notifyPostCreateObservers(def);
    return def;
}

oaDerivedLayerDef* oaDerivedLayerDef::find(const oaString& name) {
    return findDef([&](const DerivedLayerDefRecord& def) { return name == def.name.c_str(); });
}

oaDerivedLayerDef* oaDerivedLayerDef::get(oaLayerOp type) {
    if (type == oacUserDefinedLayerOp)
        return nullptr;
    return findDef([&](const DerivedLayerDefRecord& def) { return def.operation == type; });
}

void oaDerivedLayerDef::getName(oaString& name) const {
    name = recordOf<DerivedLayerDefRecord>(this).name.c_str();
}

oaUInt4 oaDerivedLayerDef::getNumLayers() const {
    return recordOf<DerivedLayerDefRecord>(this).numLayers;
}

oaBoolean oaDerivedLayerDef::isBuiltIn() const {
    return recordOf<DerivedLayerDefRecord>(this).operation != oacUserDefinedLayerOp;
}

void oaDerivedLayerDef::destroy() {
    if (isBuiltIn())
        throw oaTechError(oacDerivedLayerDefIsBuiltIn,
                          recordOf<DerivedLayerDefRecord>(this).name.c_str());
    Observer::notifyPreDestroyObservers(this);
    definitions().destroy(slotOf(this));
}

void oaDerivedLayerDef::remove(oaTech* tech) {
    TechDatabase& database = techDatabaseOf(tech);
    database.edit();
    const DerivedLayerDefRecord& def = recordOf<DerivedLayerDefRecord>(this);
    database.layers.forEach([&](std::uint32_t slot, const LayerRecord& layer) {
        if (layer.kind == LayerKind::Derived && layer.what == std::uint32_t(def.operation) &&
            (!layer.def || database.strings.text(layer.def) == def.name))
            static_cast<oaLayer*>(database.layers.handle(slot))->destroy();
    });
}

oaCollection<oaDerivedLayerDef, oaSession> oaSession::getDerivedLayerDefs() const {
    return collectionOf<oaCollection<oaDerivedLayerDef, oaSession>>({&definitions()});
}

} // namespace OpenAccess_4
