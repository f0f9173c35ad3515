#include "oa/oaTech.h"

#include "base/src/source.h"
#include "dm/src/library_access.h"
#include "oa/oaLib.h"
#include "tech/src/open_techs.h"
#include "tech/src/tech_database.h"

namespace OpenAccess_4 {

using namespace impl;

namespace {

TechRecord& recordOf(const oaTech* tech) {
    return impl::recordOf<TechRecord>(tech);
}

SettingsRecord& settingsOf(const oaTech* tech) {
    return techDatabaseOf(tech).settings();
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
    return findOpenTech(openLibrary(libName));
}

oaTech* oaTech::find(const oaLib* lib) {
    return findOpenTech(lib);
}

oaBoolean oaTech::exists(const oaScalarName& libName, oaBoolean inherited) {
    return exists(openLibrary(libName), inherited);
}

oaBoolean oaTech::exists(const oaLib* lib, oaBoolean /*inherited*/) {
    return findOpenTech(lib) || hasTechFile(lib);
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

oaDist oaTech::getDefaultManufacturingGrid(oaBoolean /*local*/) const {
    return isDefaultManufacturingGridSet() ? settingsOf(this).grid : 0;
}

void oaTech::setDefaultManufacturingGrid(oaDist grid) {
    techDatabaseOf(this).editSettings().grid = grid;
}

void oaTech::unsetDefaultManufacturingGrid() {
    setDefaultManufacturingGrid(kNone);
}

oaBoolean oaTech::isDefaultManufacturingGridSet() const {
    return settingsOf(this).grid != kNone;
}

void oaTech::getProcessFamily(oaString& family, oaBoolean /*local*/) const {
    family = techDatabaseOf(this).strings.chars(settingsOf(this).processFamily);
}

void oaTech::setProcessFamily(const oaString& family) {
    TechDatabase& tech = techDatabaseOf(this);
    tech.editSettings().processFamily = tech.strings.intern(std::string_view(family));
    tech.noteGarbage();
}

void oaTech::unsetProcessFamily() {
    setProcessFamily("");
}

oaBoolean oaTech::hasProcessFamily(oaBoolean /*local*/) const {
    return settingsOf(this).processFamily != 0;
}

oaCollection<oaLayer, oaTech> oaTech::getLayers(oaUInt4 /*filterFlags*/) const {
    return collectionOf<oaCollection<oaLayer, oaTech>>({&techDatabaseOf(this).layers});
}

oaCollection<oaPurpose, oaTech> oaTech::getPurposes(oaUInt4 /*filterFlags*/) const {
    TechDatabase& tech = techDatabaseOf(this);
    return collectionOf<oaCollection<oaPurpose, oaTech>>(
        std::vector<TableBase*>{&tech.reservedPurposes, &tech.purposes});
}

oaCollection<oaValue, oaTech> oaTech::getValues(oaUInt4 /*filterFlags*/) const {
    return collectionOf<oaCollection<oaValue, oaTech>>({&techDatabaseOf(this).values});
}

oaTech* oaTechObject::getTech() const {
    return static_cast<oaTech*>(getDatabase());
}

oaBoolean oaTechObject::isLayer() const {
    const oaTypeEnum type = getType();
    return type >= oacPhysicalLayerType && type <= oacSizedLayerType;
}

} // namespace OpenAccess_4
