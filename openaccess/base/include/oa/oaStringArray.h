#pragma once

#include "oaArray.h"
#include "oaString.h"

namespace OpenAccess_4 {

class oaStringArray : public oaArray<oaString> {
public:
    explicit oaStringArray(oaUInt4 size = 0) : oaArray(size) {}
    oaStringArray(const oaString* strings, oaUInt4 numStrings) : oaArray(strings, numStrings) {}
};

} // namespace OpenAccess_4
