#include "oaString.h"

#include "base/src/format.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace OpenAccess_4 {

namespace {

const oaChar* orEmpty(const oaChar* text) {
    return text ? text : "";
}

oaChar upper(oaChar c) {
    return c >= 'a' && c <= 'z' ? static_cast<oaChar>(c - 'a' + 'A') : c;
}

oaChar lower(oaChar c) {
    return c >= 'A' && c <= 'Z' ? static_cast<oaChar>(c - 'A' + 'a') : c;
}

} // namespace

oaString::oaString(oaUInt4 length) : room_(length, '\0') {}

oaString::oaString(const oaChar* initial) : room_(orEmpty(initial)) {}

oaString::oaString(const oaChar* initial, oaUInt4 length)
    : room_(orEmpty(initial), initial ? strnlen(initial, length) : 0) {}

oaString& oaString::operator=(oaChar c) {
    room_.assign(1, c);
    return *this;
}

oaString& oaString::operator=(const oaChar* text) {
    room_.assign(orEmpty(text));
    return *this;
}

oaString& oaString::operator+=(oaChar c) {
    room_.resize(getLength());
    room_.push_back(c);
    return *this;
}

oaString& oaString::operator+=(const oaChar* text) {
    const std::string added(orEmpty(text)); // `text` may point into this string
    room_.resize(getLength());
    room_ += added;
    return *this;
}

oaString& oaString::operator+=(const oaString& text) {
    return *this += static_cast<const oaChar*>(text);
}

oaUInt4 oaString::getLength() const {
    return static_cast<oaUInt4>(std::strlen(room_.c_str()));
}

void oaString::resize(oaUInt4 size) {
    room_.resize(size, '\0');
}

int oaString::toInt() const {
    const long long value = std::strtoll(room_.c_str(), nullptr, 10);
    return static_cast<int>(std::clamp<long long>(value, INT_MIN, INT_MAX));
}

oaDouble oaString::toDouble() const {
    return std::strtod(room_.c_str(), nullptr);
}

void oaString::toUpper() {
    std::transform(room_.begin(), room_.end(), room_.begin(), upper);
}

void oaString::toLower() {
    std::transform(room_.begin(), room_.end(), room_.begin(), lower);
}

oaUInt4 oaString::index(oaChar c, oaUInt4 offset) const {
    const oaUInt4 length = getLength();
    for (oaUInt4 i = offset; i < length; ++i) {
        if (room_[i] == c)
            return i;
    }
    return length;
}

oaUInt4 oaString::substr(const oaString& sub, oaUInt4 offset) const {
    const oaUInt4 length = getLength();
    if (offset > length)
        return length;
    const oaChar* hit = std::strstr(room_.c_str() + offset, sub);
    return hit ? static_cast<oaUInt4>(hit - room_.c_str()) : length;
}

oaBoolean oaString::isEqual(const oaString& other, oaBoolean ignoreCase) const {
    if (!ignoreCase)
        return *this == other;
    const oaUInt4 length = getLength();
    return length == other.getLength() &&
           std::equal(room_.c_str(), room_.c_str() + length, other.room_.c_str(),
                      [](oaChar a, oaChar b) { return lower(a) == lower(b); });
}

void oaString::format(const oaChar* format, ...) {
    va_list args;
    va_start(args, format);
    room_ = impl::formatted(format, args);
    va_end(args);
}

void oaString::format(oaUInt4 size, const oaChar* format, ...) {
    va_list args;
    va_start(args, format);
    room_ = impl::formatted(format, args);
    va_end(args);
    if (room_.size() > size)
        room_.resize(size);
}

int oaString::compare(const oaChar* other) const {
    return std::strcmp(room_.c_str(), orEmpty(other));
}

} // namespace OpenAccess_4
