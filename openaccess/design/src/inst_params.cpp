#include "design/src/design_database.h"
#include "oa/oaParamArray.h"

#include <cstring>

namespace OpenAccess_4::impl {

namespace {

template <class Value>
std::uint64_t bitsOfValue(Value value) {
    std::uint64_t bits = 0;
    std::memcpy(&bits, &value, sizeof(value));
    return bits;
}

template <class Value>
Value valueOfBits(std::uint64_t bits) {
    Value value;
    std::memcpy(&value, &bits, sizeof(value));
    return value;
}

std::uint64_t bitsOfParam(const oaParam& param) {
    switch (param.getType()) {
    case oacIntParamType:
        return bitsOfValue(param.getIntVal());
    case oacFloatParamType:
        return bitsOfValue(param.getFloatVal());
    case oacDoubleParamType:
        return bitsOfValue(param.getDoubleVal());
    case oacBooleanParamType:
        return bitsOfValue(param.getBooleanVal());
    case oacTimeParamType:
        return bitsOfValue(param.getTimeVal());
    default:
        return 0; // a text or bytes
    }
}

} // namespace

oaParamArray Instances::paramsOf(std::uint32_t slot) {
    oaParamArray array;
    for (const std::uint32_t param : instParams.of(slot))
        array.append(paramOf(params[param]));
    return array;
}

void Instances::setParams(std::uint32_t slot, const oaParamArray& array) {
    clearParams(slot);
    for (oaUInt4 i = 0; i < array.getNumElements(); ++i) {
        InstParamRecord record = recordOf(array[i]);
        record.inst = slot;
        params.add(record);
    }
}

void Instances::clearParams(std::uint32_t slot) {
    for (const std::uint32_t param : instParams.of(slot)) {
        instParams.remove(param);
        params.destroy(param);
    }
}

InstParamRecord Instances::recordOf(const oaParam& param) {
    InstParamRecord record;
    oaString name;
    param.getName(name);
    record.name = database_.strings.intern(static_cast<const oaChar*>(name));
    record.type = param.getType();
    record.bits = bitsOfParam(param);
    if (record.type == oacStringParamType) {
        record.text = database_.strings.intern(param.getStringVal());
    } else if (record.type == oacAppParamType) {
        oaString appType;
        param.getAppType(appType);
        std::string bytes(param.getNumBytes(), '\0');
        param.getAppVal(reinterpret_cast<oaByte*>(bytes.data()));
        record.appType = database_.strings.intern(static_cast<const oaChar*>(appType));
        record.text = database_.strings.intern(bytes);
    }
    return record;
}

oaParam Instances::paramOf(const InstParamRecord& record) const {
    oaParam param;
    param.setName(database_.strings.chars(record.name));
    const std::string_view text = database_.strings.text(record.text);
    switch (record.type) {
    case oacIntParamType:
        param.setIntVal(valueOfBits<oaInt4>(record.bits));
        break;
    case oacFloatParamType:
        param.setFloatVal(valueOfBits<oaFloat>(record.bits));
        break;
    case oacDoubleParamType:
        param.setDoubleVal(valueOfBits<oaDouble>(record.bits));
        break;
    case oacBooleanParamType:
        param.setBooleanVal(valueOfBits<oaBoolean>(record.bits));
        break;
    case oacTimeParamType:
        param.setTimeVal(valueOfBits<oaTime>(record.bits));
        break;
    case oacStringParamType:
        param.setStringVal(text.data());
        break;
    default:
        param.setAppType(database_.strings.chars(record.appType));
        param.setAppVal(oaUInt4(text.size()), reinterpret_cast<const oaByte*>(text.data()));
    }
    return param;
}

} // namespace OpenAccess_4::impl
