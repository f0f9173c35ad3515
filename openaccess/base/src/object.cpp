#include "oa/oaObject.h"

#include "base/src/database.h"
#include "base/src/source.h"
#include "oa/oaAppDef.h"
#include "oa/oaGroup.h"
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
    if (type == oacOccurrenceType || type == oacOccArrayInstType ||
        (type >= oacOccScalarInstType && type <= oacOccInstHeaderType))
        return oacOccDomain;
    const bool inBlock =
        type == oacBlockType || (type >= oacLPPHeaderType && type <= oacInstHeaderType);
    return inBlock ? oacBlockDomain : oacNoDomain;
}

oaBoolean oaObject::isAppObject() const {
    return getType() == oacAppObjectType;
}

oaBoolean oaObject::isConstraint() const {
    const oaTypeEnum type = getType();
    return (type >= oacSimpleConstraintType && type <= oacLayerPairConstraintType) ||
           type == oacLayerArrayConstraintType;
}

oaBoolean oaObject::isConstraintGroup() const {
    return getType() == oacConstraintGroupType;
}

oaBoolean oaObject::isConstraintGroupHeader() const {
    return getType() == oacConstraintGroupHeaderType;
}

oaBoolean oaObject::isConstraintGroupMem() const {
    return getType() == oacConstraintGroupMemType;
}

oaBoolean oaObject::isConstraintParam() const {
    return getType() == oacConstraintParamType;
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

oaBoolean oaObject::isGroup() const {
    return getType() == oacGroupType;
}

oaBoolean oaObject::isGroupMember() const {
    return getType() == oacGroupMemberType;
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

oaBoolean oaObject::isValue() const {
    const oaTypeEnum type = getType();
    return (type >= oacBooleanValueType && type <= oacViaDef2DTblValueType) ||
           (type >= oacUInt8ValueType && type <= oacUInt8RangeValueType) ||
           type == oacStringValueType;
}

oaBoolean oaObject::isWafer() const {
    return getType() == oacWaferType;
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

oaCollection<oaGroupMember, oaObject> oaObject::getGroupMems() const {
    const Location location = locationOf(this);
    return collectionOf<oaCollection<oaGroupMember, oaObject>>(
        location.database->groups.membershipsOf(location.ref, false));
}

oaCollection<oaGroupMember, oaObject> oaObject::getGroupLeaders() const {
    const Location location = locationOf(this);
    return collectionOf<oaCollection<oaGroupMember, oaObject>>(
        location.database->groups.membershipsOf(location.ref, true));
}

oaCollection<oaGroup, oaObject> oaObject::getGroupsOwnedBy() const {
    const Location location = locationOf(this);
    if (location.ref == kDatabaseItself)
        return collectionOf<oaCollection<oaGroup, oaObject>>({&location.database->groups.groups()});
    return collectionOf<oaCollection<oaGroup, oaObject>>(std::vector<oaObject*>());
}

oaBoolean oaObject::inGroup() const {
    const Location location = locationOf(this);
    return location.database->groups.holds(location.ref);
}

oaBoolean oaObject::hasConstraintGroup() const {
    slotOf(this); // an object that is gone answers nothing
    return false;
}

oaBoolean oaObject::hasAssociate() const {
    slotOf(this);
    return false;
}

} // namespace OpenAccess_4
