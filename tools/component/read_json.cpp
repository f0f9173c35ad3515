#include <algorithm>
#include <iterator>

#include "component/json_node.h"
#include "platform/file.h"

namespace component {
namespace {

using nlohmann::json;

std::string readBytes(const std::string& file) {
    if (!platform::exists(file))
        throw InputError(file + ": no such file");
    if (platform::isDirectory(file))
        throw InputError(file + ": expected a file, found a directory");
    // Reading a pipe waits for somebody who writes, for ever if need be.
    if (!platform::isFile(file))
        throw InputError(file + ": is no file");
    try {
        return platform::readFile(file);
    } catch (const platform::SystemFailure& failure) {
        throw InputError(file + ": cannot be read, " + failure.error().text());
    }
}

/// The parser's own words without its prefix, which repeats the position.
std::string reason(const json::exception& error) {
    std::string text = error.what();
    if (const auto bracket = text.find("] "); bracket != std::string::npos)
        text.erase(0, bracket + 2);
    if (text.starts_with("parse error"))
        if (const auto colon = text.find(": "); colon != std::string::npos)
            text.erase(0, colon + 2);
    std::replace_if(
        text.begin(), text.end(), [](unsigned char c) { return c < 32; }, ' ');
    return text;
}

std::string position(const std::string& bytes, std::size_t offset) {
    const auto end = bytes.begin() + static_cast<std::ptrdiff_t>(std::min(offset, bytes.size()));
    const auto line = 1 + std::count(bytes.begin(), end, '\n');
    const auto lastBreak = std::find(std::make_reverse_iterator(end), bytes.rend(), '\n');
    const auto column = lastBreak - std::make_reverse_iterator(end);
    return "line " + std::to_string(line) + ", column " + std::to_string(column + 1);
}

/// Builds the value as the parser's own reader does, and refuses a key that an object has already:
/// whoever wrote it meant both.
class Builder : public json::json_sax_t {
public:
    Builder(const std::string& fileName, const std::string& bytes, json& root)
        : fileName_(fileName), bytes_(bytes), root_(root) {}

    bool null() override { return add(nullptr); }
    bool boolean(bool value) override { return add(value); }
    bool number_integer(json::number_integer_t value) override { return add(value); }
    bool number_unsigned(json::number_unsigned_t value) override { return add(value); }
    bool number_float(json::number_float_t value, const json::string_t&) override {
        return add(value);
    }
    bool string(json::string_t& value) override { return add(std::move(value)); }
    bool binary(json::binary_t& value) override { return add(std::move(value)); }

    bool start_object(std::size_t) override { return open(json::object()); }
    bool key(json::string_t& key) override {
        const auto [place, isNew] = open_.back()->emplace(key, nullptr);
        slots_.back() = {key, &*place};
        if (!isNew)
            throw InputError(fileName_ + ": " + pointer() +
                             ": expected the key once, found it twice");
        return true;
    }
    bool end_object() override { return close(); }

    bool start_array(std::size_t) override { return open(json::array()); }
    bool end_array() override { return close(); }

    bool parse_error(std::size_t read, const std::string& token,
                     const json::exception& error) override {
        std::size_t offset = read > 0 ? read - 1 : 0;
        // Of a number that is too large the last digit is where the parser stands.
        if (dynamic_cast<const json::out_of_range*>(&error) != nullptr)
            offset -= std::min(offset, token.size() - 1);
        throw InputError(fileName_ + ": " + position(bytes_, offset) + ": broken JSON, " +
                         reason(error));
    }

private:
    /// Where the next value of an open object goes.
    struct Slot {
        std::string key;
        json* value = nullptr;
    };

    json& place(json value) {
        if (open_.empty())
            return root_ = std::move(value);
        if (open_.back()->is_array())
            return open_.back()->emplace_back(std::move(value));
        return *slots_.back().value = std::move(value);
    }

    bool add(json value) {
        place(std::move(value));
        return true;
    }

    bool open(json value) {
        open_.push_back(&place(std::move(value)));
        slots_.emplace_back();
        return true;
    }

    bool close() {
        open_.pop_back();
        slots_.pop_back();
        return true;
    }

    /// Of the value that is being read.
    std::string pointer() const {
        json::json_pointer pointer;
        for (std::size_t depth = 0; depth < open_.size(); ++depth) {
            if (open_[depth]->is_array())
                pointer /= open_[depth]->size() - 1;
            else
                pointer /= slots_[depth].key;
        }
        return pointer.to_string();
    }

    const std::string& fileName_;
    const std::string& bytes_;
    json& root_;
    /// The arrays and objects around the value that is being read, each with its slot.
    std::vector<json*> open_;
    std::vector<Slot> slots_;
};

} // namespace

JsonDocument readJson(const std::string& file) {
    JsonDocument document{file, {}};
    const std::string bytes = readBytes(file);
    Builder builder(file, bytes, document.root);
    json::sax_parse(bytes, &builder);
    return document;
}

} // namespace component
