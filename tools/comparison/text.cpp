#include "comparison/text.h"

#include <vector>

namespace comparison {
namespace {

std::string bytesOf(const oa::oaParam& param) {
    std::vector<oa::oaByte> bytes(param.getNumBytes());
    param.getAppVal(bytes.data());
    return hexText(bytes.data(), bytes.size());
}

} // namespace

std::string quoted(const std::string& text) {
    constexpr const char* digits = "0123456789abcdef";
    std::string result = "\"";
    for (const char c : text) {
        const auto code = static_cast<unsigned char>(c);
        if (c == '\n')
            result += "\\n";
        else if (c == '"' || c == '\\')
            (result += '\\') += c;
        else if (code < ' ' || code == 0x7F)
            ((result += "\\x") += digits[code >> 4]) += digits[code & 15];
        else
            result += c;
    }
    return result + '"';
}

std::string hexText(const oa::oaByte* bytes, std::size_t size) {
    constexpr const char* digits = "0123456789abcdef";
    std::string text;
    for (std::size_t at = 0; at < size; ++at)
        (text += digits[bytes[at] >> 4]) += digits[bytes[at] & 15];
    return text;
}

std::string textOf(const oa::oaPoint& point) {
    return "(" + numberText(point.x()) + ", " + numberText(point.y()) + ")";
}

std::string textOf(const oa::oaBox& box) {
    return textOf(box.lowerLeft()) + "-" + textOf(box.upperRight());
}

std::string textOf(const oa::oaParam& param) {
    oa::oaString appType;
    switch (param.getType()) {
    case oa::oacIntParamType:
        return "int " + numberText(param.getIntVal());
    case oa::oacFloatParamType:
        return "float " + numberText(param.getFloatVal());
    case oa::oacDoubleParamType:
        return "double " + numberText(param.getDoubleVal());
    case oa::oacTimeParamType:
        return "time " + numberText(param.getTimeVal());
    case oa::oacBooleanParamType:
        return param.getBooleanVal() ? "true" : "false";
    case oa::oacStringParamType:
        return quoted(std::string(param.getStringVal()));
    case oa::oacAppParamType:
        param.getAppType(appType);
        return "bytes of " + quoted(appType) + " " + bytesOf(param);
    }
    return "of an unknown type";
}

} // namespace comparison
