#pragma once

#include <cstdint>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

namespace component {

/// A file that cannot be used. The text is one line that begins with the file's name.
class InputError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// A parsed JSON file together with the name that its errors carry.
struct JsonDocument {
    std::string fileName;
    nlohmann::json root;
};

/// Reads and parses a whole file.
/// @throws InputError  the file cannot be read, is not JSON, which is told with line and column, or
///                     has an object that gives a key twice.
JsonDocument readJson(const std::string& file);

/// A value inside a document that knows its JSON pointer, so that every complaint can name it.
///
/// - `node["key"]` and `node[3]` go down; a key that is not there gives an absent node.
/// - The readers answer a value of the wanted type, or throw `InputError`.
/// - `fail` is for conditions that only the caller can judge.
class JsonNode {
public:
    explicit JsonNode(const JsonDocument& document);

    JsonNode operator[](const char* key) const;
    JsonNode operator[](std::size_t index) const;

    bool isAbsent() const { return value_ == nullptr; }
    const nlohmann::json& raw() const { return *value_; }
    const std::string& pointer() const { return pointer_; }

    void requireObject() const;
    /// Number of elements of an array.
    std::size_t size() const;
    /// The keys of an object, in byte order.
    std::vector<std::string> keys() const;
    /// Adds a remark for each key of an object that is not among `known`.
    void remarkUnknownKeys(const std::set<std::string>& known,
                           std::vector<std::string>& remarks) const;
    bool boolean() const;
    double real() const;
    std::int32_t int32() const;
    std::uint32_t uint32() const;
    /// A text without NUL or other control characters.
    std::string text() const;
    /// As `text`, and not empty.
    std::string name() const;
    /// A text as it stands, line breaks included; only NUL is refused.
    std::string freeText() const;
    /// The position of the text among `choices`.
    std::size_t choice(const std::vector<std::string>& choices) const;

    bool booleanOr(bool fallback) const { return isAbsent() ? fallback : boolean(); }
    std::string textOr(const std::string& fallback) const { return isAbsent() ? fallback : text(); }

    /// Throws "FILE: POINTER: expected WHAT, found ...".
    [[noreturn]] void fail(const std::string& expected) const;
    /// One line "FILE: POINTER: TEXT", for remarks that are not errors.
    std::string remark(const std::string& text) const;

private:
    JsonNode(const JsonDocument& document, const nlohmann::json* value, std::string pointer);

    std::int64_t integer(std::int64_t lowest, std::int64_t highest) const;

    const JsonDocument* document_;
    const nlohmann::json* value_;
    std::string pointer_;
};

} // namespace component
