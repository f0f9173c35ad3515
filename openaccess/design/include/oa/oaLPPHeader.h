#pragma once

#include "oa/oaDesignObject.h"

namespace OpenAccess_4 {

class oaBox;
class oaLayer;
class oaLPPHeader;
class oaPurpose;
class oaShape;

/// What a block holds on one layer.
class OA_API oaLayerHeader : public oaBlockObject {
public:
    /// The header of a layer, or null when nothing is drawn on it.
    static oaLayerHeader* find(const oaBlock* block, oaLayerNum layerNum);

    oaLayerNum getLayerNum() const;
    /// The layer in the technology of the design, or null.
    oaLayer* getLayer() const;
    /// True when the technology has the layer.
    oaBoolean isBound() const;
    oaCollection<oaLPPHeader, oaLayerHeader> getLPPHeaders() const;

    OA_HANDLE(oaLayerHeader);
};

/// What a block holds on one layer for one purpose.
class OA_API oaLPPHeader : public oaBlockObject {
public:
    /// The header of a layer-purpose pair, or null when nothing is drawn on it.
    static oaLPPHeader* find(const oaBlock* block, oaLayerNum layerNum, oaPurposeNum purposeNum);

    oaLayerNum getLayerNum() const;
    oaPurposeNum getPurposeNum() const;
    /// The layer and the purpose in the technology of the design, or null.
    oaLayer* getLayer() const;
    oaPurpose* getPurpose() const;
    /// True when the technology has both.
    oaBoolean isBound() const;
    oaLayerHeader* getLayerHeader() const;

    oaCollection<oaShape, oaLPPHeader> getShapes() const;
    /// The smallest box around the shapes; an inverted one when there are none.
    void getShapeBBox(oaBox& bBox) const;

    OA_HANDLE(oaLPPHeader);
};

} // namespace OpenAccess_4
