#pragma once

#include <array>
#include <bit>
#include <concepts>
#include <cstring>
#include <vector>

#include <oa/oaDesignDB.h>

namespace ovalis {

/// Takes the bytes of an encoding: a buffer, or a stream that says what fails. One that has a
/// member `text` takes texts through it.
template <class Sink>
concept ByteSink = requires(Sink& sink, unsigned char value, const void* data, std::size_t size) {
    sink.byte(value);
    sink.bytes(data, size);
};

/// Writes a number of the language with its lowest byte first.
template <ByteSink Sink, class Number>
void encodeNumber(Sink& sink, Number value) {
    auto bytes = std::bit_cast<std::array<unsigned char, sizeof(Number)>>(value);
    if constexpr (std::endian::native == std::endian::big) {
        bytes = {bytes.rbegin(), bytes.rend()};
    }
    sink.bytes(bytes.data(), bytes.size());
}

/// Writes a text and the zero byte behind it.
template <ByteSink Sink>
void encodeText(Sink& sink, const char* text) {
    if constexpr (requires { sink.text(text); }) {
        sink.text(text);
    } else {
        sink.bytes(text, std::strlen(text) + 1);
    }
}

/// Writes the application type, the number of bytes and the bytes.
template <ByteSink Sink>
void encodeAppValue(Sink& sink, const oa::oaParam& param) {
    oa::oaString appType;
    param.getAppType(appType);
    encodeText(sink, appType);
    std::vector<oa::oaByte> bytes(param.getNumBytes());
    encodeNumber(sink, static_cast<oa::oaUInt4>(bytes.size()));
    param.getAppVal(bytes.data());
    if (!bytes.empty()) {
        sink.bytes(bytes.data(), bytes.size());
    }
}

/// Writes the value of a parameter whose type is `type`; false, and nothing written, when no
/// encoding is laid down for that type.
template <ByteSink Sink>
[[nodiscard]] bool encodeParamValue(Sink& sink, oa::oaUInt4 type, const oa::oaParam& param) {
    switch (type) {
    case oa::oacIntParamType:
        encodeNumber(sink, param.getIntVal());
        return true;
    case oa::oacFloatParamType:
        encodeNumber(sink, param.getFloatVal());
        return true;
    case oa::oacStringParamType:
        encodeText(sink, param.getStringVal());
        return true;
    case oa::oacAppParamType:
        encodeAppValue(sink, param);
        return true;
    case oa::oacDoubleParamType:
        encodeNumber(sink, param.getDoubleVal());
        return true;
    case oa::oacBooleanParamType:
        sink.byte(param.getBooleanVal() ? 1 : 0);
        return true;
    case oa::oacTimeParamType:
        encodeNumber(sink, param.getTimeVal());
        return true;
    default:
        return false;
    }
}

} // namespace ovalis
