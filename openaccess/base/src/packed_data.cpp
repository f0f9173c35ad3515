#include "oaPackedData.h"

#include "oaBox.h"
#include "oaException.h"

#include <algorithm>
#include <cstring>

namespace OpenAccess_4 {

oaPackedData::oaPackedData(oaByte* data, oaUInt4 size, oaBoolean swap)
    : data_(data), size_(size), swap_(swap) {}

oaByte* oaPackedData::at(oaUInt4 loc, oaUInt8 numBytes) const {
    if (loc > size_ || numBytes > size_ - loc) {
        const oaUInt4 shown = static_cast<oaUInt4>(std::min<oaUInt8>(numBytes, UINT_MAX));
        throw oaError(oacPackedDataOverrun, shown, loc, size_);
    }
    return data_ + loc;
}

template <class T>
void oaPackedData::readValue(oaUInt4& loc, T& val) const {
    oaByte bytes[sizeof(T)];
    std::memcpy(bytes, at(loc, sizeof(T)), sizeof(T));
    if (swap_)
        std::reverse(bytes, bytes + sizeof(T));
    std::memcpy(&val, bytes, sizeof(T));
    loc += sizeof(T);
}

template <class T>
void oaPackedData::writeValue(oaUInt4& loc, T val) const {
    oaByte* const target = at(loc, sizeof(T));
    std::memcpy(target, &val, sizeof(T));
    if (swap_)
        std::reverse(target, target + sizeof(T));
    loc += sizeof(T);
}

void oaPackedData::readByte(oaUInt4& loc, oaByte& val) const {
    readValue(loc, val);
}

void oaPackedData::readInt2(oaUInt4& loc, oaInt2& val) const {
    readValue(loc, val);
}

void oaPackedData::readUInt2(oaUInt4& loc, oaUInt2& val) const {
    readValue(loc, val);
}

void oaPackedData::readInt4(oaUInt4& loc, oaInt4& val) const {
    readValue(loc, val);
}

void oaPackedData::readUInt4(oaUInt4& loc, oaUInt4& val) const {
    readValue(loc, val);
}

void oaPackedData::readInt8(oaUInt4& loc, oaInt8& val) const {
    readValue(loc, val);
}

void oaPackedData::readUInt8(oaUInt4& loc, oaUInt8& val) const {
    readValue(loc, val);
}

void oaPackedData::readFloat(oaUInt4& loc, oaFloat& val) const {
    readValue(loc, val);
}

void oaPackedData::readDouble(oaUInt4& loc, oaDouble& val) const {
    readValue(loc, val);
}

void oaPackedData::readTime(oaUInt4& loc, oaTime& val) const {
    readValue(loc, val);
}

void oaPackedData::readPoint(oaUInt4& loc, oaPoint& val) const {
    at(loc, 2 * sizeof(oaCoord));
    readValue(loc, val.x());
    readValue(loc, val.y());
}

void oaPackedData::readBox(oaUInt4& loc, oaBox& val) const {
    at(loc, 4 * sizeof(oaCoord));
    readPoint(loc, val.lowerLeft());
    readPoint(loc, val.upperRight());
}

void oaPackedData::writeByte(oaUInt4& loc, oaByte val) const {
    writeValue(loc, val);
}

void oaPackedData::writeInt2(oaUInt4& loc, oaInt2 val) const {
    writeValue(loc, val);
}

void oaPackedData::writeUInt2(oaUInt4& loc, oaUInt2 val) const {
    writeValue(loc, val);
}

void oaPackedData::writeInt4(oaUInt4& loc, oaInt4 val) const {
    writeValue(loc, val);
}

void oaPackedData::writeUInt4(oaUInt4& loc, oaUInt4 val) const {
    writeValue(loc, val);
}

void oaPackedData::writeInt8(oaUInt4& loc, oaInt8 val) const {
    writeValue(loc, val);
}

void oaPackedData::writeUInt8(oaUInt4& loc, oaUInt8 val) const {
    writeValue(loc, val);
}

void oaPackedData::writeFloat(oaUInt4& loc, oaFloat val) const {
    writeValue(loc, val);
}

void oaPackedData::writeDouble(oaUInt4& loc, oaDouble val) const {
    writeValue(loc, val);
}

void oaPackedData::writeTime(oaUInt4& loc, oaTime val) const {
    writeValue(loc, val);
}

void oaPackedData::writePoint(oaUInt4& loc, const oaPoint& val) const {
    at(loc, 2 * sizeof(oaCoord));
    writeValue(loc, val.x());
    writeValue(loc, val.y());
}

void oaPackedData::writeBox(oaUInt4& loc, const oaBox& val) const {
    at(loc, 4 * sizeof(oaCoord));
    writePoint(loc, val.lowerLeft());
    writePoint(loc, val.upperRight());
}

void oaPackedData::readByteArray(oaUInt4& loc, oaUInt4 numBytes, oaByte* val) const {
    readBytes(loc, numBytes, val);
    loc += std::min((4 - loc % 4) % 4, size_ - loc);
}

void oaPackedData::writeByteArray(oaUInt4& loc, oaUInt4 numBytes, const oaByte* val) const {
    writeBytes(loc, numBytes, val);
    const oaUInt4 padding = std::min((4 - loc % 4) % 4, size_ - loc);
    std::fill_n(data_ + loc, padding, oaByte(0));
    loc += padding;
}

void oaPackedData::readBytes(oaUInt4& loc, oaUInt4 numBytes, oaByte* val) const {
    std::copy_n(at(loc, numBytes), numBytes, val);
    loc += numBytes;
}

void oaPackedData::writeBytes(oaUInt4& loc, oaUInt4 numBytes, const oaByte* val) const {
    std::copy_n(val, numBytes, at(loc, numBytes));
    loc += numBytes;
}

void oaPackedData::readString(oaUInt4& loc, oaString& val) const {
    const oaByte* const start = at(loc, 1);
    const oaByte* const end = data_ + size_;
    const oaByte* const zero = std::find(start, end, oaByte(0));
    at(loc, static_cast<oaUInt8>(zero - start) + 1); // refuses a text that does not end
    val = reinterpret_cast<const oaChar*>(start);
    loc += static_cast<oaUInt4>(zero - start) + 1;
}

void oaPackedData::writeString(oaUInt4& loc, const oaString& val) const {
    const oaUInt8 numBytes = oaUInt8(val.getLength()) + 1;
    std::memcpy(at(loc, numBytes), static_cast<const oaChar*>(val), numBytes);
    loc += static_cast<oaUInt4>(numBytes);
}

} // namespace OpenAccess_4
