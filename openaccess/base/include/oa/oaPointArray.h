#pragma once

#include "oaArray.h"
#include "oaBox.h"
#include "oaTransform.h"

namespace OpenAccess_4 {

/// The points of a polygon or of a line. Where a member takes `isClosed`, true means that an edge
/// leads from the last point back to the first.
class OA_API oaPointArray : public oaArray<oaPoint> {
public:
    explicit oaPointArray(oaUInt4 size = 0) : oaArray(size) {}
    oaPointArray(const oaPoint* points, oaUInt4 numPoints) : oaArray(points, numPoints) {}
    oaPointArray(const oaPointArray& points, const oaTransform& xform);
    oaPointArray(const oaPointArray& points, const oaPoint& offset);
    /// The corners of `box`, counter-clockwise from the lower left one.
    explicit oaPointArray(const oaBox& box);

    /// Whether edges meet elsewhere than where one follows the other.
    oaBoolean isSelfIntersecting(oaBoolean isClosed = true) const;
    /// Whether every edge is horizontal or vertical.
    oaBoolean isOrthogonal(oaBoolean isClosed = true) const;
    /// Whether compress() would remove anything.
    oaBoolean hasExtraPoints(oaBoolean isClosed = true) const;
    /// Whether the closed outline is that of an upright rectangle with an area.
    oaBoolean isRectangle() const;

    oaBoolean onEdge(const oaPoint& point, oaBoolean isClosed = true) const;
    /// Whether the point lies in the closed outline (by the even-odd rule).
    oaBoolean contains(const oaPoint& point, oaBoolean includeEdges = true) const;
    /// Whether the box lies in the closed outline, edges included.
    oaBoolean contains(const oaBox& box) const;
    /// Whether the box has a point in common with the closed outline and its inside, or with the
    /// open line.
    oaBoolean overlaps(const oaBox& box, oaBoolean closed = true) const;
    /// The square of the distance to the closed outline; 0 inside.
    oaDouble distanceFrom2(const oaPoint& point) const;
    /// The area of the closed outline, never negative.
    oaDouble getArea() const;
    /// The smallest box around the points; inverted when there are none.
    void getBBox(oaBox& bBox) const;

    /// Removes repeated points and those that lie on the way from their predecessor to their
    /// successor; of a closed outline also the tips of edges that run back over themselves.
    void compress(oaPointArray& pointsOut, oaBoolean isClosed = true) const;
    void compress(oaBoolean isClosed = true);

    void transform(const oaTransform& xform, oaPointArray& result) const;
    void transform(const oaTransform& xform);
    void transform(const oaPoint& offset, oaPointArray& result) const;
    void transform(const oaPoint& offset);
    /// See oaPoint::transform; `angle` in radians.
    void transform(oaDouble scale, oaDouble angle, oaPointArray& result) const;
    void transform(oaDouble scale, oaDouble angle);

    bool operator==(const oaPointArray& other) const;
    bool operator!=(const oaPointArray& other) const { return !(*this == other); }
};

} // namespace OpenAccess_4
