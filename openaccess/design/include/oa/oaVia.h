#pragma once

#include "oa/oaRef.h"

namespace OpenAccess_4 {

class oaBlock;
class oaCustomViaDef;
class oaCustomViaHeader;
class oaNameSpace;
class oaParamArray;
class oaScalarName;
class oaStdViaDef;
class oaStdViaHeader;
class oaString;
class oaViaDef;
class oaViaHeader;
class oaViaParam;

/// A connection between two layers, placed in a block.
///
/// A via keeps the name of its definition, and follows the definition of that name and kind which
/// the technology of the design sees. While there is none it has no master and no extent.
class OA_API oaVia : public oaRef {
public:
    /// Null when the technology of the design sees none of the name and kind.
    oaViaDef* getViaDef() const;
    void getViaDefName(oaString& name) const;
    /// The sub header for the parameters.
    oaViaHeader* getHeader() const;

    OA_HANDLE(oaVia);
};

/// A via that parameters describe. Its master is made from them: a design that is in no library.
class OA_API oaStdVia : public oaVia {
public:
    /// Parameters that are not set are those of the definition.
    /// @throws oaDesignError  oacInvalidViaDef: the technology of the design sees another
    ///                        definition of that name, or none
    /// @throws oaTechError    oacInvalidViaParam: there are too many cuts
    static oaStdVia* create(oaBlock* block, const oaStdViaDef* viaDef, const oaTransform& xform,
                            const oaViaParam* params = nullptr);

    oaStdViaHeader* getHeader() const;
    /// The parameters that the via has. Those that it was not given have their default, which is
    /// the value of the definition.
    void getViaParams(oaViaParam& params) const;
    /// @throws oaTechError  oacInvalidViaParam
    void setViaParams(const oaViaParam& params);

    OA_HANDLE(oaStdVia);
};

/// A via that is drawn in a design of its own, which may be a pcell.
class OA_API oaCustomVia : public oaVia {
public:
    /// @throws oaDesignError  oacInvalidViaDef, see oaStdVia; oacInvalidDataTypeForParam,
    ///                        oacParamsSuppliedForNonPCellInstMaster: as for instances
    static oaCustomVia* create(oaBlock* block, const oaCustomViaDef* viaDef,
                               const oaTransform& xform, const oaParamArray* params = nullptr);

    oaCustomViaHeader* getHeader() const;
    /// The names of the master, as the definition says; empty without a definition.
    void getLibName(oaScalarName& libName) const;
    void getLibName(const oaNameSpace& ns, oaString& libName) const;
    void getCellName(oaScalarName& cellName) const;
    void getCellName(const oaNameSpace& ns, oaString& cellName) const;
    void getViewName(oaScalarName& viewName) const;
    void getViewName(const oaNameSpace& ns, oaString& viewName) const;
    /// The parameters that the via was given.
    void getParams(oaParamArray& params) const;
    void setParams(const oaParamArray& params);

    OA_HANDLE(oaCustomVia);
};

} // namespace OpenAccess_4
