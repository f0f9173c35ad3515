#include "design/src/design_database.h"
#include "design/src/instance_edit.h"
#include "design/src/open_designs.h"
#include "design/src/submasters.h"
#include "oa/oaByteArray.h"
#include "oa/oaDesign.h"
#include "oa/oaException.h"
#include "oa/oaParamArray.h"
#include "oa/oaProps.h"

namespace OpenAccess_4::impl {

namespace {

/// Splits parameters into those that a super master has and others.
struct SortedParams {
    oaParamArray known;
    oaParamArray unknown;
};

SortedParams sorted(const oaParamArray& params, const oaParamArray& defaults) {
    SortedParams result;
    for (oaUInt4 i = 0; i < params.getNumElements(); ++i) {
        oaString name;
        oaParam byDefault;
        params[i].getName(name);
        const bool isKnown =
            defaults.find(name, byDefault) && byDefault.getType() == params[i].getType();
        (isKnown ? result.known : result.unknown).append(params[i]);
    }
    return result;
}

oaParamArray defaultsOf(const oaDesign* superMaster) {
    oaParamArray defaults;
    if (designDatabaseOf(superMaster).pcell.isDefined())
        superMaster->getParams(defaults);
    return defaults;
}

} // namespace

oaDesign* submasterFor(oaDesign* superMaster, const oaParamArray& given) {
    try {
        return submasterOf(superMaster, sorted(given, defaultsOf(superMaster)).known);
    } catch (const oaException&) {
        return nullptr; // as a master that cannot be opened
    }
}

oaDesign* Instances::bindSub(std::uint32_t inst, oaDesign* superMaster) {
    return submasterFor(superMaster, paramsOf(inst));
}

namespace {

oaProp* makeProp(oaObject* owner, const oaString& name, const oaParam& param) {
    switch (param.getType()) {
    case oacIntParamType:
        return oaIntProp::create(owner, name, param.getIntVal());
    case oacFloatParamType:
        return oaFloatProp::create(owner, name, param.getFloatVal());
    case oacDoubleParamType:
        return oaDoubleProp::create(owner, name, param.getDoubleVal());
    case oacBooleanParamType:
        return oaBooleanProp::create(owner, name, param.getBooleanVal());
    case oacTimeParamType:
        return oaTimeProp::create(owner, name, param.getTimeVal());
    case oacStringParamType:
        return oaStringProp::create(owner, name, param.getStringVal());
    default: {
        oaString appType;
        std::vector<oaByte> bytes(param.getNumBytes());
        param.getAppType(appType);
        param.getAppVal(bytes.data());
        return oaAppProp::create(owner, name, appType, oaUInt4(bytes.size()), bytes.data());
    }
    }
}

oaParamArray paramOfApp(const oaAppProp* prop, const oaString& name) {
    oaString appType;
    prop->getAppType(appType);
    oaByteArray bytes;
    prop->getValue(bytes);
    oaParamArray params;
    params.append(oaParam(name, appType, bytes.getNumElements(), bytes.getElements()));
    return params;
}

/// The value of a property as a parameter of the type and name of `like`; none when the types
/// differ.
oaParamArray paramOfProp(const oaProp* prop, const oaParam& like) {
    oaString name;
    prop->getName(name);
    oaParam param;
    param.setName(name);
    if (const auto* integer = dynamic_cast<const oaIntProp*>(prop))
        param.setIntVal(integer->getValue());
    else if (const auto* single = dynamic_cast<const oaFloatProp*>(prop))
        param.setFloatVal(single->getValue());
    else if (const auto* real = dynamic_cast<const oaDoubleProp*>(prop))
        param.setDoubleVal(real->getValue());
    else if (const auto* flag = dynamic_cast<const oaBooleanProp*>(prop))
        param.setBooleanVal(flag->getValue());
    else if (const auto* time = dynamic_cast<const oaTimeProp*>(prop))
        param.setTimeVal(time->getValue());
    else if (const auto* string = dynamic_cast<const oaStringProp*>(prop)) {
        oaString text;
        string->getValue(text);
        param.setStringVal(text);
    } else if (const auto* app = dynamic_cast<const oaAppProp*>(prop))
        return like.getType() == oacAppParamType ? paramOfApp(app, name) : oaParamArray();
    else
        return oaParamArray();
    oaParamArray params;
    if (param.getType() == like.getType())
        params.append(param);
    return params;
}

/// Turns parameters into properties of their instance; answers those whose names are taken.
oaParamArray toProps(oaObject* inst, const oaParamArray& params) {
    oaParamArray left;
    for (oaUInt4 i = 0; i < params.getNumElements(); ++i) {
        oaString name;
        params[i].getName(name);
        if (oaProp::find(inst, name))
            left.append(params[i]);
        else
            makeProp(inst, name, params[i]);
    }
    return left;
}

/// Turns properties of an instance into parameters that it could be given, and was not.
void fromProps(oaObject* inst, const oaParamArray& defaults, oaParamArray& params) {
    for (oaUInt4 i = 0; i < defaults.getNumElements(); ++i) {
        oaString name;
        oaParam given;
        defaults[i].getName(name);
        oaProp* prop = oaProp::find(inst, name);
        if (!prop || params.find(name, given))
            continue;
        const oaParamArray taken = paramOfProp(prop, defaults[i]);
        if (taken.getNumElements() == 0)
            continue;
        params.append(taken[0]);
        prop->destroy();
    }
}

bool isEditable(const DesignDatabase& database) {
    try {
        database.requireEditable();
        return true;
    } catch (const oaException&) {
        return false;
    }
}

} // namespace

void Instances::regroup(std::uint32_t inst, const oaDesign* superMaster) {
    const oaParamArray defaults = defaultsOf(superMaster);
    const oaParamArray before = paramsOf(inst);
    SortedParams given = sorted(before, defaults);
    oaObject* handle = insts.handle(inst);
    const oaParamArray left = toProps(handle, given.unknown);
    fromProps(handle, defaults, given.known);
    for (oaUInt4 i = 0; i < left.getNumElements(); ++i)
        given.known.append(left[i]);
    if (given.known == before)
        return;
    database_.edit();
    setParams(inst, given.known);
}

void Instances::regroup(const oaDesign* superMaster) {
    const bool editable = isEditable(database_);
    for (std::uint32_t master = 0; master < bound_.size(); ++master) {
        if (bound_[master] != superMaster)
            continue;
        std::vector<std::uint32_t> wereBound;
        for (const std::uint32_t sub : subHeaders.ofMaster(master))
            if (subHeaders.isBound(sub))
                wereBound.push_back(subHeaders.firstInst(sub));
        subHeaders.unbind(master);
        if (editable)
            for (const std::uint32_t inst : masterInsts.of(master))
                regroup(inst, superMaster);
        for (const std::uint32_t inst : wereBound)
            masterOf(inst);
    }
}

namespace {

void regroupIn(Table<OpenDesignRecord>& designs, const oaDesign* superMaster) {
    for (std::uint32_t slot = 0; slot < designs.slots(); ++slot)
        if (designs.isLive(slot) && designs[slot].content)
            designs[slot].content->instances.regroup(superMaster);
}

} // namespace

void regroupInstancesOf(const oaDesign* superMaster) {
    regroupIn(openDesigns(), superMaster);
    regroupIn(openSubmasters(), superMaster);
}

} // namespace OpenAccess_4::impl
