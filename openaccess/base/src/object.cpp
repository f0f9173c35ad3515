#include "oa/oaObject.h"

#include "base/src/database.h"
#include "base/src/source.h"
#include "oa/oaAppDef.h"
#include "oa/oaProp.h"

namespace OpenAccess_4 {

using namespace impl;

oaObject::~oaObject() = default;

oaType oaObject::getType() const {
    return tableOf(this).typeOf(slotOf(this));
}

oaObject* oaObject::getDatabase() const {
    return databaseOf(this).object();
}

oaDomain oaObject::getDomain() const {
    const oaTypeEnum type = getType();
    const bool inBlock =
        type == oacBlockType || (type >= oacLPPHeaderType && type <= oacInstHeaderType);
    return inBlock ? oacBlockDomain : oacNoDomain;
}

oaBoolean oaObject::isAppObject() const {
    return getType() == oacAppObjectType;
}

oaBoolean oaObject::isDesign() const {
    return getType() == oacDesignType;
}

oaBoolean oaObject::isDM() const {
    const oaTypeEnum type = getType();
    return type == oacLibType || (type >= oacCellType && type <= oacDMFileType);
}

oaBoolean oaObject::isDMData() const {
    const oaTypeEnum type = getType();
    return type >= oacLibDMDataType && type <= oacCellViewDMDataType;
}

oaBoolean oaObject::isProp() const {
    const oaTypeEnum type = getType();
    return type >= oacIntPropType && type <= oacEnumPropType;
}

oaBoolean oaObject::isSession() const {
    return getType() == oacSessionType;
}

oaBoolean oaObject::isTech() const {
    return getType() == oacTechType;
}

oaCollection<oaProp, oaObject> oaObject::getProps() const {
    const Location location = locationOf(this);
    return collectionOf<oaCollection<oaProp, oaObject>>(
        location.database->properties.of(location.ref));
}

oaBoolean oaObject::hasProp() const {
    const Location location = locationOf(this);
    return location.database->properties.any(location.ref);
}

oaCollection<oaAppDef, oaObject> oaObject::getAppDefs() const {
    const Location location = locationOf(this);
    return collectionOf<oaCollection<oaAppDef, oaObject>>(
        location.database->appValues.definitionsOf(location.ref));
}

oaBoolean oaObject::hasAppDef() const {
    const Location location = locationOf(this);
    return location.database->appValues.any(location.ref);
}

} // namespace OpenAccess_4
