#pragma once

#include "oaBaseTypes.h"

#include <cstdarg>
#include <string>

namespace OpenAccess_4 {

/// A text of narrow characters that ends with a zero byte.
///
/// The room of a string (getSize) may be larger than its text (getLength): code that writes
/// through operator[] makes room with resize() and puts the terminating zero itself.
class OA_API oaString {
public:
    oaString() = default;
    /// Makes an empty text with room for `length` characters.
    explicit oaString(oaUInt4 length);
    /// Copies `initial`; a null pointer gives an empty text.
    oaString(const oaChar* initial);
    /// Copies `length` characters of `initial`, fewer when it ends before.
    oaString(const oaChar* initial, oaUInt4 length);

    /// The text itself, valid until the string is changed.
    operator const oaChar*() const { return room_.c_str(); }
    /// The character at `i`, which lies below getSize().
    const oaChar& operator[](oaUInt4 i) const { return room_[i]; }
    oaChar& operator[](oaUInt4 i) { return room_[i]; }

    oaString& operator=(oaChar c);
    oaString& operator=(const oaChar* text);
    oaString& operator+=(oaChar c);
    oaString& operator+=(const oaChar* text);
    oaString& operator+=(const oaString& text);

    bool operator==(const oaString& other) const { return compare(other) == 0; }
    bool operator!=(const oaString& other) const { return compare(other) != 0; }
    bool operator<(const oaString& other) const { return compare(other) < 0; }
    bool operator>(const oaString& other) const { return compare(other) > 0; }
    bool operator<=(const oaString& other) const { return compare(other) <= 0; }
    bool operator>=(const oaString& other) const { return compare(other) >= 0; }
    bool operator==(const oaChar* other) const { return compare(other) == 0; }
    bool operator!=(const oaChar* other) const { return compare(other) != 0; }
    bool operator<(const oaChar* other) const { return compare(other) < 0; }
    bool operator>(const oaChar* other) const { return compare(other) > 0; }
    bool operator<=(const oaChar* other) const { return compare(other) <= 0; }
    bool operator>=(const oaChar* other) const { return compare(other) >= 0; }

    /// The number of characters before the terminating zero.
    oaUInt4 getLength() const;
    /// The number of characters that there is room for.
    oaUInt4 getSize() const { return static_cast<oaUInt4>(room_.size()); }
    /// Changes the room to `size` characters; the text is kept as far as it fits.
    void resize(oaUInt4 size);
    oaBoolean isEmpty() const { return *room_.c_str() == '\0'; }

    /// The number at the beginning of the text, read as atoi and atof do.
    int toInt() const;
    oaDouble toDouble() const;

    /// Changes the ASCII letters in place.
    void toUpper();
    void toLower();

    /// The position of the first `c` at or after `offset`; getLength() when there is none.
    oaUInt4 index(oaChar c, oaUInt4 offset = 0) const;
    /// The position of the first `sub` at or after `offset`; getLength() when there is none.
    oaUInt4 substr(const oaString& sub, oaUInt4 offset = 0) const;
    /// Compares, on request without regard to the case of ASCII letters.
    oaBoolean isEqual(const oaString& other, oaBoolean ignoreCase) const;

    /// Replaces the text by what printf would write. A `format` of null gives an empty text.
    void format(const oaChar* format, ...);
    /// The same, cut after `size` characters.
    void format(oaUInt4 size, const oaChar* format, ...);

private:
    int compare(const oaChar* other) const;

    // Its size is the room; the text ends at the first zero byte in it.
    std::string room_;
};

inline oaString operator+(const oaString& left, const oaString& right) {
    oaString sum(left);
    sum += right;
    return sum;
}
inline oaString operator+(const oaString& left, const oaChar* right) {
    oaString sum(left);
    sum += right;
    return sum;
}
inline oaString operator+(const oaChar* left, const oaString& right) {
    oaString sum(left);
    sum += right;
    return sum;
}

inline bool operator==(const oaChar* left, const oaString& right) {
    return right == left;
}
inline bool operator!=(const oaChar* left, const oaString& right) {
    return right != left;
}
inline bool operator<(const oaChar* left, const oaString& right) {
    return right > left;
}
inline bool operator>(const oaChar* left, const oaString& right) {
    return right < left;
}
inline bool operator<=(const oaChar* left, const oaString& right) {
    return right >= left;
}
inline bool operator>=(const oaChar* left, const oaString& right) {
    return right <= left;
}

} // namespace OpenAccess_4
