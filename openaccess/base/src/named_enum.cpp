#include "oaNamedEnum.h"

#include "oaException.h"

namespace OpenAccess_4::impl {

const oaString& enumName(const EnumInfo& info, int value) {
    if (value < 0 || static_cast<oaUInt4>(value) >= info.numNames)
        throw oaError(oacInvalidEnumValue, value, info.className);
    return info.names[value];
}

int enumValue(const EnumInfo& info, const oaString& name) {
    for (oaUInt4 i = 0; i < info.numNames; ++i) {
        if (info.names[i] == name)
            return static_cast<int>(i);
    }
    throw oaError(oacInvalidEnumName, static_cast<const oaChar*>(name), info.className);
}

} // namespace OpenAccess_4::impl
