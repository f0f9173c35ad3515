#pragma once

#include "oaSession.h"
#include "oaString.h"
#include "oaTechEnums.h"

namespace OpenAccess_4 {

class oaTech;

/// An operation that makes layers out of others. It lasts for the session; technologies keep the
/// names of those that their layers use.
class OA_API oaDerivedLayerDef : public oaSessionObject {
public:
    /// @throws oaTechError  oacDerivedLayerDefExists
    static oaDerivedLayerDef* create(const oaString& name, oaUInt4 numLayers);

    /// The definition of that name, built-in or not, or null.
    static oaDerivedLayerDef* find(const oaString& name);

    /// The built-in definition of an operation; null for oacUserDefinedLayerOp.
    static oaDerivedLayerDef* get(oaLayerOp type);

    void getName(oaString& name) const;
    oaUInt4 getNumLayers() const;
    oaBoolean isBuiltIn() const;

    /// @throws oaTechError  oacDerivedLayerDefIsBuiltIn
    void destroy();
    /// Destroys the layers of a technology that follow from others by this definition.
    void remove(oaTech* tech);

    OA_HANDLE(oaDerivedLayerDef);
};

} // namespace OpenAccess_4
