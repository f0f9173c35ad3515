#include "design/src/design_database.h"
#include "oa/oaDesign.h"
#include "oa/oaDesignException.h"

namespace OpenAccess_4 {

using namespace impl;

namespace {

PcellMaster& pcellOf(const oaDesign* design) {
    return designDatabaseOf(design).pcell;
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
    pcellOf(this).define(def, defaults);
}

void oaDesign::undefineSuperMaster() {
    designDatabaseOf(this).requireEditable();
    superMaster(this).undefine();
}

oaBoolean oaDesign::isSuperMaster() const {
    return pcellOf(this).isDefined();
}

oaBoolean oaDesign::isSubMaster() const {
    designDatabaseOf(this);
    return false;
}

oaPcellDef* oaDesign::getPcellDef() const {
    return superMaster(this).definition();
}

void oaDesign::getPcellEvaluatorName(oaString& name) const {
    name = superMaster(this).evaluatorName();
}

void oaDesign::getParams(oaParamArray& params, oaBoolean includeDefaults) const {
    params.setNumElements(0);
    if (includeDefaults)
        pcellOf(this).getParams(params);
}

oaBoolean oaDesign::findParam(const oaString& name, oaParam& param) const {
    return pcellOf(this).findParam(name, param);
}

} // namespace OpenAccess_4
