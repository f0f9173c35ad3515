#include "oa/oaVia.h"

#include "base/src/source.h"
#include "design/src/names.h"
#include "design/src/open_designs.h"
#include "design/src/shape_edit.h"
#include "design/src/via_edit.h"
#include "oa/oaBlock.h"
#include "oa/oaDesignException.h"
#include "oa/oaNet.h"
#include "oa/oaViaHeader.h"
#include "tech/src/via_defs.h"

namespace OpenAccess_4 {

using namespace impl;

namespace {

Vias& viasOf(const oaObject* object) {
    return designDatabaseOf(object).vias;
}

oaString nameOfDef(const oaViaDef* def) {
    oaString name;
    def->getName(name);
    return name;
}

/// @throws oaDesignError  oacInvalidViaDef: vias of the block would follow another definition
void requireSeen(const DesignDatabase& database, const oaViaDef* def) {
    const oaString name = nameOfDef(def);
    const oaTech* tech = database.design()->getTech();
    if (!tech || oaViaDef::find(tech, name) != def) {
        const DesignNames& names = database.names();
        throw oaDesignError(oacInvalidViaDef, static_cast<const oaChar*>(name), names.lib.c_str(),
                            names.cell.c_str(), names.view.c_str());
    }
}

void requireDrawable(const oaStdViaDef* def, const oaViaParam& given) {
    oaViaParam defaults;
    def->getParams(defaults);
    ViaParams::requireDrawable(ViaParams::overlaid(defaults, given));
}

void requireParamsOf(const oaCustomViaDef* def, const oaParamArray& params) {
    const ViaMasterNames master = masterNamesOf(def);
    impl::requireParamsOf(findOpenDesign({master.lib, master.cell, master.view}), params);
}

void setSub(oaVia* via, std::uint32_t sub) {
    viasOf(via).setSub(slotOf(via), sub);
    designDatabaseOf(via).noteGarbage();
}

/// The name of the definition of a via. The text may move when others are added.
std::string defNameOf(const oaVia* via) {
    DesignDatabase& database = designDatabaseOf(via);
    return database.strings.chars(database.vias.headers[database.vias.headerOf(slotOf(via))].name);
}

} // namespace

namespace impl {

oaTransform viaTransform(const ViaRecord& via) {
    return oaTransform(via.x, via.y, oaOrientEnum(via.orient));
}

void placeVia(ViaRecord& via, const oaTransform& xform) {
    via.x = xform.xOffset();
    via.y = xform.yOffset();
    via.orient = std::uint8_t(oaOrientEnum(xform.orient()));
}

void moveVia(oaObject* via, const oaTransform& xform) {
    edited(via);
    ViaRecord& record = recordOf<ViaRecord>(via);
    placeVia(record, oaTransform(viaTransform(record), xform));
}

oaFig* copyVia(const oaObject* original, const oaTransform& xform, DesignDatabase& to) {
    const ViaRecord record = recordOf<ViaRecord>(original);
    const auto* via = static_cast<const oaVia*>(original);
    Vias& from = viasOf(via);
    const std::string name = defNameOf(via);
    const std::uint32_t sub = record.isCustom
                                  ? to.vias.customSub(name, from.customParamsOf(record.sub))
                                  : to.vias.stdSub(name, from.stdParamsOf(record.sub));
    return static_cast<oaFig*>(to.vias.add(sub, oaTransform(viaTransform(record), xform)));
}

} // namespace impl

oaViaDef* oaVia::getViaDef() const {
    return viasOf(this).definitionOf(viasOf(this).headerOf(slotOf(this)));
}

void oaVia::getViaDefName(oaString& name) const {
    name = defNameOf(this).c_str();
}

oaViaHeader* oaVia::getHeader() const {
    return static_cast<oaViaHeader*>(viasOf(this).subs.handle(recordOf<ViaRecord>(this).sub));
}

oaStdVia* oaStdVia::create(oaBlock* block, const oaStdViaDef* viaDef, const oaTransform& xform,
                           const oaViaParam* params) {
    DesignDatabase& database = designDatabaseOf(block);
    database.requireEditable();
    requireSeen(database, viaDef);
    const oaViaParam given = params ? *params : oaViaParam();
    requireDrawable(viaDef, given);
    database.edit();
    const std::uint32_t sub = database.vias.stdSub(std::string_view(nameOfDef(viaDef)), given);
    return static_cast<oaStdVia*>(database.vias.add(sub, xform));
}

oaStdViaHeader* oaStdVia::getHeader() const {
    return static_cast<oaStdViaHeader*>(oaVia::getHeader());
}

void oaStdVia::getViaParams(oaViaParam& params) const {
    getHeader()->getParams(params);
}

void oaStdVia::setViaParams(const oaViaParam& params) {
    DesignDatabase& database = designDatabaseOf(this);
    database.requireEditable();
    if (const oaViaDef* def = getViaDef())
        requireDrawable(static_cast<const oaStdViaDef*>(def), params);
    database.edit();
    setSub(this, database.vias.stdSub(defNameOf(this), params));
}

oaCustomVia* oaCustomVia::create(oaBlock* block, const oaCustomViaDef* viaDef,
                                 const oaTransform& xform, const oaParamArray* params) {
    DesignDatabase& database = designDatabaseOf(block);
    database.requireEditable();
    requireSeen(database, viaDef);
    const oaParamArray given = params ? *params : oaParamArray();
    requireParamsOf(viaDef, given);
    database.edit();
    const std::uint32_t sub = database.vias.customSub(std::string_view(nameOfDef(viaDef)), given);
    return static_cast<oaCustomVia*>(database.vias.add(sub, xform));
}

oaCustomViaHeader* oaCustomVia::getHeader() const {
    return static_cast<oaCustomViaHeader*>(oaVia::getHeader());
}

void oaCustomVia::getLibName(oaScalarName& libName) const {
    getHeader()->getLibName(libName);
}

void oaCustomVia::getLibName(const oaNameSpace& ns, oaString& libName) const {
    getHeader()->getLibName(ns, libName);
}

void oaCustomVia::getCellName(oaScalarName& cellName) const {
    getHeader()->getCellName(cellName);
}

void oaCustomVia::getCellName(const oaNameSpace& ns, oaString& cellName) const {
    getHeader()->getCellName(ns, cellName);
}

void oaCustomVia::getViewName(oaScalarName& viewName) const {
    getHeader()->getViewName(viewName);
}

void oaCustomVia::getViewName(const oaNameSpace& ns, oaString& viewName) const {
    getHeader()->getViewName(ns, viewName);
}

void oaCustomVia::getParams(oaParamArray& params) const {
    getHeader()->getParams(params);
}

void oaCustomVia::setParams(const oaParamArray& params) {
    DesignDatabase& database = designDatabaseOf(this);
    database.requireEditable();
    if (const oaViaDef* def = getViaDef())
        requireParamsOf(static_cast<const oaCustomViaDef*>(def), params);
    database.edit();
    setSub(this, database.vias.customSub(defNameOf(this), params));
}

oaCollection<oaVia, oaBlock> oaBlock::getVias() const {
    return collectionOf<oaCollection<oaVia, oaBlock>>(std::vector<TableBase*>{&viasOf(this).vias});
}

oaCollection<oaVia, oaNet> oaNet::getVias(oaUInt4 filterFlags) const {
    const Database& database = databaseOf(this);
    Connectivity& connectivity = designDatabaseOf(this).connectivity;
    std::vector<oaObject*> vias;
    const auto collect = [&](const std::vector<ObjectRef>& figs) {
        for (const ObjectRef& fig : figs)
            if (fig.table == kViaTable)
                vias.push_back(database.handle(fig));
    };
    if (filterFlags & oacViaIterNetOnly)
        collect(connectivity.netFigs.figsOf(slotOf(this)));
    if (filterFlags & oacViaIterNetPins)
        for (const std::uint32_t term : connectivity.netTerms.of(slotOf(this)))
            for (const std::uint32_t pin : connectivity.termPins.of(term))
                collect(connectivity.pinFigs.figsOf(pin));
    return collectionOf<oaCollection<oaVia, oaNet>>(std::move(vias));
}

} // namespace OpenAccess_4
