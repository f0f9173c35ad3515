#include "tools/conformance/request_writer.h"

#include <bit>

namespace conformance {

namespace {

template <class Unsigned>
std::string littleEndian(Unsigned value) {
    std::string bytes;
    for (std::size_t place = 0; place < sizeof value; ++place)
        bytes += static_cast<char>(static_cast<unsigned char>(value >> (8 * place)));
    return bytes;
}

std::string parameter(std::string_view name, char type, const std::string& value) {
    return text(name) + type + value;
}

} // namespace

std::string text(std::string_view value) {
    return std::string(value) + '\0';
}

std::string integer(std::int32_t value) {
    return littleEndian(static_cast<std::uint32_t>(value));
}

std::string real(float value) {
    return littleEndian(std::bit_cast<std::uint32_t>(value));
}

std::string real(double value) {
    return littleEndian(std::bit_cast<std::uint64_t>(value));
}

std::string time(std::int64_t value) {
    return littleEndian(static_cast<std::uint64_t>(value));
}

std::string liveness() {
    return std::string(1, '\0');
}

std::string setWorkingDirectory(std::string_view path) {
    return '\1' + text(path);
}

std::string setLibraryDefinitions(std::string_view path) {
    return '\2' + text(path);
}

std::string canEvaluate(std::string_view pcellType) {
    return '\3' + text(pcellType);
}

std::string evaluate(std::string_view library, std::string_view cell, std::string_view view) {
    return '\4' + text(library) + text(cell) + text(view);
}

std::string integerParameter(std::string_view name, std::int32_t value) {
    return parameter(name, '\0', integer(value));
}

std::string floatParameter(std::string_view name, float value) {
    return parameter(name, '\1', real(value));
}

std::string textParameter(std::string_view name, std::string_view value) {
    return parameter(name, '\2', text(value));
}

std::string applicationParameter(std::string_view name, std::string_view type,
                                 std::string_view bytes) {
    return parameter(name, '\3',
                     text(type) + integer(static_cast<std::int32_t>(bytes.size())) +
                         std::string(bytes));
}

std::string doubleParameter(std::string_view name, double value) {
    return parameter(name, '\4', real(value));
}

std::string booleanParameter(std::string_view name, bool value) {
    return parameter(name, '\5', std::string(1, value ? '\1' : '\0'));
}

std::string timeParameter(std::string_view name, std::int64_t value) {
    return parameter(name, '\6', time(value));
}

} // namespace conformance
