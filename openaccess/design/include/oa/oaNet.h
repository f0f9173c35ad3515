#pragma once

#include "oa/oaDesignEnums.h"
#include "oa/oaDesignObject.h"

namespace OpenAccess_4 {

class oaInstTerm;
class oaName;
class oaNameSpace;
class oaPin;
class oaScalarName;
class oaShape;
class oaTerm;
class oaVia;

/// A connection inside a block. The nets here are scalar ones, also those with the
/// name of a bit.
class OA_API oaNet : public oaBlockObject {
public:
    /// @throws oaDesignError  oacNetExists; oacInvalidNetName: the name is empty or of a vector
    static oaNet* create(oaBlock* block, const oaName& name, oaSigType sigType = oacSignalSigType,
                         oaBoolean isGlobal = false,
                         oaBlockDomainVisibility view = oacInheritFromTopBlock);
    /// The net of that name, or null.
    static oaNet* find(const oaBlock* block, const oaName& name);
    /// True when a net of that name can be made.
    static oaBoolean isValidName(const oaBlock* block, const oaName& name);

    void getName(oaName& name) const;
    void getName(const oaNameSpace& ns, oaString& name) const;
    oaUInt4 getNumBits() const;
    oaSigType getSigType() const;
    oaBoolean isGlobal() const;
    oaBoolean isImplicit() const;
    /// True when the net has no terminal, no instance terminal and no figure.
    oaBoolean isEmpty() const;

    void setSigType(const oaSigType& sigType);
    void setGlobal(oaBoolean isGlobal);

    oaCollection<oaTerm, oaNet> getTerms(oaUInt4 filterFlags = oacTermIterNotImplicit) const;
    oaCollection<oaInstTerm, oaNet>
    getInstTerms(oaUInt4 filterFlags = oacInstTermIterNotImplicit) const;
    /// The pins of its terminals.
    oaCollection<oaPin, oaNet> getPins() const;
    /// The shapes on the net itself (oacShapeIterNetOnly), those of its pins
    /// (oacShapeIterNetPins), or both.
    oaCollection<oaShape, oaNet> getShapes(oaUInt4 filterFlags = oacShapeIterNetOnly |
                                                                 oacShapeIterNetPins) const;
    /// The same for vias.
    oaCollection<oaVia, oaNet> getVias(oaUInt4 filterFlags = oacViaIterNetOnly |
                                                             oacViaIterNetPins) const;

    /// False: there are no constraint groups here.
    oaBoolean hasDefaultConstraintGroup() const;

    /// Destroys the net with its terminals and their pins. Its figures and instance
    /// terminals stay, on no net.
    void destroy();

    OA_HANDLE(oaNet);
};

/// A net of one bit.
class OA_API oaBitNet : public oaNet {
public:
    OA_HANDLE(oaBitNet);
};

/// A net of one bit with a name of its own.
class OA_API oaScalarNet : public oaBitNet {
public:
    /// @throws oaDesignError  oacNetExists; oacInvalidNetName: the name is empty
    static oaScalarNet* create(oaBlock* block, const oaScalarName& name,
                               oaSigType sigType = oacSignalSigType, oaBoolean isGlobal = false,
                               oaBlockDomainVisibility view = oacInheritFromTopBlock);
    /// Makes a net with an automatic name.
    static oaScalarNet* create(oaBlock* block, oaSigType sigType = oacSignalSigType,
                               oaBoolean isGlobal = false,
                               oaBlockDomainVisibility view = oacInheritFromTopBlock);
    static oaScalarNet* find(const oaBlock* block, const oaScalarName& name);
    static oaBoolean isValidName(const oaBlock* block, const oaScalarName& name);

    using oaNet::getName;
    void getName(oaScalarName& name) const;
    /// @throws oaDesignError  oacNetExists, oacInvalidNetName
    void setName(const oaScalarName& name);

    OA_HANDLE(oaScalarNet);
};

} // namespace OpenAccess_4
