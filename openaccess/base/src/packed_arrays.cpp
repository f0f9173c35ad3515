#include "oaBox.h"
#include "oaPackedData.h"

namespace OpenAccess_4 {

template <class T>
void oaPackedData::readArray(oaUInt4& loc, oaUInt4 numElements, T* val,
                             void (oaPackedData::*readElement)(oaUInt4&, T&) const) const {
    at(loc, oaUInt8(numElements) * sizeof(T)); // all of them or none
    for (oaUInt4 i = 0; i < numElements; ++i)
        (this->*readElement)(loc, val[i]);
}

template <class T, class Value>
void oaPackedData::writeArray(oaUInt4& loc, oaUInt4 numElements, const T* val,
                              void (oaPackedData::*writeElement)(oaUInt4&, Value) const) const {
    at(loc, oaUInt8(numElements) * sizeof(T));
    for (oaUInt4 i = 0; i < numElements; ++i)
        (this->*writeElement)(loc, val[i]);
}

void oaPackedData::readInt2Array(oaUInt4& loc, oaUInt4 numElements, oaInt2* val) const {
    readArray(loc, numElements, val, &oaPackedData::readInt2);
}

void oaPackedData::readUInt2Array(oaUInt4& loc, oaUInt4 numElements, oaUInt2* val) const {
    readArray(loc, numElements, val, &oaPackedData::readUInt2);
}

void oaPackedData::readInt4Array(oaUInt4& loc, oaUInt4 numElements, oaInt4* val) const {
    readArray(loc, numElements, val, &oaPackedData::readInt4);
}

void oaPackedData::readUInt4Array(oaUInt4& loc, oaUInt4 numElements, oaUInt4* val) const {
    readArray(loc, numElements, val, &oaPackedData::readUInt4);
}

void oaPackedData::readInt8Array(oaUInt4& loc, oaUInt4 numElements, oaInt8* val) const {
    readArray(loc, numElements, val, &oaPackedData::readInt8);
}

void oaPackedData::readUInt8Array(oaUInt4& loc, oaUInt4 numElements, oaUInt8* val) const {
    readArray(loc, numElements, val, &oaPackedData::readUInt8);
}

void oaPackedData::readFloatArray(oaUInt4& loc, oaUInt4 numElements, oaFloat* val) const {
    readArray(loc, numElements, val, &oaPackedData::readFloat);
}

void oaPackedData::readDoubleArray(oaUInt4& loc, oaUInt4 numElements, oaDouble* val) const {
    readArray(loc, numElements, val, &oaPackedData::readDouble);
}

void oaPackedData::readPointArray(oaUInt4& loc, oaUInt4 numElements, oaPoint* val) const {
    readArray(loc, numElements, val, &oaPackedData::readPoint);
}

void oaPackedData::readBoxArray(oaUInt4& loc, oaUInt4 numElements, oaBox* val) const {
    readArray(loc, numElements, val, &oaPackedData::readBox);
}

void oaPackedData::writeInt2Array(oaUInt4& loc, oaUInt4 numElements, const oaInt2* val) const {
    writeArray(loc, numElements, val, &oaPackedData::writeInt2);
}

void oaPackedData::writeUInt2Array(oaUInt4& loc, oaUInt4 numElements, const oaUInt2* val) const {
    writeArray(loc, numElements, val, &oaPackedData::writeUInt2);
}

void oaPackedData::writeInt4Array(oaUInt4& loc, oaUInt4 numElements, const oaInt4* val) const {
    writeArray(loc, numElements, val, &oaPackedData::writeInt4);
}

void oaPackedData::writeUInt4Array(oaUInt4& loc, oaUInt4 numElements, const oaUInt4* val) const {
    writeArray(loc, numElements, val, &oaPackedData::writeUInt4);
}

void oaPackedData::writeInt8Array(oaUInt4& loc, oaUInt4 numElements, const oaInt8* val) const {
    writeArray(loc, numElements, val, &oaPackedData::writeInt8);
}

void oaPackedData::writeUInt8Array(oaUInt4& loc, oaUInt4 numElements, const oaUInt8* val) const {
    writeArray(loc, numElements, val, &oaPackedData::writeUInt8);
}

void oaPackedData::writeFloatArray(oaUInt4& loc, oaUInt4 numElements, const oaFloat* val) const {
    writeArray(loc, numElements, val, &oaPackedData::writeFloat);
}

void oaPackedData::writeDoubleArray(oaUInt4& loc, oaUInt4 numElements, const oaDouble* val) const {
    writeArray(loc, numElements, val, &oaPackedData::writeDouble);
}

void oaPackedData::writePointArray(oaUInt4& loc, oaUInt4 numElements, const oaPoint* val) const {
    writeArray(loc, numElements, val, &oaPackedData::writePoint);
}

void oaPackedData::writeBoxArray(oaUInt4& loc, oaUInt4 numElements, const oaBox* val) const {
    writeArray(loc, numElements, val, &oaPackedData::writeBox);
}

} // namespace OpenAccess_4
