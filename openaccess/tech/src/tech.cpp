#include "oa/oaTech.h"

#include "base/src/source.h"
#include "dm/src/library_access.h"
#include "oa/oaGroup.h"
#include "oa/oaLib.h"
#include "oa/oaName.h"
#include "oa/oaTechException.h"
#include "oa/oaTechObserver.h"
#include "tech/src/open_techs.h"
#include "tech/src/tech_conflicts.h"
#include "tech/src/tech_database.h"
#include "tech/src/tech_graph.h"

namespace OpenAccess_4 {

using namespace impl;
using Observer = oaVersionedObserver<oaTech, 2>;

namespace {

TechRecord& recordOf(const oaTech* tech) {
    return impl::recordOf<TechRecord>(tech);
}

SettingsRecord& settingsOf(const oaTech* tech) {
    return techDatabaseOf(tech).settings();
}

/// The technology whose setting counts for `tech`; null when none has one.
template <class IsSet>
const oaTech* techWith(const oaTech* tech, oaBoolean local, IsSet isSet) {
    return firstInGraph(tech, local,
                        [&](const oaTech* each) { return isSet(each) ? each : nullptr; });
}

/// Changes a setting and tells the observers before and after, and of conflicts that come of it.
template <class Change>
void changeSetting(oaTech* tech, oaTechModTypeEnum modType, TechSetting setting, Change change) {
    TechDatabase& database = techDatabaseOf(tech);
    database.requireEditable();
    Observer::notifyPreModifyObservers(tech, modType);
    change(database);
    Observer::notifyPostModifyObservers(tech, modType);
    reportConflictsOf(tech, setting);
}

/// The objects of a table, here or in all technologies that are seen from here.
template <class Collection, class TableOf>
Collection collect(const oaTech* tech, bool local, std::vector<TableBase*> tables,
                   TableOf tableOf) {
    if (local || !hasRefs(tech)) {
        tables.push_back(&tableOf(techDatabaseOf(tech)));
    } else {
        for (const oaTech* each : graphOf(tech))
            tables.push_back(&tableOf(techDatabaseOf(each)));
    }
    return collectionOf<Collection>(std::move(tables));
}

/// The open library that has the technology of `lib`, over attachments; null when there is none.
oaTech* findTech(const oaLib* lib) {
    const oaLib* owner = techLibOf(lib);
    return owner ? findOpenTech(owner) : nullptr;
}

} // namespace

oaTech* oaTech::create(const oaScalarName& libName) {
    return createTech(openLibrary(libName));
}

oaTech* oaTech::create(oaLib* lib) {
    return createTech(lib);
}

oaTech* oaTech::open(const oaScalarName& libName, oaChar mode) {
    return openTech(openLibrary(libName), mode);
}

oaTech* oaTech::open(const oaLib* lib, oaChar mode) {
    return openTech(lib, mode);
}

oaTech* oaTech::find(const oaScalarName& libName) {
    return findTech(openLibrary(libName));
}

oaTech* oaTech::find(const oaLib* lib) {
    return findTech(lib);
}

oaBoolean oaTech::exists(const oaScalarName& libName, oaBoolean inherited) {
    return exists(openLibrary(libName), inherited);
}

oaBoolean oaTech::exists(const oaLib* lib, oaBoolean inherited) {
    return inherited ? techLibOf(lib) != nullptr : hasOwnTech(lib);
}

void oaTech::destroy(const oaScalarName& libName) {
    destroyTech(openLibrary(libName));
}

void oaTech::destroy(oaLib* lib) {
    destroyTech(lib);
}

oaCollection<oaTech, oaTech> oaTech::getOpenTechs() {
    return collectionOf<oaCollection<oaTech, oaTech>>({&openTechs()});
}

void oaTech::attach(oaLib* lib, const oaScalarName& attachLibName) {
    attachTech(lib, attachLibName);
}

void oaTech::detach(oaLib* lib) {
    detachTech(lib);
}

oaBoolean oaTech::hasAttachment(const oaLib* lib) {
    return !attachmentOf(lib).empty();
}

void oaTech::getAttachment(const oaLib* lib, oaScalarName& attachLibName) {
    const std::string name = attachmentOf(lib);
    if (name.empty())
        throw oaTechError(oacTechNotAttached, nameOf(lib).c_str());
    attachLibName.init(oaNativeNS(), name.c_str());
}

void oaTech::save() {
    saveTech(this);
}

void oaTech::saveAs(const oaScalarName& libName) {
    saveTechAs(this, openLibrary(libName));
}

void oaTech::close() {
    if (--recordOf(this).refCount == 0)
        purge();
}

void oaTech::purge() {
    purgeTech(this);
}

void oaTech::reopen(oaChar mode) {
    reopenTech(this, mode);
}

void oaTech::revert() {
    revertTech(this);
}

oaChar oaTech::getMode() const {
    return recordOf(this).mode;
}

oaUInt4 oaTech::getRefCount() const {
    return recordOf(this).refCount;
}

oaBoolean oaTech::isModified() const {
    return techDatabaseOf(this).isModified();
}

oaLib* oaTech::getLib() const {
    return recordOf(this).lib;
}

void oaTech::getLibName(oaScalarName& libName) const {
    getLib()->getName(libName);
}

void oaTech::getLibName(const oaNameSpace& ns, oaString& libName) const {
    getLib()->getName(ns, libName);
}

oaDist oaTech::getDefaultManufacturingGrid(oaBoolean local) const {
    const oaTech* tech = techWith(
        this, local, [](const oaTech* each) { return each->isDefaultManufacturingGridSet(); });
    return tech ? settingsOf(tech).grid : getDefaultDefaultManufacturingGrid();
}

void oaTech::setDefaultManufacturingGrid(oaDist grid) {
    changeSetting(this, oacSetDefaultManufacturingGridTechModType, TechSetting::ManufacturingGrid,
                  [&](TechDatabase& tech) { tech.editSettings().grid = grid; });
}

void oaTech::unsetDefaultManufacturingGrid() {
    changeSetting(this, oacUnsetDefaultManufacturingGridTechModType, TechSetting::ManufacturingGrid,
                  [](TechDatabase& tech) { tech.editSettings().grid = kNone; });
}

oaBoolean oaTech::isDefaultManufacturingGridSet() const {
    return settingsOf(this).grid != kNone;
}

oaDist oaTech::getDefaultDefaultManufacturingGrid() {
    return 0;
}

oaClearanceMeasure oaTech::getClearanceMeasure(oaBoolean local) const {
    const oaTech* tech =
        techWith(this, local, [](const oaTech* each) { return each->isClearanceMeasureSet(); });
    return tech ? oaClearanceMeasure(
                      oaClearanceMeasureEnum(techDatabaseOf(tech).moreSettings().clearanceMeasure))
                : getDefaultClearanceMeasure();
}

void oaTech::setClearanceMeasure(oaClearanceMeasure measure) {
    measure.getName(); // refuses what is no measure
    changeSetting(this, oacSetClearanceMeasureTechModType, TechSetting::ClearanceMeasure,
                  [&](TechDatabase& tech) { tech.editMoreSettings().clearanceMeasure = measure; });
}

void oaTech::unsetClearanceMeasure() {
    changeSetting(this, oacUnsetClearanceMeasureTechModType, TechSetting::ClearanceMeasure,
                  [](TechDatabase& tech) { tech.editMoreSettings().clearanceMeasure = kNone; });
}

oaBoolean oaTech::isClearanceMeasureSet() const {
    return techDatabaseOf(this).moreSettings().clearanceMeasure != kNone;
}

oaClearanceMeasure oaTech::getDefaultClearanceMeasure() {
    return oacEuclidianClearanceMeasure;
}

oaBoolean oaTech::isGateGrounded(oaBoolean local) const {
    const oaTech* tech =
        techWith(this, local, [](const oaTech* each) { return each->isGateGroundedSet(); });
    return tech ? techDatabaseOf(tech).moreSettings().gateGrounded != 0
                : getDefaultIsGateGrounded();
}

void oaTech::setGateGrounded(oaBoolean gateGrounded) {
    changeSetting(
        this, oacSetGateGroundedTechModType, TechSetting::GateGrounded,
        [&](TechDatabase& tech) { tech.editMoreSettings().gateGrounded = gateGrounded != 0; });
}

void oaTech::unsetGateGrounded() {
    changeSetting(this, oacUnsetGateGroundedTechModType, TechSetting::GateGrounded,
                  [](TechDatabase& tech) { tech.editMoreSettings().gateGrounded = kNone; });
}

oaBoolean oaTech::isGateGroundedSet() const {
    return techDatabaseOf(this).moreSettings().gateGrounded != kNone;
}

oaBoolean oaTech::getDefaultIsGateGrounded() {
    return false;
}

void oaTech::getProcessFamily(oaString& family, oaBoolean local) const {
    const oaTech* tech =
        techWith(this, local, [](const oaTech* each) { return each->hasProcessFamily(true); });
    family = tech ? techDatabaseOf(tech).strings.chars(settingsOf(tech).processFamily) : "";
}

void oaTech::setProcessFamily(const oaString& family) {
    TechDatabase& tech = techDatabaseOf(this);
    tech.editSettings().processFamily = tech.strings.intern(std::string_view(family));
    tech.noteGarbage();
    reportConflictsOf(this, TechSetting::ProcessFamily);
}

void oaTech::unsetProcessFamily() {
    setProcessFamily("");
}

oaBoolean oaTech::hasProcessFamily(oaBoolean local) const {
    return techWith(this, local, [](const oaTech* each) {
               return settingsOf(each).processFamily != 0;
           }) != nullptr;
}

oaCollection<oaLayer, oaTech> oaTech::getLayers(oaUInt4 filterFlags) const {
    return collect<oaCollection<oaLayer, oaTech>>(
        this, filterFlags == oacLayerIterLocal, {},
        [](TechDatabase& tech) -> TableBase& { return tech.layers; });
}

oaCollection<oaPurpose, oaTech> oaTech::getPurposes(oaUInt4 filterFlags) const {
    return collect<oaCollection<oaPurpose, oaTech>>(
        this, filterFlags == oacPurposeIterLocal, {&techDatabaseOf(this).reservedPurposes},
        [](TechDatabase& tech) -> TableBase& { return tech.purposes; });
}

oaCollection<oaValue, oaTech> oaTech::getValues(oaUInt4 filterFlags) const {
    return collect<oaCollection<oaValue, oaTech>>(
        this, filterFlags == oacTechValueIterLocal, {},
        [](TechDatabase& tech) -> TableBase& { return tech.values; });
}

oaCollection<oaViaDef, oaTech> oaTech::getViaDefs(oaUInt4 filterFlags) const {
    return collect<oaCollection<oaViaDef, oaTech>>(
        this, filterFlags == oacViaDefIterLocal, {},
        [](TechDatabase& tech) -> TableBase& { return tech.viaDefs; });
}

oaCollection<oaSiteDef, oaTech> oaTech::getSiteDefs(oaUInt4 filterFlags) const {
    return collect<oaCollection<oaSiteDef, oaTech>>(
        this, filterFlags == oacSiteDefIterLocal, {},
        [](TechDatabase& tech) -> TableBase& { return tech.siteDefs; });
}

oaCollection<oaGroup, oaTech> oaTech::getGroups() const {
    return collectionOf<oaCollection<oaGroup, oaTech>>({&techDatabaseOf(this).groups.groups()});
}

oaCollection<oaGroup, oaTech> oaTech::getGroupsByName(const oaString& name) const {
    return collectionOf<oaCollection<oaGroup, oaTech>>(
        techDatabaseOf(this).groups.named(std::string_view(name)));
}

oaBoolean oaTech::hasDefaultConstraintGroup() const {
    slotOf(this); // an object that is gone answers nothing
    return false;
}

oaTech* oaTechObject::getTech() const {
    return static_cast<oaTech*>(getDatabase());
}

oaBoolean oaTechObject::isLayer() const {
    const oaTypeEnum type = getType();
    return type >= oacPhysicalLayerType && type <= oacSizedLayerType;
}

oaBoolean oaTechObject::isSiteDef() const {
    const oaTypeEnum type = getType();
    return type == oacScalarSiteDefType || type == oacArraySiteDefType;
}

oaBoolean oaTechObject::isViaDef() const {
    const oaTypeEnum type = getType();
    return type == oacStdViaDefType || type == oacCustomViaDefType;
}

} // namespace OpenAccess_4
