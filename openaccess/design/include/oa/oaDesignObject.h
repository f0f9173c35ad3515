#pragma once

#include "oa/oaObject.h"

namespace OpenAccess_4 {

class oaBlock;
class oaDesign;

/// Base of everything that lies in a design, and of the design itself.
class OA_API oaDesignObject : public oaObject {
public:
    /// The design that holds the object; a design answers itself.
    oaDesign* getDesign() const;
    oaBoolean isBlockObject() const;

    OA_HANDLE(oaDesignObject);
};

/// Base of everything that lies in a block, and of the block itself.
class OA_API oaBlockObject : public oaDesignObject {
public:
    /// The block that holds the object; a block answers itself.
    oaBlock* getBlock() const;

    oaBoolean isBitInst() const;
    oaBoolean isBitNet() const;
    oaBoolean isBitTerm() const;
    oaBoolean isConnFig() const;
    oaBoolean isFig() const;
    oaBoolean isInst() const;
    oaBoolean isNet() const;
    oaBoolean isPinFig() const;
    oaBoolean isRef() const;
    oaBoolean isShape() const;
    oaBoolean isTerm() const;
    oaBoolean isTextDisplay() const;
    oaBoolean isVia() const;
    oaBoolean isViaHeader() const;

    OA_HANDLE(oaBlockObject);
};

} // namespace OpenAccess_4
