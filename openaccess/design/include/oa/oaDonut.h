#pragma once

#include "oa/oaShape.h"

namespace OpenAccess_4 {

class oaPoint;
class oaPointArray;
class oaPolygon;

/// A disc with a round hole in its middle.
class OA_API oaDonut : public oaShape {
public:
    /// @throws oaDesignError  oacDonutRadiiInvalid: the hole is as large as the disc, or larger
    static oaDonut* create(oaBlock* block, oaLayerNum layerNum, oaPurposeNum purposeNum,
                           const oaPoint& center, oaDist radius, oaDist holeRadius);

    void getCenter(oaPoint& point) const;
    oaDist getRadius() const;
    oaDist getHoleRadius() const;
    void getHoleBBox(oaBox& bBox) const;

    void setCenter(const oaPoint& center);
    /// @throws oaDesignError  oacDonutRadiiInvalid, as the next two
    void setRadius(oaDist radius);
    void setHoleRadius(oaDist holeRadius);
    void setRadii(oaDist radius, oaDist holeRadius);

    /// The outline as one row of points: `numSides` around the disc, joined by a cut to `numSides`
    /// around the hole.
    void getBoundary(oaPointArray& points, oaUInt4 numSides = 20) const;

    /// Puts a polygon in the place of the donut, on its net and pin and with its properties.
    /// @throws oaDesignError  oacPolygonTooFewPoints, oacPolygonHasExtraPoints: as many sides do
    ///                        not give a polygon of this size
    oaPolygon* convertToPolygon(oaUInt4 numSides = 20);

    static void genBoundary(const oaPoint& center, oaDist radius, oaDist holeRadius,
                            oaUInt4 numSides, oaPointArray& boundary);

    OA_HANDLE(oaDonut);
};

} // namespace OpenAccess_4
