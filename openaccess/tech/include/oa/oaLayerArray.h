#pragma once

#include "oa/oaArray.h"
#include "oa/oaBaseTypes.h"

namespace OpenAccess_4 {

/// The numbers of layers.
class oaLayerArray : public oaArray<oaLayerNum> {
public:
    explicit oaLayerArray(oaUInt4 size = 0) : oaArray(size) {}
};

} // namespace OpenAccess_4
