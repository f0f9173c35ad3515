#include "tools/broker/request.h"

#include <algorithm>
#include <bit>
#include <cstring>

namespace broker {

static_assert(std::endian::native == std::endian::little, "numbers travel little-endian");

namespace {

constexpr std::size_t bufferSize = std::size_t{1} << 16;

[[noreturn]] void refuse(const std::string& what) {
    throw MalformedRequest("malformed request: " + what);
}

} // namespace

RequestReader::RequestReader(ByteSource byteSource, const RequestLimits& requestLimits)
    : source(std::move(byteSource)), limits(requestLimits), buffer(bufferSize) {}

bool RequestReader::fill() {
    if (next_ == filled) {
        next_ = 0;
        filled = source(buffer.data(), buffer.size());
    }
    return next_ != filled;
}

bool RequestReader::atEnd() {
    return !fill();
}

void RequestReader::begin() {
    arrived.clear();
    arrived.shrink_to_fit();
}

char RequestReader::byte() {
    if (atEnd())
        refuse("it ends after " + std::to_string(arrived.size()) + " bytes");
    if (arrived.size() == limits.request)
        refuse("longer than " + std::to_string(limits.request) + " bytes");
    arrived += buffer[next_];
    return buffer[next_++];
}

void RequestReader::bytes(std::string& result, std::size_t size) {
    while (size > 0) {
        result += byte();
        const std::size_t more =
            std::min({--size, filled - next_, limits.request - arrived.size()});
        result.append(buffer.data() + next_, more);
        arrived.append(buffer.data() + next_, more);
        next_ += more;
        size -= more;
    }
}

std::string RequestReader::text() {
    std::string result;
    for (char c = byte(); c != 0; c = byte()) {
        if (result.size() == limits.text)
            refuse("a text longer than " + std::to_string(limits.text) + " bytes");
        result += c;
    }
    return result;
}

template <class Number>
Number RequestReader::number() {
    std::string read;
    bytes(read, sizeof(Number));
    Number result;
    std::memcpy(&result, read.data(), sizeof result);
    return result;
}

Value RequestReader::readValue(std::uint8_t type) {
    switch (type) {
    case 0:
        return number<std::int32_t>();
    case 1:
        return number<float>();
    case 2:
        return text();
    case 3: {
        ApplicationValue value;
        value.type = text();
        const auto size = number<std::int32_t>();
        if (size < 0)
            refuse("a value of " + std::to_string(size) + " bytes");
        bytes(value.bytes, static_cast<std::size_t>(size));
        return value;
    }
    case 4:
        return number<double>();
    case 5: {
        const char value = byte();
        if (value != 0 && value != 1)
            refuse("a truth value that is neither 0 nor 1");
        return value == 1;
    }
    case 6:
        return TimeValue{number<std::int64_t>()};
    default:
        refuse("parameter type " + std::to_string(type));
    }
}

Parameter RequestReader::readParameter() {
    Parameter parameter;
    parameter.name = text();
    parameter.value = readValue(static_cast<std::uint8_t>(byte()));
    return parameter;
}

void RequestReader::readParameters(std::vector<Parameter>& parameters) {
    const auto count = number<std::int32_t>();
    if (count > 0 && static_cast<std::size_t>(count) > limits.parameters)
        refuse(std::to_string(count) + " parameters");
    for (std::int32_t number = 0; number < count; ++number)
        parameters.push_back(readParameter());
}

std::optional<Request> RequestReader::next() {
    if (atEnd())
        return std::nullopt;
    begin();
    Request request;
    const auto command = static_cast<std::uint8_t>(byte());
    if (command > static_cast<std::uint8_t>(Command::evaluate))
        refuse("command " + std::to_string(command));
    request.command = static_cast<Command>(command);
    if (request.command == Command::evaluate) {
        request.library = text();
        request.cell = text();
        request.view = text();
        readParameters(request.parameters);
    } else if (request.command != Command::liveness) {
        request.text = text();
    }
    request.bytes = std::move(arrived);
    return request;
}

std::optional<std::string> RequestReader::nextText() {
    if (atEnd())
        return std::nullopt;
    begin();
    return text();
}

} // namespace broker
