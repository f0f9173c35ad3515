#include "diagnostics/property_line.h"

#include <array>
#include <cstdio>

#include <ovalis/core.h>

namespace ovalis {

namespace {

template <class Kind>
const Kind& as(const oa::oaProp& property) {
    return static_cast<const Kind&>(property);
}

std::string realText(double value) {
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "=%lg", value);
    return text.data();
}

std::string stringText(const oa::oaStringProp& property) {
    oa::oaString value;
    property.getValue(value);
    return '=' + fromOa(value);
}

std::string enumText(const oa::oaEnumProp& property) {
    std::string text = "=";
    oa::oaEnumPropIter iterator(property.getEnums());
    oa::oaString value;
    for (const char* separator = ""; iterator.getNext(value); separator = ", ") {
        text += separator + fromOa(value);
    }
    return text;
}

std::string valueText(const oa::oaProp& property, oa::oaTypeEnum type) {
    switch (type) {
    case oa::oacIntPropType:
        return '=' + std::to_string(as<oa::oaIntProp>(property).getValue());
    case oa::oacIntRangePropType:
        return ": <IntRangeProp>";
    case oa::oacFloatPropType:
        return realText(as<oa::oaFloatProp>(property).getValue());
    case oa::oacFloatRangePropType:
        return ": <FloatRangeProp>";
    case oa::oacStringPropType:
        return stringText(as<oa::oaStringProp>(property));
    case oa::oacAppPropType:
        return ": <AppProp>";
    case oa::oacDoublePropType:
        return realText(as<oa::oaDoubleProp>(property).getValue());
    case oa::oacDoubleRangePropType:
        return ": <DoubleRangeProp>";
    case oa::oacBooleanPropType:
        return as<oa::oaBooleanProp>(property).getValue() ? "=true" : "=false";
    case oa::oacHierPropType:
        return ": <HierProp>";
    case oa::oacTimePropType:
        return ": <TimeProp>";
    case oa::oacTimeRangePropType:
        return ": <TimeRangeProp>";
    case oa::oacEnumPropType:
        return enumText(as<oa::oaEnumProp>(property));
    default:
        return " unknown property type:" + std::to_string(static_cast<int>(type));
    }
}

} // namespace

std::string lineOf(const oa::oaProp& property) {
    return lineOf(property, property.getType());
}

std::string lineOf(const oa::oaProp& property, oa::oaTypeEnum type) {
    oa::oaString name;
    property.getName(name);
    return fromOa(name) + valueText(property, type);
}

} // namespace ovalis
