#pragma once

#include "oa/oaShape.h"

namespace OpenAccess_4 {

class oaPointArray;

/// A row of straight edges without width.
class OA_API oaLine : public oaShape {
public:
    /// @throws oaDesignError  oacLineTooFewPoints: less than two different points
    static oaLine* create(oaBlock* block, oaLayerNum layerNum, oaPurposeNum purposeNum,
                          const oaPointArray& points);

    oaUInt4 getNumPoints() const;
    void getPoints(oaPointArray& points) const;
    /// @throws oaDesignError  oacLineTooFewPoints
    void setPoints(const oaPointArray& points);

    OA_HANDLE(oaLine);
};

} // namespace OpenAccess_4
