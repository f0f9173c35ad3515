#include "broker/wire.h"

#include <stdexcept>

#include "core/param_encoding.h"
#include "core/stream_failure.h"

namespace pcellBrokerClient {

namespace {

using ovalis::StreamFailure;
using Traits = std::streambuf::traits_type;

/// What encodings are written to.
struct StreamSink {
    std::streambuf& stream;

    void byte(unsigned char value) { writeByte(stream, value); }

    void bytes(const void* data, std::size_t size) {
        const auto count = static_cast<std::streamsize>(size);
        if (stream.sputn(static_cast<const char*>(data), count) != count) {
            throw StreamFailure("std::streambuf::sputn failed");
        }
    }
};

} // namespace

void writeByte(std::streambuf& stream, unsigned char value) {
    if (Traits::eq_int_type(stream.sputc(static_cast<char>(value)), Traits::eof())) {
        throw StreamFailure("std::streambuf::sputc failed");
    }
}

void writeCommand(std::streambuf& stream, Command command) {
    writeByte(stream, static_cast<unsigned char>(command));
}

void writeInteger(std::streambuf& stream, std::int32_t value) {
    StreamSink sink{stream};
    ovalis::encodeNumber(sink, value);
}

void writeText(std::streambuf& stream, const char* text) {
    StreamSink sink{stream};
    ovalis::encodeText(sink, text);
}

void writeParamArray(std::streambuf& stream, const oa::oaParamArray& params) {
    const oa::oaUInt4 count = params.getNumElements();
    writeInteger(stream, static_cast<std::int32_t>(count));
    oa::oaString name;
    for (oa::oaUInt4 i = 0; i < count; ++i) {
        const oa::oaUInt4 type = params[i].getType();
        params[i].getName(name);
        writeText(stream, name);
        writeByte(stream, static_cast<unsigned char>(type));
        writeParamValue(stream, type, params[i]);
    }
}

void writeParamValue(std::streambuf& stream, oa::oaUInt4 type, const oa::oaParam& param) {
    StreamSink sink{stream};
    if (!ovalis::encodeParamValue(sink, type, param)) {
        throw std::runtime_error(
            "pcellBrokerCommon::serializeOaParamArray: unsupported parameter type " +
            std::to_string(type));
    }
}

void flush(std::streambuf& stream) {
    if (stream.pubsync() == -1) {
        throw std::runtime_error("std::streambuf::pubsync failed");
    }
}

unsigned char readByte(std::streambuf& stream) {
    const Traits::int_type value = stream.sbumpc();
    if (Traits::eq_int_type(value, Traits::eof())) {
        throw StreamFailure("std::streambuf::sbumpc failed");
    }
    return static_cast<unsigned char>(Traits::to_char_type(value));
}

std::string readText(std::streambuf& stream) {
    std::string text;
    for (char c = static_cast<char>(readByte(stream)); c != '\0';
         c = static_cast<char>(readByte(stream))) {
        if (text.size() == longestText) {
            throw StreamFailure("std::streambuf::sbumpc failed");
        }
        text += c;
    }
    return text;
}

} // namespace pcellBrokerClient
