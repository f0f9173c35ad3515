#pragma once

#include "oa/oaShape.h"

namespace OpenAccess_4 {

class oaLine;
class oaPointArray;

/// A part of the outline of an ellipse, counter-clockwise from one angle to another.
///
/// Angles are in radians. The angle t stands for the point at (a cos t, b sin t) from the center of
/// an ellipse with the half axes a and b.
class OA_API oaArc : public oaShape {
public:
    /// @throws oaDesignError  oacArcInvalid: the box has no area, an angle is no number, or the
    ///                        angles are one
    static oaArc* create(oaBlock* block, oaLayerNum layerNum, oaPurposeNum purposeNum,
                         const oaBox& ellipseBBox, oaDouble startAngle, oaDouble stopAngle);

    void getEllipseBBox(oaBox& bBox) const;
    oaDouble getStartAngle() const;
    oaDouble getStopAngle() const;
    /// `numSegs` + 1 points of the arc from its start to its stop.
    void getPoints(oaPointArray& points, oaUInt4 numSegs = 10) const;

    /// @throws oaDesignError  oacArcInvalid
    void set(const oaBox& ellipseBBox, oaDouble startAngle, oaDouble stopAngle);

    /// Puts a line of `numSides` edges in the place of the arc, on its net and pin and with its
    /// properties.
    oaLine* convertToLine(oaUInt4 numSides = 10);

    static void genPoints(const oaBox& ellipseBBox, oaDouble startAngle, oaDouble stopAngle,
                          oaUInt4 numEdges, oaPointArray& points);
    /// The smallest box around such an arc.
    static void calcBBox(const oaBox& ellipseBBox, oaDouble startAngle, oaDouble stopAngle,
                         oaBox& bBox);

    OA_HANDLE(oaArc);
};

} // namespace OpenAccess_4
