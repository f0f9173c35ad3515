#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <stdexcept>
#include <string>
#include <variant>
#include <vector>

namespace broker {

/// What a request asks for: its first byte.
enum class Command : std::uint8_t {
    liveness,
    setWorkingDirectory,
    setLibraryDefinitions,
    canEvaluate,
    evaluate,
};

/// A parameter value that only one application understands.
struct ApplicationValue {
    std::string type;
    std::string bytes;

    friend bool operator==(const ApplicationValue&, const ApplicationValue&) = default;
};

/// A point in time as the database counts it.
struct TimeValue {
    std::int64_t count = 0;

    friend bool operator==(const TimeValue&, const TimeValue&) = default;
};

/// The alternatives stand in the order of their type bytes.
using Value =
    std::variant<std::int32_t, float, std::string, ApplicationValue, double, bool, TimeValue>;

struct Parameter {
    std::string name;
    Value value;

    friend bool operator==(const Parameter&, const Parameter&) = default;
};

struct Request {
    Command command = Command::liveness;
    std::string text; ///< of a set-up request or a question: directory, list or pcell type
    std::string library;
    std::string cell;
    std::string view;
    std::vector<Parameter> parameters;
    std::string bytes; ///< everything as it arrived

    friend bool operator==(const Request&, const Request&) = default;
};

/// More than any host sends; whoever goes beyond it is not answered.
struct RequestLimits {
    std::size_t text = std::size_t{1} << 24;
    std::size_t parameters = std::size_t{1} << 16;
    std::size_t request = std::size_t{1} << 26;
};

/// Bytes that are no request.
class MalformedRequest : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Fills in up to so many bytes, at least one, and answers how many; 0 at the end.
using ByteSource = std::function<std::size_t(char*, std::size_t)>;

/// Takes requests apart as they arrive. Memory grows with what has arrived, never with what a
/// length announces.
class RequestReader {
public:
    explicit RequestReader(ByteSource byteSource, const RequestLimits& requestLimits = {});

    /// The next request, or nothing when the bytes end before one.
    /// @throws MalformedRequest  the bytes are none, or end inside of one
    std::optional<Request> next();

    /// One terminated text that stands between requests; nothing at the end of the bytes.
    /// @throws MalformedRequest
    std::optional<std::string> nextText();

private:
    bool fill();
    bool atEnd();
    void begin();
    char byte();
    void bytes(std::string& result, std::size_t size);
    std::string text();
    template <class Number>
    Number number();
    void readParameters(std::vector<Parameter>& parameters);
    Parameter readParameter();
    Value readValue(std::uint8_t type);

    ByteSource source;
    RequestLimits limits;
    std::vector<char> buffer;
    std::size_t next_ = 0;
    std::size_t filled = 0;
    std::string arrived; // of the present request
};

} // namespace broker
