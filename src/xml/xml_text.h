#pragma once

#include <array>
#include <charconv>
#include <concepts>
#include <cstring>
#include <iosfwd>
#include <string>
#include <string_view>

#include <oa/oaDesignDB.h>

namespace ovalis {

/// Takes a text as it is made and gives it on in large pieces: to a string, which is the only copy
/// of the text that there is, to a stream, or to nobody when only its size is asked for.
class XmlText {
public:
    XmlText() = default;
    explicit XmlText(std::string& text) : text_(&text) {}
    explicit XmlText(std::ostream& stream) : stream_(&stream) {}
    XmlText(const XmlText&) = delete;
    XmlText& operator=(const XmlText&) = delete;

    void put(std::string_view piece) {
        if (piece.size() > std::size_t(end() - next_)) {
            putSlowly(piece);
            return;
        }
        std::memcpy(next_, piece.data(), piece.size());
        next_ += piece.size();
    }
    void put(const char* piece) { put(std::string_view(piece)); }
    void put(const oa::oaString& piece) { put(static_cast<const oa::oaChar*>(piece)); }

    template <std::integral Integer>
    void put(Integer number) {
        if (std::size_t(end() - next_) < longestNumber) {
            flush();
        }
        next_ = std::to_chars(next_, end(), number).ptr;
    }
    void put(bool flag) { put(flag ? "1" : "0"); }
    /// With six digits, as streams write it.
    void put(double number) {
        if (std::size_t(end() - next_) < longestNumber) {
            flush();
        }
        next_ = std::to_chars(next_, end(), number, std::chars_format::general, 6).ptr;
    }
    void put(float number) { put(static_cast<double>(number)); }
    void put(const oa::oaPoint& point) {
        put(point.x());
        put(",");
        put(point.y());
    }

    /// Writes what stands before a value, the value and the closing quote.
    template <class Value>
    void attribute(std::string_view prefix, const Value& value) {
        put(prefix);
        put(value);
        put("\"");
    }
    /// The same on a line of its own, which ends before it.
    template <class Value>
    void lineAttribute(std::string_view prefix, const Value& value) {
        put("\n");
        attribute(prefix, value);
    }

    /// True when the text becomes a string, which has to have its room before it is large: one that
    /// grows is there twice for a moment.
    bool needsRoom() const { return text_ != nullptr; }
    /// Gives the string room for so many further bytes. Room that is never touched takes no memory.
    void reserve(std::size_t further);

    std::size_t size() const { return given_ + std::size_t(next_ - staging_.data()); }

    /// Gives on what is not given on yet.
    void flush();

private:
    static constexpr std::size_t longestNumber = 32;

    char* end() { return staging_.data() + staging_.size(); }
    void putSlowly(std::string_view piece);
    void give(std::string_view piece);

    std::string* text_ = nullptr;
    std::ostream* stream_ = nullptr;
    std::size_t given_ = 0;
    std::array<char, 16384> staging_;
    char* next_ = staging_.data();
};

} // namespace ovalis
