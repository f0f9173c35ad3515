#include "design/src/text_content.h"

#include "design/src/design_database.h"
#include "oa/oaDesign.h"
#include "oa/oaInst.h"
#include "oa/oaName.h"
#include "oa/oaNet.h"
#include "oa/oaProp.h"
#include "oa/oaTerm.h"

#include <string>

namespace OpenAccess_4::impl {

namespace {

oaString formatted(std::uint32_t format, const oaString& name, const oaString& value) {
    switch (format) {
    case oacNameTextDisplayFormat:
        return name;
    case oacValueTextDisplayFormat:
        return value;
    default:
        return name + "=" + value;
    }
}

oaString flag(oaBoolean value) {
    return value ? "true" : "false";
}

oaString number(oaInt8 value) {
    return oaString(std::to_string(value).c_str());
}

template <class Member>
oaString nameFrom(Member member) {
    oaString name;
    member(name);
    return name;
}

oaString valueOf(const oaDesign* design, oaDesignAttrTypeEnum attribute, const oaNameSpace& ns) {
    switch (attribute) {
    case oacLibNameDesignAttrType:
        return nameFrom([&](oaString& name) { design->getLibName(ns, name); });
    case oacCellNameDesignAttrType:
        return nameFrom([&](oaString& name) { design->getCellName(ns, name); });
    case oacViewNameDesignAttrType:
        return nameFrom([&](oaString& name) { design->getViewName(ns, name); });
    case oacCellTypeDesignAttrType:
        return design->getCellType().getName();
    case oacLastSavedTimeDesignAttrType:
        return number(design->getLastSavedTime());
    }
    return {};
}

oaString valueOf(const oaInst* inst, oaInstAttrTypeEnum attribute, const oaNameSpace& ns) {
    switch (attribute) {
    case oacLibNameInstAttrType:
        return nameFrom([&](oaString& name) { inst->getLibName(ns, name); });
    case oacCellNameInstAttrType:
        return nameFrom([&](oaString& name) { inst->getCellName(ns, name); });
    case oacViewNameInstAttrType:
        return nameFrom([&](oaString& name) { inst->getViewName(ns, name); });
    case oacNameInstAttrType:
        return nameFrom([&](oaString& name) { inst->getName(ns, name); });
    case oacNumBitsInstAttrType:
        return number(inst->getNumBits());
    case oacIsBoundInstAttrType:
        return flag(inst->isBound());
    }
    return {};
}

oaString valueOf(const oaNet* net, oaNetAttrTypeEnum attribute, const oaNameSpace& ns) {
    switch (attribute) {
    case oacNameNetAttrType:
        return nameFrom([&](oaString& name) { net->getName(ns, name); });
    case oacSigTypeNetAttrType:
        return net->getSigType().getName();
    case oacIsGlobalNetAttrType:
        return flag(net->isGlobal());
    case oacIsImplicitNetAttrType:
        return flag(net->isImplicit());
    case oacIsEmptyNetAttrType:
        return flag(net->isEmpty());
    case oacNumBitsNetAttrType:
        return number(net->getNumBits());
    }
    return {};
}

oaString valueOf(const oaTerm* term, oaTermAttrTypeEnum attribute, const oaNameSpace& ns) {
    switch (attribute) {
    case oacNameTermAttrType:
        return nameFrom([&](oaString& name) { term->getName(ns, name); });
    case oacHasPinsTermAttrType:
        return flag(!term->getPins().isEmpty());
    case oacNumBitsTermAttrType:
        return number(term->getNumBits());
    }
    return {};
}

} // namespace

oaString textOf(const DesignDatabase& database, const PropDisplayRecord& display) {
    const auto* prop = static_cast<const oaProp*>(database.handle(display.shown()));
    oaString name;
    oaString value;
    prop->getName(name);
    prop->getValue(value);
    return formatted(display.format, name, value);
}

oaString textOf(const DesignDatabase& database, const AttrDisplayRecord& display) {
    return textOf(database, display, oaNativeNS());
}

oaString textOf(const DesignDatabase& database, const AttrDisplayRecord& display,
                const oaNameSpace& ns) {
    const oaObject* object = database.handle(display.object);
    const oaAttrType attribute(display.attribute);
    const auto shown = [&](const auto& type, const oaString& value) {
        return formatted(display.format, type.getName(), value);
    };
    switch (display.object.table) {
    case kNetTable: {
        const oaNetAttrType type(attribute);
        return shown(type, valueOf(static_cast<const oaNet*>(object), type.getValue(), ns));
    }
    case kTermTable: {
        const oaTermAttrType type(attribute);
        return shown(type, valueOf(static_cast<const oaTerm*>(object), type.getValue(), ns));
    }
    case kInstTable: {
        const oaInstAttrType type(attribute);
        return shown(type, valueOf(static_cast<const oaInst*>(object), type.getValue(), ns));
    }
    default: {
        const oaDesignAttrType type(attribute);
        return shown(type, valueOf(static_cast<const oaDesign*>(object), type.getValue(), ns));
    }
    }
}

} // namespace OpenAccess_4::impl
