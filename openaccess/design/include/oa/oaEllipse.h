#pragma once

#include "oa/oaShape.h"

namespace OpenAccess_4 {

class oaPointArray;
class oaPolygon;

/// An ellipse with axes along those of the plane.
class OA_API oaEllipse : public oaShape {
public:
    /// @throws oaDesignError  oacEllipseBBoxInvalid: the box is inverted or has no area
    static oaEllipse* create(oaBlock* block, oaLayerNum layerNum, oaPurposeNum purposeNum,
                             const oaBox& bBox);

    /// @throws oaDesignError  oacEllipseBBoxInvalid
    void setBBox(const oaBox& bBox);

    /// `numSides` points of the outline.
    void getBoundary(oaPointArray& points, oaUInt4 numSides) const;

    /// Puts a polygon in the place of the ellipse, on its net and pin and with its properties.
    /// @throws oaDesignError  oacPolygonTooFewPoints, oacPolygonHasExtraPoints: as many sides do
    ///                        not give a polygon of this size
    oaPolygon* convertToPolygon(oaUInt4 numSides = 32);

    static void genBoundary(const oaBox& ellipseBBox, oaUInt4 numSides, oaPointArray& boundary);

    OA_HANDLE(oaEllipse);
};

} // namespace OpenAccess_4
