#pragma once

#include "oa/oaDesignEnums.h"
#include "oa/oaDesignObject.h"

namespace OpenAccess_4 {

class oaBox;
class oaInst;
class oaNameSpace;
class oaParam;
class oaParamArray;
class oaScalarName;
class oaString;

/// What the references of a block to one design have in common.
class OA_API oaRefHeader : public oaBlockObject {
public:
    /// The design, which is opened for reading when it is not open; null when it cannot be. Of a
    /// sub header, the submaster, which is evaluated when it is not there yet.
    oaDesign* getMaster() const;
    /// True when the master is open and known to the header. Opens and evaluates nothing.
    oaBoolean isBound() const;
    /// True for the header of a pcell, and for headers of vias that are no sub headers. One that is
    /// not bound is taken for a pcell when an instance has parameters.
    oaBoolean isSuperHeader() const;
    /// True for one of the headers that a super header has for each set of parameters.
    oaBoolean isSubHeader() const;
    /// The super header of a sub header; null for others.
    oaRefHeader* getSuperHeader() const;

    /// The box of the master; an inverted one when it is empty or cannot be had.
    void getMasterBBox(oaBox& bBox) const;
    /// The smallest box around all references.
    void getBBox(oaBox& bBox) const;

    OA_HANDLE(oaRefHeader);
};

/// What the instances of one design in a block have in common. It comes with the first of them and
/// goes with the last.
///
/// The instances of a pcell lie under one sub header for each set of parameters that they were
/// given. Sub headers are found anew each time a design is opened: nothing that is stored can be
/// attached to them.
class OA_API oaInstHeader : public oaRefHeader {
public:
    /// The header of a design; for a submaster the sub header that is bound to it, for a super
    /// master the super header. Null when no instance of it is in the block.
    static oaInstHeader* find(const oaBlock* block, const oaDesign* master);
    static oaInstHeader* find(const oaBlock* block, const oaScalarName& libName,
                              const oaScalarName& cellName, const oaScalarName& viewName);

    void getLibName(oaScalarName& libName) const;
    void getLibName(const oaNameSpace& ns, oaString& libName) const;
    void getCellName(oaScalarName& cellName) const;
    void getCellName(const oaNameSpace& ns, oaString& cellName) const;
    void getViewName(oaScalarName& viewName) const;
    void getViewName(const oaNameSpace& ns, oaString& viewName) const;

    /// The instances; of a super header those of all its sub headers.
    oaCollection<oaInst, oaInstHeader> getInsts(oaUInt4 filterFlags = oacInstIterNotImplicit) const;
    /// None when the header is no super header.
    oaCollection<oaInstHeader, oaInstHeader> getSubHeaders() const;

    /// The parameters that the instances of a sub header were given; none for other headers.
    void getParams(oaParamArray& params) const;
    /// With the defaults of the super master, in its order. Opens the super master; when that
    /// cannot be, these are the ones that were given.
    void getAllParams(oaParamArray& params) const;
    /// One of getAllParams().
    oaBoolean findParam(const oaString& name, oaParam& param) const;

    OA_HANDLE(oaInstHeader);
};

} // namespace OpenAccess_4
