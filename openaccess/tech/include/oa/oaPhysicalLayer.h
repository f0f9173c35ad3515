#pragma once

#include "oaLayer.h"
#include "oaLayerArray.h"
#include "oaTechEnums.h"

namespace OpenAccess_4 {

/// A layer that is made, or drawn, as it is.
class OA_API oaPhysicalLayer : public oaLayer {
public:
    /// @throws oaTechError  oacLayerNameExists, oacLayerNumberExists, oacCannotModifyReadModeTech
    static oaPhysicalLayer* create(oaTech* tech, const oaString& name, oaLayerNum number,
                                   oaMaterial material = oacOtherMaterial,
                                   oaUInt4 maskNumber = oacUnsetMaskNumber);

    /// The physical layer of that name or number; null also when that is a layer of another kind.
    static oaPhysicalLayer* find(const oaTech* tech, const oaString& name, oaBoolean local = false);
    static oaPhysicalLayer* find(const oaTech* tech, oaLayerNum number, oaBoolean local = false);

    oaMaterial getMaterial() const;
    void setMaterial(oaMaterial material);

    /// The place in the order in which layers are made; oacUnsetMaskNumber when it has none.
    oaUInt4 getMaskNumber() const;
    void setMaskNumber(oaUInt4 number);

    /// oacNotApplicablePrefRoutingDir until it is set.
    oaPrefRoutingDir getPrefRoutingDir() const;
    void setPrefRoutingDir(oaPrefRoutingDir direction);

    /// The grid in database units; the technology's default when the layer has none of its own.
    oaDist getManufacturingGrid() const;
    void setManufacturingGrid(oaDist grid);
    void resetManufacturingGrid();

    /// The numbers of the layers that must not be in a technology together with this one: seeing
    /// both is a conflict, which the observers are told of.
    void getExcludedLayers(oaLayerArray& numbers) const;
    void setExcludedLayers(const oaLayerArray& numbers);

    OA_HANDLE(oaPhysicalLayer);
};

} // namespace OpenAccess_4
