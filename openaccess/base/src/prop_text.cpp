#include "base/src/prop_text.h"

#include "base/src/database.h"

#include <charconv>

namespace OpenAccess_4::impl {

namespace {

template <class Value>
std::string numberText(Value value) {
    char text[64];
    const auto end = std::to_chars(text, text + sizeof(text), value).ptr;
    return {text, end};
}

template <class Value>
std::string plain(const PropRecord& prop) {
    return numberText(prop.value.get<Value>());
}

template <class Value>
std::string range(const PropRecord& prop) {
    return numberText(prop.value.get<Value>(0)) + ":" + numberText(prop.value.get<Value>(1)) + ":" +
           numberText(prop.value.get<Value>(2));
}

std::string hexadecimal(std::string_view bytes) {
    static constexpr char digits[] = "0123456789abcdef";
    std::string text;
    for (const char byte : bytes) {
        text += digits[static_cast<unsigned char>(byte) >> 4];
        text += digits[static_cast<unsigned char>(byte) & 15];
    }
    return text;
}

} // namespace

std::string propText(const Database& database, const PropRecord& prop) {
    const auto text = [&](std::size_t element) {
        return database.strings.text(prop.value.get<StringId>(element));
    };
    switch (prop.kind) {
    case PropKind::Int:
        return plain<oaInt4>(prop);
    case PropKind::IntRange:
        return range<oaInt4>(prop);
    case PropKind::Float:
        return plain<oaFloat>(prop);
    case PropKind::FloatRange:
        return range<oaFloat>(prop);
    case PropKind::String:
    case PropKind::Enum:
        return std::string(text(0));
    case PropKind::App:
        return hexadecimal(text(1));
    case PropKind::Double:
        return plain<oaDouble>(prop);
    case PropKind::DoubleRange:
        return range<oaDouble>(prop);
    case PropKind::Boolean:
        return prop.value.get<oaBoolean>() ? "true" : "false";
    case PropKind::Time:
        return plain<oaTime>(prop);
    case PropKind::TimeRange:
        return range<oaTime>(prop);
    case PropKind::Hier:
    case PropKind::Count:
        break;
    }
    return "hierProp";
}

} // namespace OpenAccess_4::impl
