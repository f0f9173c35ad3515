#pragma once

#include "oaTechEnums.h"
#include "oaVector.h"

#include <array>
#include <utility>
#include <vector>

namespace OpenAccess_4 {

namespace impl {
class ViaParams;
}

/// The parameters of a standard via: an array of cuts, the two layers that enclose it, and implants
/// around these.
///
/// A parameter has its default until it is set. In a definition the default of a parameter is 0, of
/// the numbers of rows and columns 1; in a via it is the value of the definition.
class OA_API oaViaParam {
public:
    oaViaParam();

    oaLayerNum getCutLayer() const { return cutLayer_; }
    void setCutLayer(oaLayerNum cutLayer);
    oaUInt4 getCutColumns() const { return cutColumns_; }
    /// @throws oaTechError  oacInvalidViaParam: it is 0
    void setCutColumns(oaUInt4 cutColumns);
    oaUInt4 getCutRows() const { return cutRows_; }
    /// @throws oaTechError  oacInvalidViaParam: it is 0
    void setCutRows(oaUInt4 cutRows);
    oaDist getCutWidth() const { return cutWidth_; }
    void setCutWidth(oaDist width);
    oaDist getCutHeight() const { return cutHeight_; }
    void setCutHeight(oaDist height);
    /// The space between the edges of neighbouring cuts.
    const oaVector& getCutSpacing() const { return vector(oacCutSpacingViaParamType); }
    void setCutSpacing(const oaVector& cutSpacing);
    /// Where the centre of the cuts lies, seen from the origin of the via.
    const oaVector& getOriginOffset() const { return vector(oacOriginOffsetViaParamType); }
    void setOriginOffset(const oaVector& originOffset);
    /// How far a layer reaches beyond the cuts, to the left and the right, and below and above.
    const oaVector& getLayer1Enc() const { return vector(oacLayer1EncViaParamType); }
    void setLayer1Enc(const oaVector& layer1Enc);
    const oaVector& getLayer2Enc() const { return vector(oacLayer2EncViaParamType); }
    void setLayer2Enc(const oaVector& layer2Enc);
    /// How far a layer is shifted against the cuts.
    const oaVector& getLayer1Offset() const { return vector(oacLayer1OffsetViaParamType); }
    void setLayer1Offset(const oaVector& layer1Offset);
    const oaVector& getLayer2Offset() const { return vector(oacLayer2OffsetViaParamType); }
    void setLayer2Offset(const oaVector& layer2Offset);
    /// How far an implant reaches beyond the layer of the same number.
    const oaVector& getImplant1Enc() const { return vector(oacImplant1EncViaParamType); }
    void setImplant1Enc(const oaVector& imp1Enc);
    const oaVector& getImplant2Enc() const { return vector(oacImplant2EncViaParamType); }
    void setImplant2Enc(const oaVector& imp2Enc);

    /// Whether there is a cut at a place of the array, row 0 being the lowest and column 0 the
    /// leftmost. There is one everywhere until it is taken out.
    oaBoolean getCutPatternVal(oaUInt4 cutRowNum, oaUInt4 cutColNum) const;
    void setCutPatternVal(oaUInt4 cutRowNum, oaUInt4 cutColNum, oaBoolean val);
    oaBoolean hasDefaultCutPattern() const;
    void setDefaultCutPattern();

    /// The size of cuts is their width and their height.
    oaBoolean hasDefault(oaViaParamType paramType) const;
    void setDefault(oaViaParamType paramType);

    /// True when all values are the same, and defaults of the same parameters.
    oaBoolean isEqual(const oaViaParam& params) const;

private:
    friend class impl::ViaParams;
    using Cut = std::pair<oaUInt4, oaUInt4>; // row and column

    static constexpr oaUInt4 kCutPattern = oacCutHeightViaParamType + 1;

    bool isGiven(oaUInt4 param) const { return (given_ >> param & 1) != 0; }
    const oaVector& vector(oaViaParamTypeEnum param) const { return vectors_[param]; }
    void setVector(oaViaParamTypeEnum param, const oaVector& value);
    void reset(oaUInt4 param);

    oaUInt4 given_ = 0; // bit n: the parameter n is set
    oaLayerNum cutLayer_ = 0;
    oaUInt4 cutColumns_ = 1;
    oaUInt4 cutRows_ = 1;
    oaDist cutWidth_ = 0;
    oaDist cutHeight_ = 0;
    std::array<oaVector, oacOriginOffsetViaParamType + 1> vectors_; // the first types are vectors
    std::vector<Cut> missing_;                                      // in order
};

} // namespace OpenAccess_4
