#pragma once

#include "oa/oaShape.h"

namespace OpenAccess_4 {

class oaPointArray;
class oaRect;

/// An area inside a closed row of straight edges.
class OA_API oaPolygon : public oaShape {
public:
    /// The last point is joined to the first.
    /// @throws oaDesignError  oacPolygonTooFewPoints: less than three points;
    ///                        oacPolygonHasExtraPoints: a point repeats or lies on an edge between
    ///                        its neighbours
    static oaPolygon* create(oaBlock* block, oaLayerNum layerNum, oaPurposeNum purposeNum,
                             const oaPointArray& points);

    oaUInt4 getNumPoints() const;
    void getPoints(oaPointArray& points) const;
    /// @throws oaDesignError  as create()
    void setPoints(const oaPointArray& points);
    /// True when every edge runs along an axis.
    oaBoolean isOrthogonal() const;

    /// Puts a rectangle in the place of the polygon, on its net and pin and with its properties;
    /// null, and nothing is changed, when the polygon is none.
    oaRect* convertToRect();

    OA_HANDLE(oaPolygon);
};

} // namespace OpenAccess_4
