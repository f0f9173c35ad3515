#include "component/json_node.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace component {
namespace {

constexpr std::size_t longestQuote = 40;

std::string quoted(const std::string& text) {
    using Handler = nlohmann::json::error_handler_t;
    const std::string whole = nlohmann::json(text).dump(-1, ' ', false, Handler::replace);
    if (whole.size() <= longestQuote)
        return whole;
    std::size_t cut = longestQuote;
    while (cut > 0 && (static_cast<unsigned char>(whole[cut]) & 0xC0) == 0x80)
        --cut;
    return whole.substr(0, cut) + "...\"";
}

std::string describe(const nlohmann::json& value) {
    switch (value.type()) {
    case nlohmann::json::value_t::object:
        return "an object";
    case nlohmann::json::value_t::array:
        return value.size() == 1 ? "an array of 1 element"
                                 : "an array of " + std::to_string(value.size()) + " elements";
    case nlohmann::json::value_t::string:
        return quoted(value.get_ref<const std::string&>());
    default:
        return value.dump();
    }
}

std::string escaped(std::string key) {
    for (std::size_t at = 0; at < key.size(); ++at) {
        if (key[at] == '~')
            key.replace(at++, 1, "~0");
        else if (key[at] == '/')
            key.replace(at++, 1, "~1");
    }
    return key;
}

} // namespace

JsonNode::JsonNode(const JsonDocument& document) : JsonNode(document, &document.root, "") {}

JsonNode::JsonNode(const JsonDocument& document, const nlohmann::json* value, std::string pointer)
    : document_(&document), value_(value), pointer_(std::move(pointer)) {}

JsonNode JsonNode::operator[](const char* key) const {
    requireObject();
    const auto found = value_->find(key);
    const nlohmann::json* child = found == value_->end() ? nullptr : &*found;
    return {*document_, child, pointer_ + "/" + escaped(key)};
}

JsonNode JsonNode::operator[](std::size_t index) const {
    return {*document_, &(*value_)[index], pointer_ + "/" + std::to_string(index)};
}

void JsonNode::requireObject() const {
    if (isAbsent() || !value_->is_object())
        fail("an object");
}

std::size_t JsonNode::size() const {
    if (isAbsent() || !value_->is_array())
        fail("an array");
    return value_->size();
}

std::vector<std::string> JsonNode::keys() const {
    requireObject();
    std::vector<std::string> keys;
    for (const auto& [key, value] : value_->items())
        keys.push_back(key);
    return keys;
}

void JsonNode::remarkUnknownKeys(const std::set<std::string>& known,
                                 std::vector<std::string>& remarks) const {
    for (const std::string& key : keys())
        if (!known.contains(key))
            remarks.push_back(
                (*this)[key.c_str()].remark("this key means nothing here and is ignored"));
}

bool JsonNode::boolean() const {
    if (isAbsent() || !value_->is_boolean())
        fail("true or false");
    return value_->get<bool>();
}

double JsonNode::real() const {
    if (isAbsent() || !value_->is_number() || !std::isfinite(value_->get<double>()))
        fail("a number");
    return value_->get<double>();
}

std::int64_t JsonNode::integer(std::int64_t lowest, std::int64_t highest) const {
    const std::string range =
        "an integer from " + std::to_string(lowest) + " to " + std::to_string(highest);
    if (isAbsent() || !value_->is_number_integer())
        fail(range);
    const bool huge = value_->is_number_unsigned() &&
                      value_->get<std::uint64_t>() > static_cast<std::uint64_t>(highest);
    if (huge || value_->get<std::int64_t>() < lowest || value_->get<std::int64_t>() > highest)
        fail(range);
    return value_->get<std::int64_t>();
}

std::int32_t JsonNode::int32() const {
    using Limits = std::numeric_limits<std::int32_t>;
    return static_cast<std::int32_t>(integer(Limits::min(), Limits::max()));
}

std::uint32_t JsonNode::uint32() const {
    return static_cast<std::uint32_t>(integer(0, std::numeric_limits<std::uint32_t>::max()));
}

std::string JsonNode::freeText() const {
    if (isAbsent() || !value_->is_string())
        fail("a text");
    const auto& text = value_->get_ref<const std::string&>();
    if (text.find('\0') != std::string::npos)
        fail("a text without the character U+0000");
    return text;
}

std::string JsonNode::text() const {
    std::string text = freeText();
    if (std::any_of(text.begin(), text.end(), [](unsigned char c) { return c < 32 || c == 127; }))
        fail("a text without control characters");
    return text;
}

std::string JsonNode::name() const {
    std::string text = this->text();
    if (text.empty())
        fail("a text that is not empty");
    return text;
}

std::size_t JsonNode::choice(const std::vector<std::string>& choices) const {
    std::string expected;
    for (const std::string& choice : choices)
        expected += (expected.empty() ? "\"" : ", \"") + choice + "\"";
    if (choices.size() > 1)
        expected = "one of " + expected;
    if (isAbsent() || !value_->is_string())
        fail(expected);
    const auto found =
        std::find(choices.begin(), choices.end(), value_->get_ref<const std::string&>());
    if (found == choices.end())
        fail(expected);
    return static_cast<std::size_t>(found - choices.begin());
}

void JsonNode::fail(const std::string& expected) const {
    const std::string found = isAbsent() ? "no such key" : "found " + describe(*value_);
    throw InputError(remark("expected " + expected + ", " + found));
}

std::string JsonNode::remark(const std::string& text) const {
    return document_->fileName + ": " + (pointer_.empty() ? "" : pointer_ + ": ") + text;
}

} // namespace component
