#include "evaluation/identity.h"

#include <bit>
#include <charconv>
#include <cstdint>
#include <stdexcept>

#include <ovalis/core.h>

namespace evaluation {
namespace {

template <class Number>
std::string numberText(Number value) {
    char text[64];
    const std::to_chars_result result = std::to_chars(text, text + sizeof text, value);
    return {text, result.ptr};
}

/// Of a design, or of the master that an instance names.
template <class Named>
DesignName namesIn(const Named& named) {
    const oa::oaNativeNS names;
    oa::oaString library;
    oa::oaString cell;
    oa::oaString view;
    named.getLibName(names, library);
    named.getCellName(names, cell);
    named.getViewName(names, view);
    return {ovalis::fromOa(library), ovalis::fromOa(cell), ovalis::fromOa(view)};
}

/// Cuts one field after the other off the front.
class FieldReader {
public:
    explicit FieldReader(const std::string& bytes) : bytes_(bytes) {}

    bool atEnd() const { return place_ == bytes_.size(); }

    /// A text with its zero byte; answers the text.
    std::string text(const std::string& label) {
        const std::size_t zero = bytes_.find('\0', place_);
        if (zero == std::string::npos)
            fail();
        const std::string value = bytes_.substr(place_, zero - place_);
        add(label, zero + 1 - place_, "\"" + value + "\"");
        return value;
    }

    /// A number with its lowest byte first; answers its bits.
    template <class Number>
    Number number(const std::string& label) {
        const Number value = peek<Number>();
        add(label, sizeof(Number), numberText(value));
        return value;
    }

    /// A byte with a text that depends on it; answers the byte.
    template <class TextOf>
    unsigned byte(const std::string& label, TextOf textOf) {
        const unsigned value = peek<std::uint8_t>();
        add(label, 1, textOf(value));
        return value;
    }

    template <class Float, class Bits>
    void real(const std::string& label) {
        add(label, sizeof(Float), numberText(std::bit_cast<Float>(peek<Bits>())));
    }

    void data(const std::string& label, std::size_t size) {
        require(size);
        add(label, size, "");
    }

    std::vector<IdentityField> take() { return std::move(fields_); }

    [[noreturn]] static void fail() {
        throw std::runtime_error("these bytes identify no submaster");
    }

private:
    void require(std::size_t size) const {
        if (bytes_.size() - place_ < size)
            fail();
    }

    template <class Number>
    Number peek() const {
        require(sizeof(Number));
        std::uint64_t value = 0;
        for (std::size_t at = sizeof(Number); at-- > 0;)
            value = value << 8 | static_cast<unsigned char>(bytes_[place_ + at]);
        return static_cast<Number>(value);
    }

    void add(const std::string& label, std::size_t size, const std::string& text) {
        fields_.push_back({label, bytes_.substr(place_, size), text});
        place_ += size;
    }

    const std::string& bytes_;
    std::size_t place_ = 0;
    std::vector<IdentityField> fields_;
};

std::string typeText(unsigned type) {
    constexpr const char* names[] = {"int", "float", "string", "app", "double", "boolean", "time"};
    if (type > 6)
        FieldReader::fail();
    return names[type];
}

void readValue(FieldReader& reader, unsigned type, const std::string& parameter) {
    const std::string label = parameter + " value";
    switch (type) {
    case oa::oacIntParamType:
        reader.number<std::int32_t>(label);
        break;
    case oa::oacFloatParamType:
        reader.real<float, std::uint32_t>(label);
        break;
    case oa::oacStringParamType:
        reader.text(label);
        break;
    case oa::oacAppParamType:
        reader.text(parameter + " app type");
        reader.data(label, reader.number<std::uint32_t>(parameter + " size"));
        break;
    case oa::oacDoubleParamType:
        reader.real<double, std::uint64_t>(label);
        break;
    case oa::oacBooleanParamType:
        reader.byte(label, [](unsigned value) { return value != 0 ? "true" : "false"; });
        break;
    default:
        reader.number<std::int64_t>(label);
        break;
    }
}

} // namespace

DesignName nameOf(const oa::oaDesign& design) {
    return namesIn(design);
}

DesignName masterNameOf(const oa::oaInst& inst) {
    return namesIn(inst);
}

std::vector<IdentityField> fieldsOf(const std::string& bytes) {
    FieldReader reader(bytes);
    for (const char* label : {"library", "cell", "view"})
        reader.text(label);
    reader.number<std::uint32_t>("parameters");
    for (int at = 1; !reader.atEnd(); ++at) {
        const std::string parameter = "parameter " + std::to_string(at);
        reader.text(parameter + " name");
        const unsigned type = reader.byte(parameter + " type", typeText);
        readValue(reader, type, parameter);
    }
    return reader.take();
}

} // namespace evaluation
