#pragma once

#include "base/src/table.h"
#include "oa/oaTechEnums.h"

#include <string>

namespace OpenAccess_4 {
class oaDerivedLayerDef;
}

namespace OpenAccess_4::impl {

/// An operation that derives layers, as the session knows it.
struct DerivedLayerDefRecord {
    std::string name;
    std::uint32_t numLayers = 0;
    oaLayerOpEnum operation = oacUserDefinedLayerOp; // any other is a built-in definition

    static constexpr oaTypeEnum kType = oacDerivedLayerDefType;
    using Handle = oaDerivedLayerDef;
};

} // namespace OpenAccess_4::impl
