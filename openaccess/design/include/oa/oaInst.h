#pragma once

#include "oa/oaDesignEnums.h"
#include "oa/oaParamArray.h"
#include "oa/oaRef.h"

namespace OpenAccess_4 {

class oaInstHeader;
class oaInstTerm;
class oaNameSpace;
class oaOccInst;
class oaOccurrence;
class oaScalarName;
class oaSimpleName;
class oaVectorBitName;
class oaVectorInstBit;
class oaVectorName;

/// A design placed in a block.
class OA_API oaInst : public oaRef {
public:
    /// The instance of that name, or null.
    static oaInst* find(const oaBlock* block, const oaSimpleName& name);

    void getName(oaSimpleName& name) const;
    void getName(const oaNameSpace& ns, oaString& name) const;
    void getLibName(oaScalarName& libName) const;
    void getLibName(const oaNameSpace& ns, oaString& libName) const;
    void getCellName(oaScalarName& cellName) const;
    void getCellName(const oaNameSpace& ns, oaString& cellName) const;
    void getViewName(oaScalarName& viewName) const;
    void getViewName(const oaNameSpace& ns, oaString& viewName) const;
    oaUInt4 getNumBits() const;
    /// True for a bit that is there because its vector is. It changes with the vector only.
    oaBoolean isImplicit() const;
    /// The sub header for the parameters when the master is a pcell.
    oaInstHeader* getHeader() const;
    oaCollection<oaInstTerm, oaInst>
    getInstTerms(oaUInt4 filterFlags = oacInstTermIterNotImplicit) const;
    /// True when it is connected by the positions of terminals, not their names.
    oaBoolean usesTermPositions() const;
    oaPlacementStatus getPlacementStatus() const;
    void setPlacementStatus(oaPlacementStatus status);

    /// The instance in the hierarchy of its own design.
    oaOccInst* getOccInst() const;
    /// Everything that stands for the instance in the hierarchy below `top`, as far as that was
    /// asked for.
    oaCollection<oaOccInst, oaInst> getOccInsts(const oaOccurrence* top) const;

    /// The parameters that the instance was given.
    void getParams(oaParamArray& params) const;
    oaBoolean findParam(const oaString& name, oaParam& param) const;
    /// An instance that is bound is bound to the submaster for the new ones.
    /// @throws oaDesignError  oacInvalidDataTypeForParam, oacParamsSuppliedForNonPCellInstMaster;
    ///                        oacCannotModifyImplicitInst, as all calls that change an instance
    void setParams(const oaParamArray& params);

    /// @throws oaDesignError  oacInvalidSuperMaster: the master is a submaster
    void setMaster(const oaDesign* master);
    /// The master need not exist.
    void setMaster(const oaScalarName& libName, const oaScalarName& cellName,
                   const oaScalarName& viewName);

    OA_HANDLE(oaInst);
};

/// An instance of one bit.
class OA_API oaBitInst : public oaInst {
public:
    OA_HANDLE(oaBitInst);
};

/// A single instance.
///
/// One made of a master that is open is bound to it; of a pcell, its submaster is evaluated then.
class OA_API oaScalarInst : public oaBitInst {
public:
    /// @throws oaDesignError  oacInstNameExists; oacInvalidInstName: the name is empty;
    ///                        oacInvalidSuperMaster: the master is a submaster;
    ///                        oacInvalidDataTypeForParam, oacParamsSuppliedForNonPCellInstMaster
    static oaScalarInst* create(oaBlock* block, oaDesign* master, const oaScalarName& name,
                                const oaTransform& xform, const oaParamArray* params = nullptr,
                                oaBlockDomainVisibility view = oacInheritFromTopBlock,
                                oaPlacementStatus status = oacNonePlacementStatus);
    /// Makes an instance with an automatic name.
    static oaScalarInst* create(oaBlock* block, oaDesign* master, const oaTransform& xform,
                                const oaParamArray* params = nullptr,
                                oaBlockDomainVisibility view = oacInheritFromTopBlock,
                                oaPlacementStatus status = oacNonePlacementStatus);
    /// The master need not exist.
    static oaScalarInst* create(oaBlock* block, const oaScalarName& libName,
                                const oaScalarName& cellName, const oaScalarName& viewName,
                                const oaScalarName& name, const oaTransform& xform,
                                const oaParamArray* params = nullptr,
                                oaBlockDomainVisibility view = oacInheritFromTopBlock,
                                oaPlacementStatus status = oacNonePlacementStatus);
    static oaScalarInst* create(oaBlock* block, const oaScalarName& libName,
                                const oaScalarName& cellName, const oaScalarName& viewName,
                                const oaTransform& xform, const oaParamArray* params = nullptr,
                                oaBlockDomainVisibility view = oacInheritFromTopBlock,
                                oaPlacementStatus status = oacNonePlacementStatus);
    static oaScalarInst* find(const oaBlock* block, const oaScalarName& name);
    static oaBoolean isValidName(const oaBlock* block, const oaScalarName& name);

