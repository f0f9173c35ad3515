#pragma once

#include "oaPoint.h"
#include "oaString.h"

namespace OpenAccess_4 {

class oaBox;

/// Bytes that values are written to and read from, one behind the other.
///
/// Every member takes a position, reads or writes there, and moves the position behind it. Byte
/// order is that of the machine; where the data come from one with the other order, swap() is
/// set, and reading and writing turn the bytes of each value round. The functions that write are
/// const as those that read: the bytes belong to somebody else.
///
/// Every member throws oaError (oacPackedDataOverrun) instead of leaving the bytes, and then
/// leaves the position as it was.
class OA_API oaPackedData {
public:
    oaPackedData(oaByte* data, oaUInt4 size, oaBoolean swap = false);

    oaUInt4 size() const { return size_; }
    oaBoolean swap() const { return swap_; }
    oaBoolean& swap() { return swap_; }

    void readByte(oaUInt4& loc, oaByte& val) const;
    void readInt2(oaUInt4& loc, oaInt2& val) const;
    void readUInt2(oaUInt4& loc, oaUInt2& val) const;
    void readInt4(oaUInt4& loc, oaInt4& val) const;
    void readUInt4(oaUInt4& loc, oaUInt4& val) const;
    void readInt8(oaUInt4& loc, oaInt8& val) const;
    void readUInt8(oaUInt4& loc, oaUInt8& val) const;
    void readFloat(oaUInt4& loc, oaFloat& val) const;
    void readDouble(oaUInt4& loc, oaDouble& val) const;
    void readTime(oaUInt4& loc, oaTime& val) const;
    void readPoint(oaUInt4& loc, oaPoint& val) const;
    void readBox(oaUInt4& loc, oaBox& val) const;

    void writeByte(oaUInt4& loc, oaByte val) const;
    void writeInt2(oaUInt4& loc, oaInt2 val) const;
    void writeUInt2(oaUInt4& loc, oaUInt2 val) const;
    void writeInt4(oaUInt4& loc, oaInt4 val) const;
    void writeUInt4(oaUInt4& loc, oaUInt4 val) const;
    void writeInt8(oaUInt4& loc, oaInt8 val) const;
    void writeUInt8(oaUInt4& loc, oaUInt8 val) const;
    void writeFloat(oaUInt4& loc, oaFloat val) const;
    void writeDouble(oaUInt4& loc, oaDouble val) const;
    void writeTime(oaUInt4& loc, oaTime val) const;
    void writePoint(oaUInt4& loc, const oaPoint& val) const;
    void writeBox(oaUInt4& loc, const oaBox& val) const;

    /// `numElements` values, one behind the other.
    void readInt2Array(oaUInt4& loc, oaUInt4 numElements, oaInt2* val) const;
    void readUInt2Array(oaUInt4& loc, oaUInt4 numElements, oaUInt2* val) const;
    void readInt4Array(oaUInt4& loc, oaUInt4 numElements, oaInt4* val) const;
    void readUInt4Array(oaUInt4& loc, oaUInt4 numElements, oaUInt4* val) const;
    void readInt8Array(oaUInt4& loc, oaUInt4 numElements, oaInt8* val) const;
    void readUInt8Array(oaUInt4& loc, oaUInt4 numElements, oaUInt8* val) const;
    void readFloatArray(oaUInt4& loc, oaUInt4 numElements, oaFloat* val) const;
    void readDoubleArray(oaUInt4& loc, oaUInt4 numElements, oaDouble* val) const;
    void readPointArray(oaUInt4& loc, oaUInt4 numElements, oaPoint* val) const;
    void readBoxArray(oaUInt4& loc, oaUInt4 numElements, oaBox* val) const;
    void writeInt2Array(oaUInt4& loc, oaUInt4 numElements, const oaInt2* val) const;
    void writeUInt2Array(oaUInt4& loc, oaUInt4 numElements, const oaUInt2* val) const;
    void writeInt4Array(oaUInt4& loc, oaUInt4 numElements, const oaInt4* val) const;
    void writeUInt4Array(oaUInt4& loc, oaUInt4 numElements, const oaUInt4* val) const;
    void writeInt8Array(oaUInt4& loc, oaUInt4 numElements, const oaInt8* val) const;
    void writeUInt8Array(oaUInt4& loc, oaUInt4 numElements, const oaUInt8* val) const;
    void writeFloatArray(oaUInt4& loc, oaUInt4 numElements, const oaFloat* val) const;
    void writeDoubleArray(oaUInt4& loc, oaUInt4 numElements, const oaDouble* val) const;
    void writePointArray(oaUInt4& loc, oaUInt4 numElements, const oaPoint* val) const;
    void writeBoxArray(oaUInt4& loc, oaUInt4 numElements, const oaBox* val) const;

    /// `numBytes` bytes as they are; the position moves on to the next multiple of 4 behind them,
    /// or to the end of the data when that comes first.
    void readByteArray(oaUInt4& loc, oaUInt4 numBytes, oaByte* val) const;
    /// The bytes up to that multiple of 4 become 0.
    void writeByteArray(oaUInt4& loc, oaUInt4 numBytes, const oaByte* val) const;
    /// The same without the move to a multiple of 4.
    void readBytes(oaUInt4& loc, oaUInt4 numBytes, oaByte* val) const;
    void writeBytes(oaUInt4& loc, oaUInt4 numBytes, const oaByte* val) const;

    /// A text with its terminating zero byte.
    void readString(oaUInt4& loc, oaString& val) const;
    void writeString(oaUInt4& loc, const oaString& val) const;

private:
    /// The bytes from `loc` on, of which there are `numBytes`.
    oaByte* at(oaUInt4 loc, oaUInt8 numBytes) const;
    template <class T>
    void readValue(oaUInt4& loc, T& val) const;
    template <class T>
    void writeValue(oaUInt4& loc, T val) const;
    template <class T>
    void readArray(oaUInt4& loc, oaUInt4 numElements, T* val,
                   void (oaPackedData::*readElement)(oaUInt4&, T&) const) const;
    template <class T, class Value>
    void writeArray(oaUInt4& loc, oaUInt4 numElements, const T* val,
                    void (oaPackedData::*writeElement)(oaUInt4&, Value) const) const;

    oaByte* data_;
    oaUInt4 size_;
    oaBoolean swap_;
};

} // namespace OpenAccess_4
