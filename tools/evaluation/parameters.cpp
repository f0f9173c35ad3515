#include "evaluation/parameters.h"

#include <charconv>
#include <optional>
#include <set>
#include <stdexcept>

#include <ovalis/core.h>

namespace evaluation {
namespace {

constexpr const char* typeNames[] = {"int", "float", "string", "app", "double", "boolean", "time"};

template <class Number>
std::string numberText(Number value) {
    char text[64];
    const std::to_chars_result result = std::to_chars(text, text + sizeof text, value);
    return {text, result.ptr};
}

template <class Number>
std::optional<Number> number(const std::string& text) {
    Number value{};
    const char* end = text.data() + text.size();
    const std::from_chars_result result = std::from_chars(text.data(), end, value);
    if (result.ec != std::errc() || result.ptr != end)
        return std::nullopt;
    return value;
}

std::optional<bool> truth(const std::string& text) {
    if (text == "true" || text == "1")
        return true;
    if (text == "false" || text == "0")
        return false;
    return std::nullopt;
}

/// Calls `set` with the value, if there is one.
template <class Value, class Set>
bool take(const std::optional<Value>& value, Set set) {
    if (value)
        set(*value);
    return value.has_value();
}

/// Gives the parameter a value of this type; false when the text is none.
bool setValue(oa::oaParam& param, oa::oaParamTypeEnum type, const std::string& text) {
    switch (type) {
    case oa::oacIntParamType:
        return take(number<oa::oaInt4>(text), [&](auto value) { param.setIntVal(value); });
    case oa::oacFloatParamType:
        return take(number<oa::oaFloat>(text), [&](auto value) { param.setFloatVal(value); });
    case oa::oacDoubleParamType:
        return take(number<oa::oaDouble>(text), [&](auto value) { param.setDoubleVal(value); });
    case oa::oacTimeParamType:
        return take(number<oa::oaTime>(text), [&](auto value) { param.setTimeVal(value); });
    case oa::oacBooleanParamType:
        return take(truth(text), [&](auto value) { param.setBooleanVal(value); });
    case oa::oacStringParamType:
        param.setStringVal(text.c_str());
        return true;
    default:
        return false;
    }
}

std::optional<oa::oaParamTypeEnum> typeNamed(const std::string& name) {
    for (int type = 0; type < 7; ++type)
        if (name == typeNames[type] && type != oa::oacAppParamType)
            return static_cast<oa::oaParamTypeEnum>(type);
    return std::nullopt;
}

std::string choices(const oa::oaParamArray& defaults) {
    if (defaults.getNumElements() == 0)
        return "; the pcell has no parameters";
    std::string text;
    for (oa::oaUInt4 at = 0; at < defaults.getNumElements(); ++at)
        text += (at == 0 ? "; there are " : ", ") + nameOf(defaults[at]) + " (" +
                typeOf(defaults[at]) + ")";
    return text;
}

/// Puts `param` in the place of one of its name, else at the end.
void place(oa::oaParamArray& params, const oa::oaParam& param) {
    for (oa::oaUInt4 at = 0; at < params.getNumElements(); ++at)
        if (nameOf(params[at]) == nameOf(param)) {
            params[at] = param;
            return;
        }
    params.append(param);
}

} // namespace

std::string nameOf(const oa::oaParam& param) {
    oa::oaString name;
    param.getName(name);
    return ovalis::fromOa(name);
}

std::string typeOf(const oa::oaParam& param) {
    return typeNames[static_cast<oa::oaParamTypeEnum>(param.getType())];
}

std::string valueOf(const oa::oaParam& param) {
    switch (param.getType()) {
    case oa::oacIntParamType:
        return numberText(param.getIntVal());
    case oa::oacFloatParamType:
        return numberText(param.getFloatVal());
    case oa::oacDoubleParamType:
        return numberText(param.getDoubleVal());
    case oa::oacTimeParamType:
        return numberText(param.getTimeVal());
    case oa::oacBooleanParamType:
        return param.getBooleanVal() ? "true" : "false";
    case oa::oacStringParamType:
        return param.getStringVal();
    default:
        oa::oaString type;
        param.getAppType(type);
        return numberText(param.getNumBytes()) + " bytes of " + ovalis::fromOa(type);
    }
}

std::string textOf(const oa::oaParamArray& params) {
    if (params.getNumElements() == 0)
        return "no parameters";
    std::string text;
    for (oa::oaUInt4 at = 0; at < params.getNumElements(); ++at)
        text += (at == 0 ? "" : ", ") + nameOf(params[at]) + " = " + valueOf(params[at]);
    return text;
}

oa::oaParamArray givenParams(const oa::oaParamArray& defaults,
                             const std::vector<std::string>& assignments) {
    oa::oaParamArray given;
    for (const std::string& assignment : assignments) {
        const std::size_t equals = assignment.find('=');
        if (equals == std::string::npos)
            throw std::runtime_error("\"" + assignment + "\" is no NAME=VALUE" + choices(defaults));
        const std::string name = assignment.substr(0, equals);
        const std::string value = assignment.substr(equals + 1);
        oa::oaParam param;
        if (!defaults.find(ovalis::toOa(name), param))
            throw std::runtime_error("no parameter \"" + name + "\"" + choices(defaults));
        if (!setValue(param, param.getType(), value))
            throw std::runtime_error("parameter \"" + name + "\" is of the type " + typeOf(param) +
                                     ", which \"" + value + "\" is not" + choices(defaults));
        place(given, param);
    }
    return given;
}

oa::oaParamArray declaredParams(const std::vector<std::string>& declarations) {
    oa::oaParamArray params;
    std::set<std::string> names;
    for (const std::string& declaration : declarations) {
        const std::size_t equals = declaration.find('=');
        const std::size_t colon =
            equals == std::string::npos ? equals : declaration.rfind(':', equals);
        if (colon == std::string::npos || colon == 0)
            throw std::runtime_error("\"" + declaration + "\" is no NAME:TYPE=VALUE");
        const std::string name = declaration.substr(0, colon);
        const std::string typeName = declaration.substr(colon + 1, equals - colon - 1);
        const std::string value = declaration.substr(equals + 1);
        const std::optional<oa::oaParamTypeEnum> type = typeNamed(typeName);
        if (!type)
            throw std::runtime_error("\"" + typeName + "\" is no type; there are int, float, " +
                                     "string, double, boolean, time");
        oa::oaParam param;
        param.setName(name.c_str());
        if (!setValue(param, *type, value))
            throw std::runtime_error("parameter \"" + name + "\" is of the type " + typeName +
                                     ", which \"" + value + "\" is not");
        if (!names.insert(name).second)
            throw std::runtime_error("parameter \"" + name + "\" comes twice");
        params.append(param);
    }
    return params;
}

oa::oaParamArray effectiveParams(const oa::oaParamArray& defaults, const oa::oaParamArray& given) {
    oa::oaParamArray params = defaults;
    for (oa::oaUInt4 at = 0; at < given.getNumElements(); ++at)
        place(params, given[at]);
    return params;
}

} // namespace evaluation
