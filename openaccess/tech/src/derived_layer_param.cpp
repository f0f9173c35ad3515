#include "oa/oaDerivedLayerParam.h"

#include "oa/oaDerivedLayer.h"
#include "oa/oaDerivedLayerDef.h"
#include "oa/oaDerivedLayerParamDef.h"
#include "oa/oaTechException.h"
#include "oa/oaValue.h"
#include "tech/src/derived_layer_defs.h"
#include "tech/src/derived_layer_keys.h"
#include "tech/src/tech_conflicts.h"
#include "tech/src/tech_database.h"

#include <algorithm>

namespace OpenAccess_4 {

using namespace impl;

namespace {

LayerParamRecord& recordOf(const oaDerivedLayerParam* param) {
    return impl::recordOf<LayerParamRecord>(param);
}

std::string nameIn(const oaDerivedLayerParamDef* def) {
    return impl::recordOf<DerivedLayerParamDefRecord>(def).name;
}

[[noreturn]] void refuse(const oaDerivedLayerParamDef* def, const oaChar* reason) {
    throw oaTechError(oacInvalidDerivedLayerParam, nameIn(def).c_str(), reason);
}

void requireValue(const oaDerivedLayerParamDef* def, const oaValue* value) {
    if (value->getType() != def->getValueType())
        refuse(def, "made: the value is of another type");
    if (value->isOwned())
        refuse(def, "made: the value belongs to another one");
}

std::uint32_t storedDef(TechDatabase& tech, const oaDerivedLayerParamDef* def) {
    const std::string name = nameIn(def);
    const auto type = std::uint32_t(def->getValueType());
    std::uint32_t found = kNone;
    tech.layerParamDefs.forEach([&](std::uint32_t slot, const StoredLayerParamDefRecord& stored) {
        if (stored.valueType == type && tech.strings.text(stored.name) == name)
            found = slot;
    });
    return found != kNone ? found : tech.layerParamDefs.add({tech.strings.intern(name), type});
}

/// What a parameter is, as a part of the key of its layer.
std::string keyOf(TechDatabase& tech, const LayerParamRecord& param) {
    const ValueRecord& value = tech.values[param.value];
    std::string key(tech.strings.text(tech.layerParamDefs[param.def].name));
    key.append(1, '\0').append(std::to_string(std::uint32_t(value.kind)) + ' ');
    return key.append(std::to_string(value.bits) + ' ').append(tech.strings.text(value.text));
}

/// The parameters may be in any order.
std::string derivation(std::string_view def, const std::vector<oaLayerNum>& sources,
                       std::vector<std::string> params) {
    std::ranges::sort(params);
    std::string key(def);
    for (const oaLayerNum source : sources)
        key.append(1, '\0').append(std::to_string(source));
    for (const std::string& param : params)
        key.append(1, '\n').append(param);
    return key;
}

} // namespace

namespace impl {

std::string derivationKey(TechDatabase& tech, std::uint32_t layer) {
    const LayerRecord& record = tech.layers[layer];
    const std::vector<oaLayerNum> sources(record.sourceNumbers.begin(),
                                          record.sourceNumbers.begin() + record.sources);
    std::vector<std::string> params;
    tech.layerParams.forEach([&](std::uint32_t, const LayerParamRecord& param) {
        if (param.layer == layer)
            params.push_back(keyOf(tech, param));
    });
    if (record.what == oacUserDefinedLayerOp)
        return derivation(tech.strings.text(record.def), sources, std::move(params));
    const oaLayerOp operation = oaLayerOpEnum(record.what);
    return derivation(static_cast<const oaChar*>(operation.getName()), sources, std::move(params));
}

std::string derivationKey(const oaDerivedLayerDef* def, const std::vector<oaLayerNum>& sources,
                          const oaDerivedLayerParamArray* params) {
    std::vector<std::string> keys;
    for (oaUInt4 i = 0; params && i < params->getNumElements(); ++i)
        keys.push_back(
            keyOf(techDatabaseOf((*params)[i]), impl::recordOf<LayerParamRecord>((*params)[i])));
    return derivation(impl::recordOf<DerivedLayerDefRecord>(def).name, sources, std::move(keys));
}

void requireNoneTwice(const oaDerivedLayerParamArray& params) {
    for (oaUInt4 i = 0; i < params.getNumElements(); ++i)
        if (params.findParam(params[i]->getDef()) != params[i] || params.find(params[i]) != i)
            refuse(params[i]->getDef(), "on one layer twice");
}

} // namespace impl

oaDerivedLayerParam* oaDerivedLayerParam::create(const oaDerivedLayerParamDef* def,
                                                 oaValue* value) {
    requireValue(def, value);
    TechDatabase& tech = techDatabaseOf(value);
    tech.edit();
    const std::uint32_t slot = tech.layerParams.add({storedDef(tech, def), slotOf(value), kNone});
    return static_cast<oaDerivedLayerParam*>(tech.layerParams.handle(slot));
}

oaDerivedLayerParamDef* oaDerivedLayerParam::getDef() const {
    const TechDatabase& tech = techDatabaseOf(this);
    const StoredLayerParamDefRecord& stored = tech.layerParamDefs[recordOf(this).def];
    const oaString name = tech.strings.chars(stored.name);
    oaDerivedLayerParamDef* def = oaDerivedLayerParamDef::find(name);
    return def ? def : oaDerivedLayerParamDef::create(name, oaTypeEnum(stored.valueType));
}

oaValue* oaDerivedLayerParam::getValue() const {
    return static_cast<oaValue*>(techDatabaseOf(this).values.handle(recordOf(this).value));
}

void oaDerivedLayerParam::setValue(oaValue* value) {
    if (value == getValue())
        return;
    requireValue(getDef(), value);
    TechDatabase& tech = techDatabaseOf(this);
    if (&techDatabaseOf(value) != &tech)
        refuse(getDef(), "given a value of another technology");
    tech.edit();
    const std::uint32_t before = recordOf(this).value;
    recordOf(this).value = slotOf(value);
    tech.forgetAttachments({kValueTable, before});
    tech.values.destroy(before);
}

oaBoolean oaDerivedLayerParam::isOwned() const {
    return recordOf(this).layer != kNone;
}

oaDerivedLayerParam* oaDerivedLayerParam::copy() const {
    return copyTo(getDatabase());
}

oaDerivedLayerParam* oaDerivedLayerParam::copyTo(oaObject* database) const {
    return create(getDef(), getValue()->copyTo(database));
}

void oaDerivedLayerParam::destroy() {
    TechDatabase& tech = techDatabaseOf(this);
    tech.edit();
    tech.destroyParam(slotOf(this));
}

void oaDerivedLayer::getParams(oaDerivedLayerParamArray& params) const {
    params.setNumElements(0);
    TechDatabase& tech = techDatabaseOf(this);
    tech.layerParams.forEach([&](std::uint32_t slot, const LayerParamRecord& param) {
        if (param.layer == slotOf(this))
            params.append(static_cast<oaDerivedLayerParam*>(tech.layerParams.handle(slot)));
    });
}

void oaDerivedLayer::setParams(const oaDerivedLayerParamArray& params) {
    requireNoneTwice(params);
    TechDatabase& tech = techDatabaseOf(this);
    tech.edit();
    oaDerivedLayerParamArray wanted;
    for (oaUInt4 i = 0; i < params.getNumElements(); ++i) {
        const bool free = params[i]->getTech() == getTech() && !params[i]->isOwned();
        wanted.append(free ? params[i] : params[i]->copyTo(getTech()));
    }
    tech.destroyParamsOf(slotOf(this)); // after the copies: one of its own may be among them
    for (oaUInt4 i = 0; i < wanted.getNumElements(); ++i)
        recordOf(wanted[i]).layer = slotOf(this);
    reportConflictsOf(this);
}

oaBoolean oaDerivedLayer::hasParams() const {
    oaDerivedLayerParamArray params;
    getParams(params);
    return params.getNumElements() != 0;
}

} // namespace OpenAccess_4
