#include "oaParam.h"

#include "oaException.h"
#include "oaParamArray.h"

#include <algorithm>

namespace OpenAccess_4 {

oaParam::oaParam(const oaString& name, oaInt4 value)
    : name_(name), value_(std::in_place_index<oacIntParamType>, value) {}

oaParam::oaParam(const oaString& name, oaFloat value)
    : name_(name), value_(std::in_place_index<oacFloatParamType>, value) {}

oaParam::oaParam(const oaString& name, oaDouble value)
    : name_(name), value_(std::in_place_index<oacDoubleParamType>, value) {}

oaParam::oaParam(const oaString& name, const oaString& value)
    : name_(name), value_(std::in_place_index<oacStringParamType>, value) {}

oaParam::oaParam(const oaString& name, const oaString& appType, oaUInt4 numBytes,
                 const oaByte* data)
    : name_(name),
      value_(std::in_place_index<oacAppParamType>, AppValue{appType, {data, data + numBytes}}) {}

template <oaParamTypeEnum Type>
const std::variant_alternative_t<Type, oaParam::Value>& oaParam::get() const {
    if (const auto* value = std::get_if<Type>(&value_))
        return *value;
    const oaChar* name = name_;
    const oaChar* own = getType().getName();
    const oaChar* wanted = oaParamType(Type).getName();
    throw oaError(oacParamTypeMismatch, name, own, wanted);
}

oaInt4 oaParam::getIntVal() const {
    return get<oacIntParamType>();
}

oaFloat oaParam::getFloatVal() const {
    return get<oacFloatParamType>();
}

oaDouble oaParam::getDoubleVal() const {
    return get<oacDoubleParamType>();
}

oaBoolean oaParam::getBooleanVal() const {
    return get<oacBooleanParamType>();
}

oaTime oaParam::getTimeVal() const {
    return get<oacTimeParamType>();
}

const oaChar* oaParam::getStringVal() const {
    return get<oacStringParamType>();
}

void oaParam::getStringVal(oaString& value) const {
    value = get<oacStringParamType>();
}

void oaParam::getAppVal(oaByte* data) const {
    const std::vector<oaByte>& bytes = get<oacAppParamType>().bytes;
    std::copy(bytes.begin(), bytes.end(), data);
}

void oaParam::getAppType(oaString& appType) const {
    appType = get<oacAppParamType>().type;
}

oaUInt4 oaParam::getNumBytes() const {
    switch (getType()) {
    case oacStringParamType:
        return get<oacStringParamType>().getLength();
    case oacAppParamType:
        return static_cast<oaUInt4>(get<oacAppParamType>().bytes.size());
    case oacDoubleParamType:
    case oacTimeParamType:
        return 8;
    default:
        return 4;
    }
}

void oaParam::setIntVal(oaInt4 value) {
    value_.emplace<oacIntParamType>(value);
}

void oaParam::setFloatVal(oaFloat value) {
    value_.emplace<oacFloatParamType>(value);
}

void oaParam::setDoubleVal(oaDouble value) {
    value_.emplace<oacDoubleParamType>(value);
}

void oaParam::setBooleanVal(oaBoolean value) {
    value_.emplace<oacBooleanParamType>(value != 0);
}

void oaParam::setTimeVal(oaTime value) {
    value_.emplace<oacTimeParamType>(value);
}

void oaParam::setStringVal(const oaChar* value) {
    const oaString copy(value); // it may be the text that is replaced
    value_.emplace<oacStringParamType>(copy);
}

void oaParam::setAppVal(oaUInt4 numBytes, const oaByte* data) {
    std::vector<oaByte> copy(data, data + numBytes);
    appValue().bytes = std::move(copy);
}

void oaParam::setAppType(const oaChar* appType) {
    const oaString copy(appType);
    appValue().type = copy;
}

oaParam::AppValue& oaParam::appValue() {
    if (auto* value = std::get_if<oacAppParamType>(&value_))
        return *value;
    return value_.emplace<oacAppParamType>();
}

oaUInt4 oaParamArray::find(const oaParam& param) const {
    return oaArray::find(param);
}

oaBoolean oaParamArray::find(const oaString& name, oaParam& param) const {
    oaString own;
    for (oaUInt4 i = 0; i < getNumElements(); ++i) {
        get(i).getName(own);
        if (own == name) {
            param = get(i);
            return true;
        }
    }
    return false;
}

bool oaParamArray::operator==(const oaParamArray& other) const {
    return std::equal(getElements(), getElements() + getNumElements(), other.getElements(),
                      other.getElements() + other.getNumElements());
}

} // namespace OpenAccess_4
