#pragma once

#include "oa/oaOccurrence.h"
#include "oa/oaString.h"

namespace OpenAccess_4 {

class oaArrayInst;
class oaDesign;
class oaNameSpace;
class oaParam;
class oaParamArray;
class oaScalarInst;
class oaScalarName;
class oaSimpleName;
class oaVectorBitName;
class oaVectorInst;
class oaVectorInstBit;
class oaVectorName;

/// An instance at one place of the hierarchy. Once the instance itself is destroyed, every call but
/// isValid() throws oacInvalidObject.
class OA_API oaOccInst : public oaOccObject {
public:
    /// Null when the block of the occurrence has no such instance.
    static oaOccInst* find(const oaOccurrence* occurrence, const oaSimpleName& name);

    /// The instance in its block.
    oaInst* getInst() const;
    /// What the master looks like at this place, which is made at the first question and binds the
    /// master for it; not made when `expand` is false. Null when the master cannot be had, has no
    /// block or holds this very place, and for a vector, whose bits have one each.
    oaOccurrence* getMasterOccurrence(oaBoolean expand = true) const;

    void getName(oaSimpleName& name) const;
    void getName(const oaNameSpace& ns, oaString& name) const;
    /// The names from the top to here, with "/" between them.
    void getPathName(oaSimpleName& pathName) const;
    void getPathName(const oaNameSpace& ns, oaString& pathName) const;
    oaUInt4 getNumBits() const;
    /// True when the master is bound. Binds nothing.
    oaBoolean isBound() const;
    oaBoolean isImplicit() const;
    oaBoolean isOccDesignInst() const;
    /// False: designs have no modules here.
    oaBoolean isOccModuleInst() const;
    oaBoolean usesTermPositions() const;

    OA_HANDLE(oaOccInst);
};

/// An instance of a design at one place of the hierarchy.
class OA_API oaOccDesignInst : public oaOccInst {
public:
    /// The master, which is bound for it; null when it cannot be had.
    oaDesign* getMaster() const;
    void getLibName(oaScalarName& libName) const;
    void getLibName(const oaNameSpace& ns, oaString& libName) const;
    void getCellName(oaScalarName& cellName) const;
    void getCellName(const oaNameSpace& ns, oaString& cellName) const;
    void getViewName(oaScalarName& viewName) const;
    void getViewName(const oaNameSpace& ns, oaString& viewName) const;
    void getParams(oaParamArray& params) const;
    oaBoolean findParam(const oaString& name, oaParam& param) const;

    OA_HANDLE(oaOccDesignInst);
};

/// An instance of one bit at one place of the hierarchy.
class OA_API oaOccBitInst : public oaOccDesignInst {
public:
    OA_HANDLE(oaOccBitInst);
};

/// A single instance at one place of the hierarchy.
class OA_API oaOccScalarInst : public oaOccBitInst {
public:
    static oaOccScalarInst* find(const oaOccurrence* occurrence, const oaScalarName& name);

    oaScalarInst* getInst() const;
    using oaOccInst::getName;
    using oaOccInst::getPathName;
    void getName(oaScalarName& name) const;
    void getPathName(oaScalarName& pathName) const;

    OA_HANDLE(oaOccScalarInst);
};

/// An array at one place of the hierarchy: one object, however many rows and columns it has.
class OA_API oaOccArrayInst : public oaOccBitInst {
public:
    static oaOccArrayInst* find(const oaOccurrence* occurrence, const oaScalarName& name);

    oaArrayInst* getInst() const;
    using oaOccInst::getName;
    using oaOccInst::getPathName;
    void getName(oaScalarName& name) const;
    void getPathName(oaScalarName& pathName) const;

    OA_HANDLE(oaOccArrayInst);
};

/// One bit of a vector at one place of the hierarchy.
class OA_API oaOccVectorInstBit : public oaOccBitInst {
public:
    static oaOccVectorInstBit* find(const oaOccurrence* occurrence, const oaScalarName& baseName,
                                    oaUInt4 bitIndex);

    oaVectorInstBit* getInst() const;
    oaUInt4 getBitIndex() const;
    using oaOccInst::getName;
    using oaOccInst::getPathName;
    void getName(oaVectorBitName& name) const;
    void getPathName(oaVectorBitName& pathName) const;

    OA_HANDLE(oaOccVectorInstBit);
};

/// A vector at one place of the hierarchy.
class OA_API oaOccVectorInst : public oaOccDesignInst {
public:
    static oaOccVectorInst* find(const oaOccurrence* occurrence, const oaScalarName& baseName,
                                 oaUInt4 start, oaUInt4 stop);

    oaVectorInst* getInst() const;
    oaUInt4 getStart() const;
    oaUInt4 getStop() const;
    /// The bit at that place, counted from 0 at the start; null when there are fewer.
    oaOccVectorInstBit* getBit(oaUInt4 bitIndex) const;
    using oaOccInst::getName;
    using oaOccInst::getPathName;
    void getName(oaVectorName& name) const;
    void getPathName(oaVectorName& pathName) const;

    OA_HANDLE(oaOccVectorInst);
};

} // namespace OpenAccess_4
