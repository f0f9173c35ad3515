#include "oa/oaDMData.h"

#include "base/src/source.h"
#include "dm/src/dm_data_files.h"
#include "oa/oaLib.h"

namespace OpenAccess_4 {

using namespace impl;

oaDMData* oaDMData::open(const oaDMContainer* container, oaChar mode) {
    return openDMData(container, mode);
}

oaDMData* oaDMData::find(const oaDMContainer* container) {
    return findOpenDMData(container);
}

oaBoolean oaDMData::exists(const oaDMContainer* container) {
    return hasDMData(container);
}

void oaDMData::destroy(const oaDMContainer* container) {
    destroyDMData(container);
}

oaCollection<oaDMData, oaDMData> oaDMData::getOpenDMDataObjs() {
    return collectionOf<oaCollection<oaDMData, oaDMData>>({&openDMDatas()});
}

void oaDMData::save() {
    saveDMData(this);
}

void oaDMData::close() {
    if (--recordOf<DMDataRecord>(this).refCount == 0)
        purge();
}

void oaDMData::purge() {
    purgeDMData(this);
}

void oaDMData::reopen(oaChar mode) {
    reopenDMData(this, mode);
}

void oaDMData::revert() {
    revertDMData(this);
}

oaChar oaDMData::getMode() const {
    return recordOf<DMDataRecord>(this).mode;
}

oaUInt4 oaDMData::getRefCount() const {
    return recordOf<DMDataRecord>(this).refCount;
}

oaBoolean oaDMData::isModified() const {
    return recordOf<DMDataRecord>(this).content->isModified();
}

oaCollection<oaGroup, oaDMData> oaDMData::getGroups() const {
    return collectionOf<oaCollection<oaGroup, oaDMData>>(
        {&recordOf<DMDataRecord>(this).content->groups.groups()});
}

oaCollection<oaGroup, oaDMData> oaDMData::getGroupsByName(const oaString& name) const {
    return collectionOf<oaCollection<oaGroup, oaDMData>>(
        recordOf<DMDataRecord>(this).content->groups.named(static_cast<const oaChar*>(name)));
}

oaLib* oaDMData::getLib() const {
    return recordOf<DMDataRecord>(this).container->getLib();
}

void oaDMData::getLibName(oaScalarName& libName) const {
    getLib()->getName(libName);
}

void oaDMData::getLibName(const oaNameSpace& ns, oaString& libName) const {
    getLib()->getName(ns, libName);
}

} // namespace OpenAccess_4
