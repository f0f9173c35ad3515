#pragma once

#include "oa/oaShape.h"

namespace OpenAccess_4 {

class oaPoint;
class oaPointArray;
class oaSegStyle;

/// One straight edge with a width and a style for each end.
class OA_API oaPathSeg : public oaShape {
public:
    /// @throws oaDesignError  oacPathSegTooShort: both ends are one point
    static oaPathSeg* create(oaBlock* block, oaLayerNum layerNum, oaPurposeNum purposeNum,
                             const oaPoint& beginPoint, const oaPoint& endPoint,
                             const oaSegStyle& style);

    void getPoints(oaPoint& beginPoint, oaPoint& endPoint) const;
    void getStyle(oaSegStyle& style) const;
    /// The outline; empty for a segment without width.
    void getBoundary(oaPointArray& boundary) const;
    oaBoolean isOrthogonal() const;

    /// @throws oaDesignError  oacPathSegTooShort
    void setPoints(const oaPoint& beginPoint, const oaPoint& endPoint);
    void setStyle(const oaSegStyle& style);

    /// The outline of a segment that has these values.
    static void genBoundary(const oaPoint& beginPoint, const oaPoint& endPoint,
                            const oaSegStyle& style, oaPointArray& boundary);

    OA_HANDLE(oaPathSeg);
};

} // namespace OpenAccess_4
