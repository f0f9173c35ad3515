#pragma once

#include <charconv>
#include <string>

#include <oa/oaDesignDB.h>

#include <ovalis/core.h>

namespace comparison {

/// The shortest text that reads back as the same number.
template <class Number>
std::string numberText(Number value) {
    char text[64];
    const std::to_chars_result result = std::to_chars(text, text + sizeof text, value);
    return {text, result.ptr};
}

/// In double quotes, on one line.
std::string quoted(const std::string& text);
inline std::string quoted(const oa::oaString& text) {
    return quoted(ovalis::fromOa(text));
}

/// Pairs of hexadecimal digits.
std::string hexText(const oa::oaByte* bytes, std::size_t size);

inline std::string yesOrNo(oa::oaBoolean value) {
    return value ? "yes" : "no";
}

/// "(1, -2)"
std::string textOf(const oa::oaPoint& point);
/// "(0, 0)-(90, 30)"
std::string textOf(const oa::oaBox& box);

template <class Enum>
std::string enumText(const Enum& value) {
    return ovalis::fromOa(value.getName());
}

/// The value with its type, unless the form of the value tells that.
std::string textOf(const oa::oaParam& param);

/// The name of an object that has one in every name space.
template <class Object>
std::string nameOf(const Object& object) {
    static const oa::oaNativeNS ns;
    oa::oaString name;
    object.getName(ns, name);
    return ovalis::fromOa(name);
}

/// The name of an object that has a plain one.
template <class Object>
std::string plainNameOf(const Object& object) {
    oa::oaString name;
    object.getName(name);
    return ovalis::fromOa(name);
}

} // namespace comparison
