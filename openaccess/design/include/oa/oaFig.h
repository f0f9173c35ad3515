#pragma once

#include "oa/oaDesignObject.h"

namespace OpenAccess_4 {

class oaBox;
class oaNet;
class oaPin;
class oaTransform;

/// Something of a block that has a place: a shape, an instance or a via.
class OA_API oaFig : public oaBlockObject {
public:
    /// The smallest box around the figure; an inverted one when it has no extent, as an instance
    /// of an empty master.
    void getBBox(oaBox& bBox) const;
    /// True when the bounding box of the figure and `box` have a point in common.
    oaBoolean overlaps(const oaBox& box) const;

    void move(const oaTransform& xform);
    /// Moves the figure to another block. It is a new object there, off its net and pin; in its
    /// own block it stays what it is.
    oaFig* move(const oaTransform& xform, oaBlock* block);
    oaFig* move(const oaTransform& xform, oaDesign* design);

    /// Makes the same figure elsewhere in its block, off nets and pins. Properties are copied,
    /// application-defined values are not; an instance gets an automatic name.
    oaFig* copy(const oaTransform& xform) const;
    oaFig* copy(const oaTransform& xform, oaBlock* block) const;
    oaFig* copy(const oaTransform& xform, oaDesign* design) const;

    void destroy();

    OA_HANDLE(oaFig);
};

/// A figure that may lie on a net.
class OA_API oaConnFig : public oaFig {
public:
    /// Puts the figure on a net; it leaves the one that it was on.
    /// @throws oaDesignError  oacNetAndFigNotInSameBlock, oacCannotAddPinFigToNet
    void addToNet(oaNet* net);
    void removeFromNet();

    /// The net that the figure was added to, or null. A figure of a pin is on no net itself.
    oaNet* getNet() const;
    oaBoolean hasNet() const;

    OA_HANDLE(oaConnFig);
};

/// A figure that may belong to a pin.
class OA_API oaPinFig : public oaConnFig {
public:
    /// Makes the figure one of a pin; it leaves the pin that it was on.
    /// @throws oaDesignError  oacPinAndFigNotInSameBlock, oacCannotAddNetFigToPin
    void addToPin(oaPin* pin);
    void removeFromPin();

    /// The pin that the figure belongs to, or null.
    oaPin* getPin() const;
    oaBoolean hasPin() const;

    OA_HANDLE(oaPinFig);
};

} // namespace OpenAccess_4
