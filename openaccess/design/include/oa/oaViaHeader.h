#pragma once

#include "oa/oaInstHeader.h"

namespace OpenAccess_4 {

class oaBlock;
class oaVia;
class oaViaDef;
class oaViaParam;

/// What the vias of one definition in a block have in common. It comes with the first of them and
/// goes with the last.
///
/// The vias lie under one sub header for each set of parameters that they were given, the empty one
/// included. The masters are those of the sub headers. A super header of standard vias has none;
/// one of custom vias has the design that the definition names, which is the super master when it
/// is a pcell.
class OA_API oaViaHeader : public oaRefHeader {
public:
    /// The super header of the vias of that definition, or null.
    static oaViaHeader* find(const oaBlock* block, const oaString& viaDefName);
    static oaViaHeader* find(const oaBlock* block, const oaViaDef* viaDef);

    /// Null when the technology of the design sees none of the name and kind.
    oaViaDef* getViaDef() const;
    void getViaDefName(oaString& name) const;
    /// The vias; of a super header those of all its sub headers.
    oaCollection<oaVia, oaViaHeader> getVias() const;
    /// None when the header is a sub header.
    oaCollection<oaViaHeader, oaViaHeader> getSubHeaders() const;

    OA_HANDLE(oaViaHeader);
};

class OA_API oaStdViaHeader : public oaViaHeader {
public:
    /// The parameters of the vias of a sub header, as oaStdVia::getViaParams(); for a super header
    /// those of the definition, all by default.
    void getParams(oaViaParam& params) const;

    OA_HANDLE(oaStdViaHeader);
};

class OA_API oaCustomViaHeader : public oaViaHeader {
public:
    /// The names of the master, as the definition says; empty without a definition.
    void getLibName(oaScalarName& libName) const;
    void getLibName(const oaNameSpace& ns, oaString& libName) const;
    void getCellName(oaScalarName& cellName) const;
    void getCellName(const oaNameSpace& ns, oaString& cellName) const;
    void getViewName(oaScalarName& viewName) const;
    void getViewName(const oaNameSpace& ns, oaString& viewName) const;
    /// The parameters that the vias of a sub header were given; none for a super header.
    void getParams(oaParamArray& params) const;
    /// With the defaults of the super master, as oaInstHeader::getAllParams().
    void getAllParams(oaParamArray& params) const;

    OA_HANDLE(oaCustomViaHeader);
};

} // namespace OpenAccess_4
