#include "comparison/attachments.h"

#include <vector>

#include "comparison/text.h"

namespace comparison {
namespace {

template <class Range>
std::string rangeText(const char* kind, const oa::oaProp& prop) {
    const auto& range = static_cast<const Range&>(prop);
    return std::string(kind) + " range " + numberText(range.getLowerBound()) + ":" +
           numberText(range.getValue()) + ":" + numberText(range.getUpperBound());
}

std::string appText(const oa::oaAppProp& prop) {
    oa::oaString type;
    prop.getAppType(type);
    std::vector<oa::oaByte> bytes(prop.getSize());
    prop.getValue(bytes.data());
    return "bytes of " + quoted(type) + " " + hexText(bytes.data(), bytes.size());
}

std::string enumText(const oa::oaEnumProp& prop) {
    oa::oaString text;
    prop.getValue(text);
    std::string all = quoted(text) + " of";
    oa::oaEnumPropIter enums(prop.getEnums());
    while (enums.getNext(text))
        all += " " + quoted(text);
    return all;
}

std::string valueOf(const oa::oaProp& prop) {
    oa::oaString text;
    prop.getValue(text);
    switch (prop.getType()) {
    case oa::oacStringPropType:
        return quoted(text);
    case oa::oacIntPropType:
        return "int " + ovalis::fromOa(text);
    case oa::oacFloatPropType:
        return "float " + ovalis::fromOa(text);
    case oa::oacDoublePropType:
        return "double " + numberText(static_cast<const oa::oaDoubleProp&>(prop).getValue());
    case oa::oacTimePropType:
        return "time " + ovalis::fromOa(text);
    case oa::oacIntRangePropType:
        return rangeText<oa::oaIntRangeProp>("int", prop);
    case oa::oacFloatRangePropType:
        return rangeText<oa::oaFloatRangeProp>("float", prop);
    case oa::oacDoubleRangePropType:
        return rangeText<oa::oaDoubleRangeProp>("double", prop);
    case oa::oacTimeRangePropType:
        return rangeText<oa::oaTimeRangeProp>("time", prop);
    case oa::oacAppPropType:
        return appText(static_cast<const oa::oaAppProp&>(prop));
    case oa::oacEnumPropType:
        return enumText(static_cast<const oa::oaEnumProp&>(prop));
    case oa::oacHierPropType:
        return "a group";
    default:
        return ovalis::fromOa(text);
    }
}

// NOLINTNEXTLINE(misc-no-recursion): properties carry properties
void addProps(Fields& fields, const oa::oaObject& object, const std::string& path) {
    if (!object.hasProp())
        return;
    oa::oaIter<oa::oaProp> props(object.getProps());
    while (const oa::oaProp* prop = props.getNext()) {
        const std::string name = path + plainNameOf(*prop);
        fields.add("property " + quoted(name), valueOf(*prop));
        addProps(fields, *prop, name + "/");
        addAppValues(fields, *prop, "property " + quoted(name) + " ");
    }
}

} // namespace

void addAttachments(Fields& fields, const oa::oaObject& object) {
    addProps(fields, object, "");
    addAppValues(fields, object, "");
}

void addParams(Fields& fields, const oa::oaParamArray& params) {
    for (oa::oaUInt4 at = 0; at < params.getNumElements(); ++at)
        fields.add("parameter " + quoted(plainNameOf(params[at])), textOf(params[at]));
}

} // namespace comparison
