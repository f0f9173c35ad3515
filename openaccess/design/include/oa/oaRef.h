#pragma once

#include "oa/oaFig.h"
#include "oa/oaOrient.h"

namespace OpenAccess_4 {

class oaPoint;

/// A figure that shows another design in its block.
class OA_API oaRef : public oaPinFig {
public:
    /// The master, which is opened for reading when it is not open; null when it cannot be.
    oaDesign* getMaster() const;
    /// True when the master is open and known to the reference. Opens nothing.
    oaBoolean isBound() const;

    void getOrigin(oaPoint& origin) const;
    oaOrient getOrient() const;
    void getTransform(oaTransform& xform) const;

    void setOrigin(const oaPoint& origin);
    void setOrient(oaOrient orient);
    void setTransform(const oaTransform& xform);

    OA_HANDLE(oaRef);
};

} // namespace OpenAccess_4
