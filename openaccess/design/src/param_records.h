#pragma once

#include "base/src/string_pool.h"
#include "oa/oaParam.h"

#include <cstring>
#include <vector>

namespace OpenAccess_4::impl {

// Records that hold a parameter have the fields
//     StringId name; std::uint32_t type;   // an oaParamTypeEnum
//     StringId text; StringId appType;     // the value of texts and bytes, the type of bytes
//     std::uint64_t bits;                  // the other values

template <class Value>
std::uint64_t bitsOfParam(Value value) {
    std::uint64_t bits = 0;
    std::memcpy(&bits, &value, sizeof(value));
    return bits;
}

template <class Value>
Value paramFromBits(std::uint64_t bits) {
    Value value;
    std::memcpy(&value, &bits, sizeof(value));
    return value;
}

inline StringId internBytes(StringPool& strings, const oaParam& param) {
    std::vector<oaByte> bytes(param.getNumBytes());
    param.getAppVal(bytes.data());
    return strings.intern({reinterpret_cast<const char*>(bytes.data()), bytes.size()});
}

/// Puts a parameter into a record of the database with these texts.
template <class Record>
void storeParam(Record& record, StringPool& strings, const oaParam& param) {
    oaString text;
    param.getName(text);
    record.name = strings.intern(std::string_view(text));
    record.type = param.getType();
    switch (param.getType()) {
    case oacIntParamType:
        record.bits = bitsOfParam(param.getIntVal());
        break;
    case oacFloatParamType:
        record.bits = bitsOfParam(param.getFloatVal());
        break;
    case oacDoubleParamType:
        record.bits = bitsOfParam(param.getDoubleVal());
        break;
    case oacBooleanParamType:
        record.bits = bitsOfParam(param.getBooleanVal());
        break;
    case oacTimeParamType:
        record.bits = bitsOfParam(param.getTimeVal());
        break;
    case oacStringParamType:
        record.text = strings.intern(std::string_view(param.getStringVal()));
        break;
    case oacAppParamType:
        param.getAppType(text);
        record.appType = strings.intern(std::string_view(text));
        record.text = internBytes(strings, param);
        break;
    }
}

/// The parameter that a record holds.
template <class Record>
oaParam paramOf(const Record& record, const StringPool& strings) {
    oaParam param;
    param.setName(strings.chars(record.name));
    switch (oaParamTypeEnum(record.type)) {
    case oacIntParamType:
        param.setIntVal(paramFromBits<oaInt4>(record.bits));
        break;
    case oacFloatParamType:
        param.setFloatVal(paramFromBits<oaFloat>(record.bits));
        break;
    case oacDoubleParamType:
        param.setDoubleVal(paramFromBits<oaDouble>(record.bits));
        break;
    case oacBooleanParamType:
        param.setBooleanVal(paramFromBits<oaBoolean>(record.bits));
        break;
    case oacTimeParamType:
        param.setTimeVal(paramFromBits<oaTime>(record.bits));
        break;
    case oacStringParamType:
        param.setStringVal(strings.chars(record.text));
        break;
    case oacAppParamType: {
        const std::string_view bytes = strings.text(record.text);
        param.setAppType(strings.chars(record.appType));
        param.setAppVal(oaUInt4(bytes.size()), reinterpret_cast<const oaByte*>(bytes.data()));
        break;
    }
    }
    return param;
}

} // namespace OpenAccess_4::impl
