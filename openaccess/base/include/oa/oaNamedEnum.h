#pragma once

#include "oaString.h"

namespace OpenAccess_4 {

namespace impl {

/// The class name of an enumeration and the names of its values, from 0 on.
struct EnumInfo {
    const oaChar* className;
    const oaString* names;
    oaUInt4 numNames;
};

/// @throws oaError  oacInvalidEnumValue: `value` has no name.
OA_API const oaString& enumName(const EnumInfo& info, int value);
/// @throws oaError  oacInvalidEnumName: no value is named `name`.
OA_API int enumValue(const EnumInfo& info, const oaString& name);

/// A value of an enumeration that knows its printable name. Converts both ways implicitly.
template <class Enum>
class NamedEnum {
public:
    NamedEnum(Enum value) : value_(value) {}
    /// @throws oaError  no value has this name.
    NamedEnum(const oaString& name)
        : value_(static_cast<Enum>(enumValue(enumInfo(Enum()), name))) {}

    /// @throws oaError  the value is none of the enumeration.
    const oaString& getName() const { return enumName(enumInfo(value_), value_); }
    operator Enum() const { return value_; }

private:
    Enum value_;
};

} // namespace impl

/// Declares the class `name` for the enumeration `name`Enum.
#define OA_NAMED_ENUM(name)                                                                        \
    class OA_API name : public impl::NamedEnum<name##Enum> {                                       \
    public:                                                                                        \
        using NamedEnum::NamedEnum;                                                                \
    };                                                                                             \
    OA_API const impl::EnumInfo& enumInfo(name##Enum)

} // namespace OpenAccess_4
