#pragma once

#include "oa/oaShape.h"

namespace OpenAccess_4 {

class oaPoint;

/// A mark at a point.
class OA_API oaDot : public oaShape {
public:
    static oaDot* create(oaBlock* block, oaLayerNum layerNum, oaPurposeNum purposeNum,
                         const oaPoint& location, oaDist width = 0, oaDist height = 0);

    void getLocation(oaPoint& point) const;
    oaDist getWidth() const;
    oaDist getHeight() const;

    void setLocation(const oaPoint& location);
    void setWidth(oaDist width);
    void setHeight(oaDist height);

    OA_HANDLE(oaDot);
};

} // namespace OpenAccess_4
