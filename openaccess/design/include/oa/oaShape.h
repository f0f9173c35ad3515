#pragma once

#include "oa/oaFig.h"

namespace OpenAccess_4 {

class oaLPPHeader;

/// A figure that is drawn on a layer, for a purpose.
class OA_API oaShape : public oaPinFig {
public:
    oaLayerNum getLayerNum() const;
    oaPurposeNum getPurposeNum() const;
    /// What the block holds on the shape's layer-purpose pair.
    oaLPPHeader* getHeader() const;

    void setLayerNum(oaLayerNum layerNum);
    void setPurposeNum(oaPurposeNum purposeNum);
    /// Moves the shape to another layer-purpose pair. It stays the same object.
    void setLPP(oaLayerNum layerNum, oaPurposeNum purposeNum);

    OA_HANDLE(oaShape);
};

} // namespace OpenAccess_4
