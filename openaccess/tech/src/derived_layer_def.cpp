#include "oa/oaDerivedLayerDef.h"

#include "base/src/session.h"
#include "oa/oaTechException.h"
#include "tech/src/derived_layer_defs.h"
#include "tech/src/open_techs.h"

namespace OpenAccess_4 {

using namespace impl;

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
    return static_cast<oaDerivedLayerDef*>(definitions().handle(slot));
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
    definitions().destroy(slotOf(this));
}

} // namespace OpenAccess_4
