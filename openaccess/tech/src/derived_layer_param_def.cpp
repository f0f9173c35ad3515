#include "base/src/session.h"
#include "base/src/source.h"
#include "oa/oaDerivedLayerDefObserver.h"
#include "oa/oaDerivedLayerParamDefObserver.h"
#include "oa/oaTech.h"
#include "oa/oaTechException.h"
#include "tech/src/derived_layer_defs.h"
#include "tech/src/open_techs.h"
#include "tech/src/tech_database.h"

#include <algorithm>
#include <array>
#include <vector>

namespace OpenAccess_4 {

using namespace impl;
using Observer = oaVersionedObserver<oaDerivedLayerParamDef, 0>;

namespace {

/// The types of the values of the built-in definitions, by oaDerivedLayerParamTypeEnum.
constexpr std::array builtInTypes = {oacIntValueType,      oacBooleanValueType,
                                     oacIntRangeValueType, oacUInt8RangeValueType,
                                     oacBooleanValueType,  oacIntValueType};

Table<DerivedLayerParamDefRecord>& makeDefs() {
    auto& defs =
        Session::instance().addTable<DerivedLayerParamDefRecord>(kDerivedLayerParamDefTable);
    for (std::size_t type = 0; type < builtInTypes.size(); ++type) {
        const oaDerivedLayerParamType name = oaDerivedLayerParamTypeEnum(type);
        defs.add({static_cast<const oaChar*>(name.getName()), builtInTypes[type], true});
    }
    return defs;
}

Table<DerivedLayerParamDefRecord>& definitions() {
    static Table<DerivedLayerParamDefRecord>& defs = makeDefs();
    return defs;
}

const DerivedLayerParamDefRecord& recordOf(const oaDerivedLayerParamDef* def) {
    return impl::recordOf<DerivedLayerParamDefRecord>(def);
}

bool isValueType(oaTypeEnum type) {
    return (type >= oacBooleanValueType && type <= oacViaDef2DTblValueType) ||
           (type >= oacUInt8ValueType && type <= oacUInt8RangeValueType) ||
           type == oacStringValueType;
}

/// The names of user-defined derived layer definitions that a technology uses with another number
/// of layers than the session's have.
std::vector<std::string> layerDefConflicts(TechDatabase& tech) {
    std::vector<std::string> names;
    tech.layers.forEach([&](std::uint32_t, const LayerRecord& layer) {
        if (layer.kind != LayerKind::Derived || layer.what != oacUserDefinedLayerOp)
            return;
        const std::string name(tech.strings.text(layer.def));
        const oaDerivedLayerDef* known = oaDerivedLayerDef::find(name.c_str());
        if (known && known->getNumLayers() != layer.sources &&
            std::ranges::find(names, name) == names.end())
            names.push_back(name);
    });
    return names;
}

} // namespace

void impl::reportDerivedLayerConflicts(TechDatabase& tech) {
    for (const std::string& name : layerDefConflicts(tech))
        oaVersionedObserver<oaDerivedLayerDef, 0>::notifyOnConflictObservers(name.c_str());
    std::vector<DerivedLayerParamDefRecord> conflicts;
    tech.layerParamDefs.forEach([&](std::uint32_t, const StoredLayerParamDefRecord& stored) {
        const oaString name = tech.strings.chars(stored.name);
        const oaDerivedLayerParamDef* known = oaDerivedLayerParamDef::find(name);
        if (known && std::uint32_t(known->getValueType()) != stored.valueType)
            conflicts.push_back(
                {static_cast<const oaChar*>(name), oaTypeEnum(stored.valueType), false});
    });
    for (const DerivedLayerParamDefRecord& conflict : conflicts)
        Observer::notifyOnConflictObservers(conflict.name.c_str(), conflict.valueType);
}

oaDerivedLayerParamDef* oaDerivedLayerParamDef::create(const oaString& name, oaType valueType) {
    const oaChar* text = name;
    if (find(name))
        throw oaTechError(oacDerivedLayerParamDefExists, text);
    if (!isValueType(valueType))
        throw oaTechError(oacInvalidDerivedLayerParam, text, "defined: its type is none of values");
    auto* def = static_cast<oaDerivedLayerParamDef*>(
        definitions().handle(definitions().add({text, valueType, false})));
    Observer::notifyPostCreateObservers(def);
    return def;
}

oaDerivedLayerParamDef* oaDerivedLayerParamDef::find(const oaString& name) {
    oaObject* found = nullptr;
    definitions().forEach([&](std::uint32_t slot, const DerivedLayerParamDefRecord& def) {
        if (name == def.name.c_str())
            found = definitions().handle(slot);
    });
    return static_cast<oaDerivedLayerParamDef*>(found);
}

oaDerivedLayerParamDef* oaDerivedLayerParamDef::get(oaDerivedLayerParamType type) {
    type.getName(); // refuses what is no type
    return static_cast<oaDerivedLayerParamDef*>(definitions().handle(type));
}

void oaDerivedLayerParamDef::getName(oaString& name) const {
    name = recordOf(this).name.c_str();
}

oaType oaDerivedLayerParamDef::getValueType() const {
    return recordOf(this).valueType;
}

oaBoolean oaDerivedLayerParamDef::isBuiltIn() const {
    return recordOf(this).builtIn;
}

void oaDerivedLayerParamDef::destroy() {
    if (isBuiltIn())
        throw oaTechError(oacDerivedLayerParamDefIsBuiltIn, recordOf(this).name.c_str());
    Observer::notifyPreDestroyObservers(this);
    definitions().destroy(slotOf(this));
}

void oaDerivedLayerParamDef::remove(oaTech* tech) {
    TechDatabase& database = techDatabaseOf(tech);
    database.edit();
    database.layerParams.forEach([&](std::uint32_t slot, const LayerParamRecord& param) {
        if (database.strings.text(database.layerParamDefs[param.def].name) == recordOf(this).name)
            database.destroyParam(slot);
    });
}

oaCollection<oaDerivedLayerParamDef, oaSession> oaSession::getDerivedLayerParamDefs() const {
    return collectionOf<oaCollection<oaDerivedLayerParamDef, oaSession>>({&definitions()});
}

} // namespace OpenAccess_4
