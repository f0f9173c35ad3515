#pragma once

#include "oa/oaDesignEnums.h"
#include "oa/oaDesignObject.h"
#include "oa/oaTechEnums.h"

namespace OpenAccess_4 {

class oaBox;
class oaInst;
class oaInstHeader;
class oaInstTerm;
class oaLayerHeader;
class oaLPPHeader;
class oaNet;
class oaPin;
class oaShape;
class oaTerm;
class oaTermArray;
class oaVia;
class oaViaHeader;

/// The content of a design: what is drawn and what is connected. A design has one at most.
class OA_API oaBlock : public oaBlockObject {
public:
    /// @throws oaDesignError  oacBlockExists, oacCannotModifyReadModeDesign
    static oaBlock* create(const oaDesign* design, oaBoolean visibleToModule = true);

    /// The smallest box around everything in the block; an inverted one when there is nothing.
    /// Binds the masters of the instances and vias.
    void getBBox(oaBox& bBox) const;
    /// The database units in one user unit, as the technology says for the design's view type.
    oaUInt4 getDBUPerUU() const;
    oaUserUnitsType getUserUnits() const;
    oaBoolean isVisibleToModule() const;
    void setVisibleToModule();

    oaCollection<oaShape, oaBlock> getShapes() const;
    oaCollection<oaNet, oaBlock> getNets(oaUInt4 filterFlags = oacNetIterAll |
                                                               oacNetIterNotImplicit) const;
    oaCollection<oaTerm, oaBlock> getTerms(oaUInt4 filterFlags = oacTermIterAllNotHidden |
                                                                 oacTermIterNotImplicit) const;
    oaCollection<oaPin, oaBlock> getPins() const;
    /// Bits of vectors are implicit ones; vectors have more than one bit.
    oaCollection<oaInst, oaBlock> getInsts(oaUInt4 filterFlags = oacInstIterNotImplicit) const;
    oaCollection<oaInstTerm, oaBlock>
    getInstTerms(oaUInt4 filterFlags = oacInstTermIterNotImplicit) const;
    /// One for each master. Sub headers lie under those of pcells.
    oaCollection<oaInstHeader, oaBlock> getInstHeaders() const;

    oaCollection<oaVia, oaBlock> getVias() const;
    /// One for each via definition. Sub headers lie under them.
    oaCollection<oaViaHeader, oaBlock> getViaHeaders() const;

    /// The layers and the layer-purpose pairs that something is drawn on.
    oaCollection<oaLayerHeader, oaBlock> getLayerHeaders() const;
    oaCollection<oaLPPHeader, oaBlock> getLPPHeaders() const;

    /// The terminals that have a position, each at its own; null at positions without one.
    void getTermsByPosition(oaTermArray& array) const;

    oaBoolean hasConnectivity() const;
    oaBoolean hasGlobalNet() const;

    /// Destroys the block with everything in it.
    void destroy();

    OA_HANDLE(oaBlock);
};

} // namespace OpenAccess_4
