#pragma once

#include "oaLayer.h"
#include "oaTechEnums.h"

namespace OpenAccess_4 {

/// A layer that follows from another by growing or shrinking its shapes.
class OA_API oaSizedLayer : public oaLayer {
public:
    /// @throws oaTechError  oacLayerNameExists, oacLayerNumberExists
    static oaSizedLayer* create(oaLayer* layer, oaSizeOp operation, oaDist value,
                                const oaString& name, oaLayerNum number);

    /// The sized layer of that name or number; null also when that is a layer of another kind.
    static oaSizedLayer* find(const oaTech* tech, const oaString& name);
    static oaSizedLayer* find(const oaTech* tech, oaLayerNum number);
    /// The layer that follows from `layer` that way, or null.
    static oaSizedLayer* find(const oaLayer* layer, oaSizeOp operation, oaDist value);

    /// The layer that it follows from; null when the technology no longer has it.
    oaLayer* getLayer() const;
    oaSizeOp getOperation() const;
    oaDist getValue() const;

    OA_HANDLE(oaSizedLayer);
};

} // namespace OpenAccess_4
