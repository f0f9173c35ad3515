#pragma once

#include "oa/oaShape.h"

namespace OpenAccess_4 {

class oaPolygon;

/// A rectangle with edges along the axes.
class OA_API oaRect : public oaShape {
public:
    /// @throws oaDesignError  oacRectBBoxInvalid: the box is inverted or has no area
    static oaRect* create(oaBlock* block, oaLayerNum layerNum, oaPurposeNum purposeNum,
                          const oaBox& bBox);

    /// @throws oaDesignError  oacRectBBoxInvalid
    void setBBox(const oaBox& bBox);

    /// Puts a polygon of the same outline in the place of the rectangle, on its net and pin and
    /// with its properties.
    oaPolygon* convertToPolygon();

    OA_HANDLE(oaRect);
};

} // namespace OpenAccess_4
