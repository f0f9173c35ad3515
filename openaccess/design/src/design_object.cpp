#include "design/src/design_database.h"
#include "oa/oaBlock.h"
#include "oa/oaDesign.h"
#include "oa/oaDesignObject.h"

namespace OpenAccess_4 {

using namespace impl;

namespace {

bool isBetween(oaTypeEnum type, oaTypeEnum first, oaTypeEnum last) {
    return type >= first && type <= last;
}

} // namespace

oaDesign* oaDesignObject::getDesign() const {
    return designDatabaseOf(this).design();
}

oaBoolean oaDesignObject::isBlockObject() const {
    return getDomain() == oacBlockDomain;
}

oaBlock* oaBlockObject::getBlock() const {
    return designDatabaseOf(this).block();
}

oaBoolean oaBlockObject::isBitInst() const {
    return isInst() && getType() != oacVectorInstType;
}

oaBoolean oaBlockObject::isBitNet() const {
    return getType() == oacScalarNetType;
}

oaBoolean oaBlockObject::isBitTerm() const {
    return getType() == oacScalarTermType;
}

oaBoolean oaBlockObject::isConnFig() const {
    return isPinFig();
}

oaBoolean oaBlockObject::isFig() const {
    return isPinFig();
}

oaBoolean oaBlockObject::isInst() const {
    return isBetween(getType(), oacArrayInstType, oacVectorInstBitType);
}

oaBoolean oaBlockObject::isNet() const {
    return isBetween(getType(), oacBundleNetType, oacScalarNetType);
}

oaBoolean oaBlockObject::isPinFig() const {
    return isShape() || isRef();
}

oaBoolean oaBlockObject::isRef() const {
    return isInst() || isVia();
}

oaBoolean oaBlockObject::isShape() const {
    return isBetween(getType(), oacArcType, oacAttrDisplayType);
}

oaBoolean oaBlockObject::isTerm() const {
    return isBetween(getType(), oacBundleTermType, oacScalarTermType);
}

oaBoolean oaBlockObject::isTextDisplay() const {
    return isBetween(getType(), oacPropDisplayType, oacAttrDisplayType);
}

oaBoolean oaBlockObject::isVia() const {
    return isBetween(getType(), oacStdViaType, oacCustomViaType);
}

oaBoolean oaBlockObject::isViaHeader() const {
    return isBetween(getType(), oacStdViaHeaderType, oacCustomViaHeaderType);
}

} // namespace OpenAccess_4
