#pragma once

#include "oaArray.h"
#include "oaBox.h"

namespace OpenAccess_4 {

class oaBoxArray : public oaArray<oaBox> {
public:
    explicit oaBoxArray(oaUInt4 size = 0) : oaArray(size) {}
    oaBoxArray(const oaBox* boxes, oaUInt4 numBoxes) : oaArray(boxes, numBoxes) {}
};

} // namespace OpenAccess_4
