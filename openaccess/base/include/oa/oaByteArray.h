#pragma once

#include "oaArray.h"

namespace OpenAccess_4 {

class oaByteArray : public oaArray<oaByte> {
public:
    explicit oaByteArray(oaUInt4 size = 0) : oaArray(size) {}
    oaByteArray(const oaByte* bytes, oaUInt4 numBytes) : oaArray(bytes, numBytes) {}
};

} // namespace OpenAccess_4
