#include "oa/oaDesign.h"

#include "base/src/source.h"
#include "design/src/design_database.h"
#include "design/src/instance_edit.h"
#include "design/src/names.h"
#include "design/src/open_designs.h"
#include "design/src/shape_edit.h"
#include "oa/oaBlock.h"
#include "oa/oaDesignObserver.h"
#include "tech/src/open_techs.h"

namespace OpenAccess_4 {

using namespace impl;

oaDesign* oaDesign::open(const oaScalarName& libName, const oaScalarName& cellName,
                         const oaScalarName& viewName, const oaViewType* viewType, oaChar mode) {
    return openDesign(designNames(libName, cellName, viewName), viewType, mode);
}

oaDesign* oaDesign::open(const oaScalarName& libName, const oaScalarName& cellName,
                         const oaScalarName& viewName, oaChar mode) {
    return openDesign(designNames(libName, cellName, viewName), nullptr, mode);
}

oaDesign* oaDesign::find(const oaScalarName& libName, const oaScalarName& cellName,
                         const oaScalarName& viewName) {
    return findOpenDesign(designNames(libName, cellName, viewName));
}

oaBoolean oaDesign::exists(const oaScalarName& libName, const oaScalarName& cellName,
                           const oaScalarName& viewName) {
    return designExists(designNames(libName, cellName, viewName));
}

void oaDesign::destroy(const oaScalarName& libName, const oaScalarName& cellName,
                       const oaScalarName& viewName) {
    destroyDesign(designNames(libName, cellName, viewName));
}

oaCollection<oaDesign, oaDesign> oaDesign::getOpenDesigns() {
    return collectionOf<oaCollection<oaDesign, oaDesign>>(std::vector<TableBase*>{&openDesigns()});
}

void oaDesign::save() {
    saveDesign(this);
}

void oaDesign::saveAs(const oaScalarName& libName, const oaScalarName& cellName,
                      const oaScalarName& viewName) {
    saveDesignAs(this, designNames(libName, cellName, viewName));
}

void oaDesign::close() {
    closeDesign(this);
}

void oaDesign::purge() {
    purgeDesign(this);
}

void oaDesign::reopen(oaChar mode) {
    reopenDesign(this, mode);
}

void oaDesign::revert() {
    revertDesign(this);
}

void oaDesign::openHier(oaUInt4 numLevels) {
    openMastersOf(this, numLevels);
}

oaChar oaDesign::getMode() const {
    return recordFor(this).mode;
}

oaUInt4 oaDesign::getRefCount() const {
    return refCountOf(this);
}

oaBoolean oaDesign::isModified() const {
    return databaseOf(this).isModified();
}

oaLib* oaDesign::getLib() const {
    return recordFor(this).lib;
}

void oaDesign::getLibName(oaScalarName& libName) const {
    libName = scalarName(recordFor(this).names.lib.c_str());
}

void oaDesign::getLibName(const oaNameSpace& ns, oaString& libName) const {
    spell(recordFor(this).names.lib.c_str(), ns, libName);
}

void oaDesign::getCellName(oaScalarName& cellName) const {
    cellName = scalarName(recordFor(this).names.cell.c_str());
}

void oaDesign::getCellName(const oaNameSpace& ns, oaString& cellName) const {
    spell(recordFor(this).names.cell.c_str(), ns, cellName);
}

void oaDesign::getViewName(oaScalarName& viewName) const {
    viewName = scalarName(recordFor(this).names.view.c_str());
}

void oaDesign::getViewName(const oaNameSpace& ns, oaString& viewName) const {
    spell(recordFor(this).names.view.c_str(), ns, viewName);
}

oaViewType* oaDesign::getViewType() const {
    return const_cast<oaViewType*>(recordFor(this).viewType); // view types do not change
}

oaCellType oaDesign::getCellType() const {
    return oaCellTypeEnum(designDatabaseOf(this).info().cellType);
}

void oaDesign::setCellType(oaCellType cellType) {
    DesignDatabase& database = designDatabaseOf(this);
    database.requireEditable();
    oaVersionedObserver<oaDesign>::notifyPreModifyObservers(this, oacSetCellTypeDesignModType);
    database.edit();
    database.info().cellType = cellType;
    oaVersionedObserver<oaDesign>::notifyPostModifyObservers(this, oacSetCellTypeDesignModType);
}

oaTech* oaDesign::getTech() const {
    OpenDesignRecord& record = recordFor(this);
    const oaLib* owner = techLibOf(record.lib);
    if (!owner)
        return nullptr;
    if (oaTech* tech = findOpenTech(owner))
        return tech;
    return record.tech = openTech(owner, 'r');
}

oaBlock* oaDesign::getTopBlock() const {
    return designDatabaseOf(this).block();
}

oaTime oaDesign::getCreateTime() const {
    return designDatabaseOf(this).info().createTime;
}

oaTime oaDesign::getReadInTime() const {
    return recordFor(this).readInTime;
}

oaTime oaDesign::getLastSavedTime() const {
    return recordFor(this).lastSavedTime;
}

} // namespace OpenAccess_4
