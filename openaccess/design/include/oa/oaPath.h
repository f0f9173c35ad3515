#pragma once

#include "oa/oaDesignEnums.h"
#include "oa/oaShape.h"

namespace OpenAccess_4 {

class oaPointArray;
class oaPolygon;

/// A row of straight edges with a width.
///
/// Corners are mitred; one so sharp that its tip would lie more than two widths away is cut off.
/// The ends of a round path are halves of octagons.
class OA_API oaPath : public oaShape {
public:
    /// The extensions count only for the style oacVariablePathStyle; a path of the style
    /// oacExtendPathStyle is longer by half its width at both ends.
    /// @throws oaDesignError  oacPathTooFewPoints: less than two different points
    static oaPath* create(oaBlock* block, oaLayerNum layerNum, oaPurposeNum purposeNum,
                          oaDist width, const oaPointArray& points,
                          oaPathStyle style = oacTruncatePathStyle, oaDist beginExt = 0,
                          oaDist endExt = 0);

    oaDist getWidth() const;
    oaPathStyle getStyle() const;
    oaDist getBeginExt() const;
    oaDist getEndExt() const;
    oaUInt4 getNumPoints() const;
    void getPoints(oaPointArray& points) const;
    /// The outline; empty for a path without width.
    void getBoundary(oaPointArray& boundary) const;
    oaBoolean isOrthogonal() const;

    void setWidth(oaDist width);
    void setStyle(oaPathStyle style);
    void setBeginExt(oaDist beginExt);
    void setEndExt(oaDist endExt);
    /// @throws oaDesignError  oacPathTooFewPoints
    void setPoints(const oaPointArray& points);

    /// The outline of a path that has these values.
    static void genBoundary(const oaPointArray& points, oaDist width, oaPathStyle style,
                            oaDist beginExt, oaDist endExt, oaPointArray& boundary);

    OA_HANDLE(oaPath);
};

} // namespace OpenAccess_4