    using oaInst::getName;
    void getName(oaScalarName& name) const;
    /// @throws oaDesignError  oacInstNameExists, oacInvalidInstName
    void setName(const oaScalarName& name);

    OA_HANDLE(oaScalarInst);
};

/// Instances of one design in rows and columns. Rows follow one another along y and columns along
/// x, whatever the orientation of the single ones.
class OA_API oaArrayInst : public oaBitInst {
public:
    /// @throws oaDesignError  oacInstNameExists; oacInvalidInstName: the name is empty;
    ///                        oacArrayInstEmpty: there are no rows or no columns
    static oaArrayInst* create(oaBlock* block, oaDesign* master, const oaScalarName& name,
                               const oaTransform& xform, oaOffset dX, oaOffset dY, oaUInt4 numRows,
                               oaUInt4 numCols, const oaParamArray* params = nullptr,
                               oaPlacementStatus status = oacNonePlacementStatus);
    /// Makes an instance with an automatic name.
    static oaArrayInst* create(oaBlock* block, oaDesign* master, const oaTransform& xform,
                               oaOffset dX, oaOffset dY, oaUInt4 numRows, oaUInt4 numCols,
                               const oaParamArray* params = nullptr,
                               oaPlacementStatus status = oacNonePlacementStatus);
    /// The master need not exist.
    static oaArrayInst* create(oaBlock* block, const oaScalarName& libName,
                               const oaScalarName& cellName, const oaScalarName& viewName,
                               const oaScalarName& name, const oaTransform& xform, oaOffset dX,
                               oaOffset dY, oaUInt4 numRows, oaUInt4 numCols,
                               const oaParamArray* params = nullptr,
                               oaPlacementStatus status = oacNonePlacementStatus);
    static oaArrayInst* create(oaBlock* block, const oaScalarName& libName,
                               const oaScalarName& cellName, const oaScalarName& viewName,
                               const oaTransform& xform, oaOffset dX, oaOffset dY, oaUInt4 numRows,
                               oaUInt4 numCols, const oaParamArray* params = nullptr,
                               oaPlacementStatus status = oacNonePlacementStatus);
    static oaArrayInst* find(const oaBlock* block, const oaScalarName& name);
    static oaBoolean isValidName(const oaBlock* block, const oaScalarName& name);

    using oaInst::getName;
    void getName(oaScalarName& name) const;
    /// @throws oaDesignError  oacInstNameExists, oacInvalidInstName
    void setName(const oaScalarName& name);

    oaOffset getDX() const;
    oaOffset getDY() const;
    oaUInt4 getNumRows() const;
    oaUInt4 getNumCols() const;
    void setDX(oaOffset dX);
    void setDY(oaOffset dY);
    /// @throws oaDesignError  oacArrayInstEmpty
    void setNumRows(oaUInt4 numRows);
    void setNumCols(oaUInt4 numCols);

    using oaFig::getBBox;
    using oaRef::getTransform;
    /// The box and the placement of a single one, from row and column 0 at the origin.
    void getBBox(oaUInt4 row, oaUInt4 col, oaBox& bBox) const;
    void getTransform(oaUInt4 row, oaUInt4 col, oaTransform& xform) const;

