#pragma once

#include "oa/oaArray.h"
#include "oa/oaDesignEnums.h"
#include "oa/oaDesignObject.h"

namespace OpenAccess_4 {

class oaBitNet;
class oaName;
class oaNameSpace;
class oaNet;
class oaPin;
class oaScalarName;

/// A connection of a net to the outside of its block. The terminals here are scalar
/// ones, also those with the name of a bit.
class OA_API oaTerm : public oaBlockObject {
public:
    /// @throws oaDesignError  oacTermExists; oacInvalidTermName: the name is empty or of a vector
    static oaTerm* create(oaNet* net, const oaName& name,
                          oaTermType termType = oacInputOutputTermType,
                          oaBlockDomainVisibility view = oacInheritFromTopBlock);
    /// The terminal of that name, or null.
    static oaTerm* find(const oaBlock* block, const oaName& name);
    /// The terminal at that position, or null.
    static oaTerm* find(const oaBlock* block, oaUInt4 position);
    /// The largest position taken; oacNullIndex when no terminal has one.
    static oaUInt4 getMaxPosition(const oaBlock* block);
    /// True when a terminal of that name can be made.
    static oaBoolean isValidName(const oaNet* net, const oaName& name);

    void getName(oaName& name) const;
    void getName(const oaNameSpace& ns, oaString& name) const;
    oaNet* getNet() const;
    oaUInt4 getNumBits() const;
    oaTermType getTermType() const;
    /// oacNullIndex when the terminal has no position.
    oaUInt4 getPosition() const;
    oaBoolean isInterface() const;
    oaBoolean isImplicit() const;
    oaCollection<oaPin, oaTerm> getPins() const;

    void setTermType(oaTermType termType);
    /// @throws oaDesignError  oacTermPositionAlreadyTaken: another terminal has it
    void setPosition(oaUInt4 position);
    void unsetPosition();
    void setIsInterface(oaBoolean isInterface);
    /// @throws oaDesignError  oacTermAndNetNotInSameBlock
    void moveToNet(oaNet* net);

    /// Destroys the terminal with its pins. The figures of the pins stay.
    void destroy();

    OA_HANDLE(oaTerm);
};

/// A terminal of one bit.
class OA_API oaBitTerm : public oaTerm {
public:
    OA_HANDLE(oaBitTerm);
};

/// A terminal of one bit with a name of its own.
class OA_API oaScalarTerm : public oaBitTerm {
public:
    /// @throws oaDesignError  oacTermExists; oacInvalidTermName: the name is empty
    static oaScalarTerm* create(oaBitNet* net, const oaScalarName& name,
                                oaTermType termType = oacInputOutputTermType,
                                oaBlockDomainVisibility view = oacInheritFromTopBlock);
    static oaScalarTerm* find(const oaBlock* block, const oaScalarName& name);
    static oaBoolean isValidName(const oaBlock* block, const oaScalarName& name);

    using oaTerm::getName;
    void getName(oaScalarName& name) const;
    /// @throws oaDesignError  oacTermExists, oacInvalidTermName
    void setName(const oaScalarName& name);

    OA_HANDLE(oaScalarTerm);
};

class OA_API oaTermArray : public oaArray<oaTerm*> {
public:
    explicit oaTermArray(oaUInt4 size = 0) : oaArray(size) {}
};

} // namespace OpenAccess_4
