#include "base/src/source.h"
#include "design/src/design_database.h"
#include "design/src/instance_edit.h"
#include "design/src/names.h"
#include "design/src/open_designs.h"
#include "design/src/submasters.h"
#include "oa/oaDesign.h"
#include "oa/oaDesignException.h"

namespace OpenAccess_4 {

using namespace impl;

namespace {

PcellMaster& pcellOf(const oaDesign* design) {
    return designDatabaseOf(design).pcell;
}

/// What a submaster follows from; null for other designs.
const SubmasterOrigin* originOf(const oaDesign* design) {
    return recordOf<OpenDesignRecord>(design).origin.get();
}

/// The pcell side of a design that is a super master.
PcellMaster& superMaster(const oaDesign* design) {
    PcellMaster& pcell = pcellOf(design);
    if (!pcell.isDefined()) {
        const DesignNames& names = designDatabaseOf(design).names();
        throw oaDesignError(oacInvalidSuperMaster, names.lib.c_str(), names.cell.c_str(),
                            names.view.c_str());
    }
    return pcell;
}

} // namespace

void oaDesign::defineSuperMaster(oaPcellDef* def, const oaParamArray& defaults) {
    requireNoSubmaster(this);
    requireNotEvaluated(this);
    try {
        pcellOf(this).define(def, defaults);
    } catch (...) {
        renewSubmasters(this);
        throw;
    }
    renewSubmasters(this);
    regroupInstancesOf(this);
}

void oaDesign::undefineSuperMaster() {
    designDatabaseOf(this).requireEditable();
    PcellMaster& pcell = superMaster(this);
    requireNotEvaluated(this);
    pcell.undefine();
    renewSubmasters(this);
    regroupInstancesOf(this);
}

oaBoolean oaDesign::isSuperMaster() const {
    return pcellOf(this).isDefined();
}

oaBoolean oaDesign::isSubMaster() const {
    return originOf(this) != nullptr;
}

oaDesign* oaDesign::open(const oaScalarName& libName, const oaScalarName& cellName,
                         const oaScalarName& viewName, const oaParamArray& params) {
    return openSubmaster(designNames(libName, cellName, viewName), params);
}

oaDesign* oaDesign::getSuperMaster() const {
    if (const SubmasterOrigin* origin = originOf(this))
        return origin->superMaster;
    const DesignNames& names = designDatabaseOf(this).names();
    throw oaDesignError(oacInvalidSubMaster, names.lib.c_str(), names.cell.c_str(),
                        names.view.c_str());
}

oaCollection<oaDesign, oaDesign> oaDesign::getSubMasters() const {
    const std::vector<oaDesign*> made = recordOf<OpenDesignRecord>(this).submasters.all();
    return collectionOf<oaCollection<oaDesign, oaDesign>>(
        std::vector<oaObject*>(made.begin(), made.end()));
}

void oaDesign::evalSuperMaster() {
    evaluateSuperMaster(this);
}

oaPcellDef* oaDesign::getPcellDef() const {
    return superMaster(this).definition();
}

void oaDesign::getPcellEvaluatorName(oaString& name) const {
    name = superMaster(this).evaluatorName();
}

void oaDesign::getParams(oaParamArray& params, oaBoolean includeDefaults) const {
    params.setNumElements(0);
    if (const SubmasterOrigin* origin = originOf(this))
        params = includeDefaults ? origin->params : origin->given;
    else if (includeDefaults)
        pcellOf(this).getParams(params);
}

oaBoolean oaDesign::findParam(const oaString& name, oaParam& param) const {
    if (const SubmasterOrigin* origin = originOf(this))
        return origin->params.find(name, param);
    return pcellOf(this).findParam(name, param);
}

} // namespace OpenAccess_4