    OA_HANDLE(oaArrayInst);
};

/// Instances of one design at one place, told apart by an index. Each of them is also there as an
/// implicit bit.
class OA_API oaVectorInst : public oaInst {
public:
    /// @throws oaDesignError  oacInstNameExists: of the vector or one of its bits;
    ///                        oacInvalidInstName: the name is empty, or there are more than 65536
    ///                        bits; others as oaScalarInst::create()
    static oaVectorInst* create(oaBlock* block, oaDesign* master, const oaScalarName& baseName,
                                oaUInt4 start, oaUInt4 stop, const oaTransform& xform,
                                const oaParamArray* params = nullptr,
                                oaBlockDomainVisibility view = oacInheritFromTopBlock,
                                oaPlacementStatus status = oacNonePlacementStatus);
    /// The master need not exist.
    static oaVectorInst* create(oaBlock* block, const oaScalarName& libName,
                                const oaScalarName& cellName, const oaScalarName& viewName,
                                const oaScalarName& baseName, oaUInt4 start, oaUInt4 stop,
                                const oaTransform& xform, const oaParamArray* params = nullptr,
                                oaBlockDomainVisibility view = oacInheritFromTopBlock,
                                oaPlacementStatus status = oacNonePlacementStatus);
    static oaVectorInst* find(const oaBlock* block, const oaScalarName& baseName, oaUInt4 start,
                              oaUInt4 stop);
    /// True when a vector of that name can be made.
    static oaBoolean isValidName(const oaBlock* block, const oaScalarName& baseName, oaUInt4 start,
                                 oaUInt4 stop);

    using oaInst::getName;
    void getName(oaVectorName& name) const;
    oaUInt4 getStart() const;
    oaUInt4 getStop() const;
    /// The bit at that place, counted from 0 at the start; null when there are fewer.
    oaVectorInstBit* getBit(oaUInt4 bitIndex) const;

    /// @throws oaDesignError  oacInstNameExists, oacInvalidInstName
    void setBaseName(const oaScalarName& baseName);
    /// Bits that are in the old range and the new one stay.
    /// @throws oaDesignError  oacInstNameExists, oacInvalidInstName
    void setRange(oaUInt4 start, oaUInt4 stop);

    OA_HANDLE(oaVectorInst);
};

/// One bit of a vector. An explicit one stands for itself; an implicit one shows its vector.
class OA_API oaVectorInstBit : public oaBitInst {
public:
    /// @throws oaDesignError  as oaScalarInst::create()
    static oaVectorInstBit* create(oaBlock* block, oaDesign* master, const oaScalarName& baseName,
                                   oaUInt4 bitIndex, const oaTransform& xform,
                                   const oaParamArray* params = nullptr,
                                   oaBlockDomainVisibility view = oacInheritFromTopBlock,
                                   oaPlacementStatus status = oacNonePlacementStatus);
    /// The master need not exist.
    static oaVectorInstBit* create(oaBlock* block, const oaScalarName& libName,
                                   const oaScalarName& cellName, const oaScalarName& viewName,
                                   const oaScalarName& baseName, oaUInt4 bitIndex,
                                   const oaTransform& xform, const oaParamArray* params = nullptr,
                                   oaBlockDomainVisibility view = oacInheritFromTopBlock,
                                   oaPlacementStatus status = oacNonePlacementStatus);
    static oaVectorInstBit* find(const oaBlock* block, const oaScalarName& baseName,
                                 oaUInt4 bitIndex);
    static oaBoolean isValidName(const oaBlock* block, const oaScalarName& baseName,
                                 oaUInt4 bitIndex);

    using oaInst::getName;
    void getName(oaVectorBitName& name) const;
    oaUInt4 getBitIndex() const;
    /// @throws oaDesignError  oacInstNameExists, oacInvalidInstName, oacCannotModifyImplicitInst
    void setName(const oaScalarName& baseName, oaUInt4 bitIndex);

    OA_HANDLE(oaVectorInstBit);
};

} // namespace OpenAccess_4
