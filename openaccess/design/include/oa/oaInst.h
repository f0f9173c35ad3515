#pragma once

#include "oa/oaDesignEnums.h"
#include "oa/oaParamArray.h"
#include "oa/oaRef.h"

namespace OpenAccess_4 {

class oaNameSpace;
class oaScalarName;
class oaSimpleName;

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
    oaBoolean isImplicit() const;
    oaPlacementStatus getPlacementStatus() const;
    void setPlacementStatus(oaPlacementStatus status);

    /// The parameters that the instance was given.
    void getParams(oaParamArray& params) const;
    oaBoolean findParam(const oaString& name, oaParam& param) const;
    void setParams(const oaParamArray& params);

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
class OA_API oaScalarInst : public oaBitInst {
public:
    /// @throws oaDesignError  oacInstNameExists; oacInvalidInstName: the name is empty
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

} // namespace OpenAccess_4
