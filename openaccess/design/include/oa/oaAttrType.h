#pragma once

#include "oa/oaNamedEnum.h"

namespace OpenAccess_4 {

/// An attribute of some kind of object, by its number; the classes below name the numbers.
class OA_API oaAttrType {
public:
    oaAttrType(oaUInt4 value = 0) : value_(value) {}
    operator oaUInt4() const { return value_; }

private:
    oaUInt4 value_;
};

enum oaDesignAttrTypeEnum {
    oacLibNameDesignAttrType,
    oacCellNameDesignAttrType,
    oacViewNameDesignAttrType,
    oacCellTypeDesignAttrType,
    oacLastSavedTimeDesignAttrType,
};

enum oaInstAttrTypeEnum {
    oacLibNameInstAttrType,
    oacCellNameInstAttrType,
    oacViewNameInstAttrType,
    oacNameInstAttrType,
    oacNumBitsInstAttrType,
    oacIsBoundInstAttrType,
};

enum oaNetAttrTypeEnum {
    oacNameNetAttrType,
    oacSigTypeNetAttrType,
    oacIsGlobalNetAttrType,
    oacIsImplicitNetAttrType,
    oacIsEmptyNetAttrType,
    oacNumBitsNetAttrType,
};

enum oaTermAttrTypeEnum {
    oacNameTermAttrType,
    oacHasPinsTermAttrType,
    oacNumBitsTermAttrType,
};

/// Declares the attributes of one kind of object.
#define OA_ATTR_TYPE(name)                                                                         \
    class OA_API name : public oaAttrType {                                                        \
    public:                                                                                        \
        name(name##Enum value) : oaAttrType(oaUInt4(value)) {}                                     \
        explicit name(oaAttrType attribute) : oaAttrType(attribute) {}                             \
        /** @throws oaError  oacInvalidEnumName: no attribute has this name */                     \
        explicit name(const oaString& attributeName);                                              \
        name##Enum getValue() const { return name##Enum(oaUInt4(*this)); }                         \
        /** @throws oaError  oacInvalidEnumValue: the value is none of the attributes */           \
        const oaString& getName() const;                                                           \
    };                                                                                             \
    OA_API const impl::EnumInfo& enumInfo(name##Enum)

OA_ATTR_TYPE(oaDesignAttrType);
OA_ATTR_TYPE(oaInstAttrType);
OA_ATTR_TYPE(oaNetAttrType);
OA_ATTR_TYPE(oaTermAttrType);

#undef OA_ATTR_TYPE

} // namespace OpenAccess_4
