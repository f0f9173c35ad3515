#pragma once

#include "oaString.h"
#include "oaTechObject.h"
#include "oaViaParam.h"

namespace OpenAccess_4 {

class oaNameSpace;
class oaPhysicalLayer;
class oaScalarName;
class oaViaHeader;

/// How two layers of a technology can be connected. Its name is its own: no other via definition of
/// the technology, of whatever kind, has it, nor had one that the technology refers to when it got
/// it.
///
/// Layers are kept by number, see oaDerivedLayer.
class OA_API oaViaDef : public oaTechObject {
public:
    /// The definition of that name, or null. Those of the technologies that `tech` refers to are
    /// looked at behind its own, unless `local` is set.
    static oaViaDef* find(const oaTech* tech, const oaString& name, oaBoolean local = false);

    void getName(oaString& name) const;

    /// The layers; null when the technology does not see one of that number, or it is no physical
    /// one.
    oaPhysicalLayer* getLayer1() const;
    oaPhysicalLayer* getLayer2() const;
    void getLayers(oaPhysicalLayer*& layer1, oaPhysicalLayer*& layer2) const;
    oaLayerNum getLayer1Num() const;
    oaLayerNum getLayer2Num() const;
    /// True for the two layers, the cut layer and the implants.
    oaBoolean hasLayer(oaLayerNum layerNum) const;

    /// 0 until it is set.
    oaFloat getResistancePerCut() const;
    void setResistancePerCut(oaFloat resPerCut);

    /// The headers of those open designs that have vias of this definition.
    oaCollection<oaViaHeader, oaViaDef> getUsedIn() const;

    /// Vias of this definition stay in their designs, without a definition and a master.
    void destroy();

    OA_HANDLE(oaViaDef);
};

/// A via that parameters describe.
class OA_API oaStdViaDef : public oaViaDef {
public:
    /// @throws oaTechError  oacViaDefNameExists; oacInvalidViaDefLayer: the technology does not see
    ///                      a layer; oacInvalidViaParam: there are too many cuts;
    ///                      oacCannotModifyReadModeTech
    static oaStdViaDef* create(oaTech* tech, const oaString& name, oaPhysicalLayer* layer1,
                               oaPhysicalLayer* layer2, const oaViaParam& params,
                               oaPhysicalLayer* implant1 = nullptr,
                               oaPhysicalLayer* implant2 = nullptr);

    void getParams(oaViaParam& params) const;
    /// Vias of this definition follow.
    /// @throws oaTechError  oacInvalidViaParam
    void setParams(const oaViaParam& params);

    oaBoolean hasImplant1() const;
    oaBoolean hasImplant2() const;
    /// Null when there is none.
    oaPhysicalLayer* getImplant1() const;
    oaPhysicalLayer* getImplant2() const;
    /// oacNullIndex when there is none.
    oaLayerNum getImplant1Num() const;
    oaLayerNum getImplant2Num() const;

    OA_HANDLE(oaStdViaDef);
};

/// A via that is drawn in a design of its own.
class OA_API oaCustomViaDef : public oaViaDef {
public:
    /// The master need not exist yet.
    /// @throws oaTechError  oacViaDefNameExists, oacInvalidViaDefLayer, oacCannotModifyReadModeTech
    static oaCustomViaDef* create(oaTech* tech, const oaString& name, const oaScalarName& libName,
                                  const oaScalarName& cellName, const oaScalarName& viewName,
                                  oaPhysicalLayer* layer1, oaPhysicalLayer* layer2);

    void getLibName(oaScalarName& libName) const;
    void getLibName(const oaNameSpace& ns, oaString& libName) const;
    void getCellName(oaScalarName& cellName) const;
    void getCellName(const oaNameSpace& ns, oaString& cellName) const;
    void getViewName(oaScalarName& viewName) const;
    void getViewName(const oaNameSpace& ns, oaString& viewName) const;
    /// Vias of this definition follow.
    void setMaster(const oaScalarName& libName, const oaScalarName& cellName,
                   const oaScalarName& viewName);

    OA_HANDLE(oaCustomViaDef);
};

} // namespace OpenAccess_4
