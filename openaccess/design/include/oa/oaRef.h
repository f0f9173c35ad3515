#pragma once

#include "oa/oaFig.h"
#include "oa/oaOrient.h"

namespace OpenAccess_4 {

class oaPoint;
class oaRefHeader;

/// A figure that shows another design in its block.
class OA_API oaRef : public oaPinFig {
public:
    /// The master, which is opened for reading when it is not open; null when it cannot be. Of a
    /// pcell, the submaster for the parameters, which is evaluated when it is not there; one whose
    /// evaluation failed has no block. Of a standard via, the design that is made from its
    /// parameters.
    oaDesign* getMaster() const;
    /// True when the master is open and known to the reference. Opens and evaluates nothing.
    oaBoolean isBound() const;
    /// What it shares with the other references to its master.
    oaRefHeader* getHeader() const;

    void getOrigin(oaPoint& origin) const;
    oaOrient getOrient() const;
    void getTransform(oaTransform& xform) const;

    void setOrigin(const oaPoint& origin);
    void setOrient(oaOrient orient);
    void setTransform(const oaTransform& xform);

    OA_HANDLE(oaRef);
};

} // namespace OpenAccess_4
