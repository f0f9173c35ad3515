#include "oa/oaViaDef.h"

#include "oa/oaName.h"
#include "oa/oaNameSpace.h"
#include "oa/oaPhysicalLayer.h"
#include "oa/oaTech.h"
#include "oa/oaTechException.h"
#include "tech/src/open_techs.h"
#include "tech/src/tech_conflicts.h"
#include "tech/src/tech_database.h"
#include "tech/src/tech_graph.h"
#include "tech/src/via_defs.h"

#include <algorithm>

namespace OpenAccess_4 {

using namespace impl;

namespace {

ViaDefRecord& defOf(const oaViaDef* def) {
    return recordOf<ViaDefRecord>(def);
}

/// The record of a definition, to be changed.
ViaDefRecord& editedDef(const oaViaDef* def) {
    databaseOf(def).edit();
    return defOf(def);
}

oaLayerNum numberIn(oaTech* tech, const oaPhysicalLayer* layer, const oaString& name) {
    const std::vector<oaTech*> seen = graphOf(tech);
    if (std::ranges::find(seen, layer->getTech()) == seen.end())
        throw oaTechError(oacInvalidViaDefLayer, static_cast<const oaChar*>(name),
                          "its technology does not see one of the layers");
    return layer->getNumber();
}

StringId intern(TechDatabase& tech, const oaScalarName& name) {
    oaString text;
    name.get(oaNativeNS(), text);
    return tech.strings.intern(std::string_view(text));
}

std::array<StringId, 3> masterOf(TechDatabase& tech, const oaScalarName& lib,
                                 const oaScalarName& cell, const oaScalarName& view) {
    return {intern(tech, lib), intern(tech, cell), intern(tech, view)};
}

void requireFreeName(oaTech* tech, const oaString& name) {
    const oaViaDef* other = oaViaDef::find(tech, name);
    if (other)
        throw oaTechError(oacViaDefNameExists, nameOf(techDatabaseOf(other)).c_str(),
                          static_cast<const oaChar*>(name));
}

/// A record of which all but what distinguishes the kinds is filled in. Nothing is changed yet.
ViaDefRecord newDef(oaTech* tech, const oaString& name, ViaDefKind kind,
                    const oaPhysicalLayer* layer1, const oaPhysicalLayer* layer2) {
    techDatabaseOf(tech).requireEditable();
    requireFreeName(tech, name);
    ViaDefRecord def;
    def.kind = kind;
    def.layers = {numberIn(tech, layer1, name), numberIn(tech, layer2, name)};
    return def;
}

oaObject* addDef(TechDatabase& tech, const oaString& name, ViaDefRecord def) {
    def.name = tech.strings.intern(std::string_view(name));
    oaObject* added = tech.viaDefs.handle(tech.viaDefs.add(def));
    reportConflictsOf(added);
    return added;
}

oaPhysicalLayer* physicalLayer(const oaViaDef* def, oaLayerNum number) {
    return oaPhysicalLayer::find(def->getTech(), number);
}

const char* masterPart(const oaCustomViaDef* def, std::size_t part) {
    return databaseOf(def).strings.chars(defOf(def).master[part]);
}

// A name may be empty: the interface allows it, and files may hold anything.

void getPart(const oaCustomViaDef* def, std::size_t part, oaScalarName& name) {
    const char* text = masterPart(def, part);
    name = *text ? oaScalarName(oaNativeNS(), text) : oaScalarName();
}

void getPart(const oaCustomViaDef* def, std::size_t part, const oaNameSpace& ns, oaString& out) {
    const char* text = masterPart(def, part);
    if (*text)
        oaScalarName(oaNativeNS(), text).get(ns, out);
    else
        out = "";
}

} // namespace

namespace impl {

oaObject* ViaDefRecord::construct(void* where) const {
    return kind == ViaDefKind::Standard ? Handles::construct<oaStdViaDef>(where)
                                        : Handles::construct<oaCustomViaDef>(where);
}

bool areViaDefsSound(TechDatabase& tech) {
    bool sound = tech.viaDefIndex.isSound();
    tech.viaDefs.forEach([&](std::uint32_t, const ViaDefRecord& def) {
        sound = sound && ViaParams::isSound(def.params, tech.strings);
    });
    return sound;
}

void renumberLayerOfViaDefs(TechDatabase& tech, oaLayerNum before, oaLayerNum after) {
    tech.viaDefs.forEach([&](std::uint32_t, ViaDefRecord& def) {
        for (auto* numbers : {&def.layers, &def.implants})
            std::ranges::replace(*numbers, before, after);
        if (def.params.given >> oacCutLayerViaParamType & 1 && def.params.cutLayer == before)
            def.params.cutLayer = after;
    });
}

ViaMasterNames masterNamesOf(const oaCustomViaDef* def) {
    return {masterPart(def, 0), masterPart(def, 1), masterPart(def, 2)};
}

} // namespace impl

oaViaDef* oaViaDef::find(const oaTech* tech, const oaString& name, oaBoolean local) {
    return firstInGraph(tech, local, [&](const oaTech* each) {
        TechDatabase& database = techDatabaseOf(each);
        const std::uint32_t slot = database.viaDefIndex.find(std::string_view(name));
        return slot == kNone ? nullptr : static_cast<oaViaDef*>(database.viaDefs.handle(slot));
    });
}

void oaViaDef::getName(oaString& name) const {
    name = databaseOf(this).strings.chars(defOf(this).name);
}

oaPhysicalLayer* oaViaDef::getLayer1() const {
    return physicalLayer(this, getLayer1Num());
}

oaPhysicalLayer* oaViaDef::getLayer2() const {
    return physicalLayer(this, getLayer2Num());
}

void oaViaDef::getLayers(oaPhysicalLayer*& layer1, oaPhysicalLayer*& layer2) const {
    layer1 = getLayer1();
    layer2 = getLayer2();
}

oaLayerNum oaViaDef::getLayer1Num() const {
    return defOf(this).layers[0];
}

oaLayerNum oaViaDef::getLayer2Num() const {
    return defOf(this).layers[1];
}

oaBoolean oaViaDef::hasLayer(oaLayerNum layerNum) const {
    const ViaDefRecord& def = defOf(this);
    if (std::ranges::find(def.layers, layerNum) != def.layers.end())
        return true;
    if (def.kind != ViaDefKind::Standard)
        return false;
    return def.params.cutLayer == layerNum ||
           (layerNum != kNone && std::ranges::find(def.implants, layerNum) != def.implants.end());
}

oaFloat oaViaDef::getResistancePerCut() const {
    return defOf(this).resistancePerCut;
}

void oaViaDef::setResistancePerCut(oaFloat resPerCut) {
    editedDef(this).resistancePerCut = resPerCut;
}

void oaViaDef::destroy() {
    TechDatabase& tech = techDatabaseOf(this);
    tech.edit();
    const std::uint32_t slot = slotOf(this);
    tech.forgetAttachments({kViaDefTable, slot});
    tech.viaDefIndex.remove(slot);
    tech.viaDefs.destroy(slot);
}

oaStdViaDef* oaStdViaDef::create(oaTech* tech, const oaString& name, oaPhysicalLayer* layer1,
                                 oaPhysicalLayer* layer2, const oaViaParam& params,
                                 oaPhysicalLayer* implant1, oaPhysicalLayer* implant2) {
    TechDatabase& database = techDatabaseOf(tech);
    ViaDefRecord def = newDef(tech, name, ViaDefKind::Standard, layer1, layer2);
    if (implant1)
        def.implants[0] = numberIn(tech, implant1, name);
    if (implant2)
        def.implants[1] = numberIn(tech, implant2, name);
    ViaParams::requireDrawable(params);
    database.edit();
    def.params = ViaParams::store(params, database.strings);
    return static_cast<oaStdViaDef*>(addDef(database, name, def));
}

void oaStdViaDef::getParams(oaViaParam& params) const {
    params = ViaParams::load(defOf(this).params, databaseOf(this).strings);
}

void oaStdViaDef::setParams(const oaViaParam& params) {
    TechDatabase& tech = techDatabaseOf(this);
    tech.requireEditable();
    ViaParams::requireDrawable(params);
    tech.edit();
    defOf(this).params = ViaParams::store(params, tech.strings);
    tech.noteGarbage();
}

oaBoolean oaStdViaDef::hasImplant1() const {
    return getImplant1Num() != oacNullIndex;
}

oaBoolean oaStdViaDef::hasImplant2() const {
    return getImplant2Num() != oacNullIndex;
}

oaPhysicalLayer* oaStdViaDef::getImplant1() const {
    return hasImplant1() ? physicalLayer(this, getImplant1Num()) : nullptr;
}

oaPhysicalLayer* oaStdViaDef::getImplant2() const {
    return hasImplant2() ? physicalLayer(this, getImplant2Num()) : nullptr;
}

oaLayerNum oaStdViaDef::getImplant1Num() const {
    return defOf(this).implants[0];
}

oaLayerNum oaStdViaDef::getImplant2Num() const {
    return defOf(this).implants[1];
}

oaCustomViaDef* oaCustomViaDef::create(oaTech* tech, const oaString& name,
                                       const oaScalarName& libName, const oaScalarName& cellName,
                                       const oaScalarName& viewName, oaPhysicalLayer* layer1,
                                       oaPhysicalLayer* layer2) {
    TechDatabase& database = techDatabaseOf(tech);
    ViaDefRecord def = newDef(tech, name, ViaDefKind::Custom, layer1, layer2);
    database.edit();
    def.master = masterOf(database, libName, cellName, viewName);
    return static_cast<oaCustomViaDef*>(addDef(database, name, def));
}

void oaCustomViaDef::getLibName(oaScalarName& libName) const {
    getPart(this, 0, libName);
}

void oaCustomViaDef::getLibName(const oaNameSpace& ns, oaString& libName) const {
    getPart(this, 0, ns, libName);
}

void oaCustomViaDef::getCellName(oaScalarName& cellName) const {
    getPart(this, 1, cellName);
}

void oaCustomViaDef::getCellName(const oaNameSpace& ns, oaString& cellName) const {
    getPart(this, 1, ns, cellName);
}

void oaCustomViaDef::getViewName(oaScalarName& viewName) const {
    getPart(this, 2, viewName);
}

void oaCustomViaDef::getViewName(const oaNameSpace& ns, oaString& viewName) const {
    getPart(this, 2, ns, viewName);
}

void oaCustomViaDef::setMaster(const oaScalarName& libName, const oaScalarName& cellName,
                               const oaScalarName& viewName) {
    TechDatabase& tech = techDatabaseOf(this);
    tech.edit();
    defOf(this).master = masterOf(tech, libName, cellName, viewName);
    tech.noteGarbage();
}

} // namespace OpenAccess_4
