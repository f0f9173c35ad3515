#include "oa/oaAttrType.h"

#include "base/src/named_enum.h"

namespace OpenAccess_4 {

OA_ENUM_NAMES(oaDesignAttrType, "libName", "cellName", "viewName", "cellType", "lastSavedTime")
OA_ENUM_NAMES(oaInstAttrType, "libName", "cellName", "viewName", "name", "numBits", "isBound")
OA_ENUM_NAMES(oaNetAttrType, "name", "sigType", "isGlobal", "isImplicit", "isEmpty", "numBits")
OA_ENUM_NAMES(oaTermAttrType, "name", "hasPins", "numBits")

#define OA_ATTR_TYPE(Class)                                                                        \
    Class::Class(const oaString& attributeName)                                                    \
        : oaAttrType(oaUInt4(impl::enumValue(enumInfo(Class##Enum()), attributeName))) {}          \
    const oaString& Class::getName() const {                                                       \
        return impl::enumName(enumInfo(Class##Enum()), getValue());                                \
    }

OA_ATTR_TYPE(oaDesignAttrType)
OA_ATTR_TYPE(oaInstAttrType)
OA_ATTR_TYPE(oaNetAttrType)
OA_ATTR_TYPE(oaTermAttrType)

#undef OA_ATTR_TYPE

} // namespace OpenAccess_4
