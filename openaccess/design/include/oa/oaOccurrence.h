#pragma once

#include "oa/oaDesignEnums.h"
#include "oa/oaDesignObject.h"

namespace OpenAccess_4 {

class oaBlock;
class oaInst;
class oaOccInst;
class oaOccurrence;

/// Base of what the hierarchy below a design is made of, when every path through it is told apart.
/// All of it belongs to the design at the top and lasts in memory only.
class OA_API oaOccObject : public oaDesignObject {
public:
    /// The occurrence that holds the object; an occurrence answers the one that holds its instance,
    /// null at the top.
    oaOccurrence* getOccurrence() const;
    oaOccurrence* getTopOccurrence() const;
    oaBoolean isOccInst() const;
    oaBoolean isOccBitInst() const;

    OA_HANDLE(oaOccObject);
};

/// A block at one place of the hierarchy.
class OA_API oaOccurrence : public oaOccObject {
public:
    /// The block that is shown here; null once its design is closed or has no block any more.
    oaBlock* getBlock() const;
    /// The instance that leads here; null at the top.
    oaOccInst* getOccInst() const;
    /// The instances of the block at this place. Those of instances that were destroyed meanwhile
    /// become invalid with this call.
    oaCollection<oaOccInst, oaOccurrence>
    getInsts(oaUInt4 filterFlags = oacInstIterNotImplicit) const;

    OA_HANDLE(oaOccurrence);
};

} // namespace OpenAccess_4
