#pragma once

#include "base/src/table.h"
#include "oa/oaTechEnums.h"
#include "oa/oaType.h"

#include <string>

namespace OpenAccess_4 {
class oaDerivedLayerDef;
class oaDerivedLayerParamDef;
} // namespace OpenAccess_4

namespace OpenAccess_4::impl {

/// An operation that derives layers, as the session knows it.
struct DerivedLayerDefRecord {
    std::string name;
    std::uint32_t numLayers = 0;
    oaLayerOpEnum operation = oacUserDefinedLayerOp; // any other is a built-in definition

    static constexpr oaTypeEnum kType = oacDerivedLayerDefType;
    using Handle = oaDerivedLayerDef;
};

/// A definition of parameters of derived layers, as the session knows it.
struct DerivedLayerParamDefRecord {
    std::string name;
    oaTypeEnum valueType = oacIntValueType;
    bool builtIn = false;

    static constexpr oaTypeEnum kType = oacDerivedLayerParamDefType;
    using Handle = oaDerivedLayerParamDef;
};

class TechDatabase;

/// Tells the observers of each definition that a technology from a file has otherwise than the
/// session.
void reportDerivedLayerConflicts(TechDatabase& tech);

} // namespace OpenAccess_4::impl
