#pragma once

namespace oaCommon {

/// The 16-byte number of an interface. Equal bytes mean the same interface.
struct Guid {
    unsigned int data1;
    unsigned short data2;
    unsigned short data3;
    unsigned char data4[8];
};

inline bool operator==(const Guid& left, const Guid& right) {
    if (left.data1 != right.data1 || left.data2 != right.data2 || left.data3 != right.data3)
        return false;
    for (int i = 0; i < 8; ++i) {
        if (left.data4[i] != right.data4[i])
            return false;
    }
    return true;
}

inline bool operator!=(const Guid& left, const Guid& right) {
    return !(left == right);
}

} // namespace oaCommon
