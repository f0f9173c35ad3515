#include "base/src/append_bytes.h"
#include "oa/oaTechException.h"
#include "oa/oaViaParam.h"
#include "tech/src/via_params.h"

#include <algorithm>
#include <cstring>

namespace OpenAccess_4 {

using namespace impl;

namespace {

// A via of more cuts than this is a mistake, or damage, and would take the memory of the process.
constexpr std::uint64_t kMostCuts = 1u << 20;

void requireSome(oaViaParamType type, oaUInt4 count) {
    if (count == 0)
        throw oaTechError(oacInvalidViaParam, static_cast<const oaChar*>(type.getName()), count);
}

} // namespace

oaViaParam::oaViaParam() = default;

void oaViaParam::setCutLayer(oaLayerNum cutLayer) {
    cutLayer_ = cutLayer;
    given_ |= 1u << oacCutLayerViaParamType;
}

void oaViaParam::setCutColumns(oaUInt4 cutColumns) {
    requireSome(oacCutColumnsViaParamType, cutColumns);
    cutColumns_ = cutColumns;
    given_ |= 1u << oacCutColumnsViaParamType;
}

void oaViaParam::setCutRows(oaUInt4 cutRows) {
    requireSome(oacCutRowsViaParamType, cutRows);
    cutRows_ = cutRows;
    given_ |= 1u << oacCutRowsViaParamType;
}

void oaViaParam::setCutWidth(oaDist width) {
    cutWidth_ = width;
    given_ |= 1u << oacCutWidthViaParamType;
}

void oaViaParam::setCutHeight(oaDist height) {
    cutHeight_ = height;
    given_ |= 1u << oacCutHeightViaParamType;
}

void oaViaParam::setVector(oaViaParamTypeEnum param, const oaVector& value) {
    vectors_[param] = value;
    given_ |= 1u << param;
}

void oaViaParam::setCutSpacing(const oaVector& cutSpacing) {
    setVector(oacCutSpacingViaParamType, cutSpacing);
}

void oaViaParam::setOriginOffset(const oaVector& originOffset) {
    setVector(oacOriginOffsetViaParamType, originOffset);
}

void oaViaParam::setLayer1Enc(const oaVector& layer1Enc) {
    setVector(oacLayer1EncViaParamType, layer1Enc);
}

void oaViaParam::setLayer2Enc(const oaVector& layer2Enc) {
    setVector(oacLayer2EncViaParamType, layer2Enc);
}

void oaViaParam::setLayer1Offset(const oaVector& layer1Offset) {
    setVector(oacLayer1OffsetViaParamType, layer1Offset);
}

void oaViaParam::setLayer2Offset(const oaVector& layer2Offset) {
    setVector(oacLayer2OffsetViaParamType, layer2Offset);
}

void oaViaParam::setImplant1Enc(const oaVector& imp1Enc) {
    setVector(oacImplant1EncViaParamType, imp1Enc);
}

void oaViaParam::setImplant2Enc(const oaVector& imp2Enc) {
    setVector(oacImplant2EncViaParamType, imp2Enc);
}

oaBoolean oaViaParam::getCutPatternVal(oaUInt4 cutRowNum, oaUInt4 cutColNum) const {
    return !std::ranges::binary_search(missing_, Cut(cutRowNum, cutColNum));
}

void oaViaParam::setCutPatternVal(oaUInt4 cutRowNum, oaUInt4 cutColNum, oaBoolean val) {
    const Cut cut(cutRowNum, cutColNum);
    const auto place = std::ranges::lower_bound(missing_, cut);
    const bool isMissing = place != missing_.end() && *place == cut;
    if (val && isMissing)
        missing_.erase(place);
    else if (!val && !isMissing)
        missing_.insert(place, cut);
    given_ |= 1u << kCutPattern;
}

oaBoolean oaViaParam::hasDefaultCutPattern() const {
    return !isGiven(kCutPattern);
}

void oaViaParam::setDefaultCutPattern() {
    reset(kCutPattern);
}

oaBoolean oaViaParam::hasDefault(oaViaParamType paramType) const {
    if (paramType == oacCutSizeViaParamType)
        return !isGiven(oacCutWidthViaParamType) && !isGiven(oacCutHeightViaParamType);
    return !isGiven(paramType);
}

void oaViaParam::setDefault(oaViaParamType paramType) {
    if (paramType == oacCutSizeViaParamType) {
        reset(oacCutWidthViaParamType);
        reset(oacCutHeightViaParamType);
    } else {
        reset(paramType);
    }
}

void oaViaParam::reset(oaUInt4 param) {
    const oaViaParam byDefault;
    given_ &= ~(1u << param);
    switch (param) {
    case oacCutLayerViaParamType:
        cutLayer_ = byDefault.cutLayer_;
        break;
    case oacCutColumnsViaParamType:
        cutColumns_ = byDefault.cutColumns_;
        break;
    case oacCutRowsViaParamType:
        cutRows_ = byDefault.cutRows_;
        break;
    case oacCutWidthViaParamType:
        cutWidth_ = byDefault.cutWidth_;
        break;
    case oacCutHeightViaParamType:
        cutHeight_ = byDefault.cutHeight_;
        break;
    case kCutPattern:
        missing_.clear();
        break;
    default:
        vectors_[param] = byDefault.vectors_[param];
        break;
    }
}

oaBoolean oaViaParam::isEqual(const oaViaParam& params) const {
    return given_ == params.given_ && ViaParams::key(*this) == ViaParams::key(params);
}

namespace impl {

StoredViaParam ViaParams::store(const oaViaParam& params, StringPool& strings) {
    StoredViaParam stored;
    stored.given = params.given_;
    const auto isGiven = [&](oaUInt4 param) { return params.isGiven(param); };
    if (isGiven(oacCutLayerViaParamType))
        stored.cutLayer = params.cutLayer_;
    if (isGiven(oacCutColumnsViaParamType))
        stored.cutColumns = params.cutColumns_;
    if (isGiven(oacCutRowsViaParamType))
        stored.cutRows = params.cutRows_;
    if (isGiven(oacCutWidthViaParamType))
        stored.cutWidth = params.cutWidth_;
    if (isGiven(oacCutHeightViaParamType))
        stored.cutHeight = params.cutHeight_;
    for (std::uint32_t i = 0; i < StoredViaParam::kVectors; ++i)
        if (isGiven(i))
            stored.vectors[i] = {params.vectors_[i].x(), params.vectors_[i].y()};
    std::string missing;
    if (isGiven(oaViaParam::kCutPattern))
        for (const oaViaParam::Cut& cut : params.missing_) {
            appendBytes(missing, cut.first);
            appendBytes(missing, cut.second);
        }
    stored.missingCuts = strings.intern(missing);
    return stored;
}

oaViaParam ViaParams::load(const StoredViaParam& stored, const StringPool& strings) {
    oaViaParam params;
    params.given_ = stored.given;
    params.cutLayer_ = stored.cutLayer;
    params.cutColumns_ = stored.cutColumns;
    params.cutRows_ = stored.cutRows;
    params.cutWidth_ = stored.cutWidth;
    params.cutHeight_ = stored.cutHeight;
    for (std::uint32_t i = 0; i < StoredViaParam::kVectors; ++i)
        params.vectors_[i] = oaVector(stored.vectors[i][0], stored.vectors[i][1]);
    const std::string_view missing = strings.text(stored.missingCuts);
    for (std::size_t at = 0; at + 2 * sizeof(oaUInt4) <= missing.size();
         at += 2 * sizeof(oaUInt4)) {
        std::array<oaUInt4, 2> cut{};
        std::memcpy(cut.data(), missing.data() + at, sizeof(cut));
        params.missing_.emplace_back(cut[0], cut[1]);
    }
    return params;
}

bool ViaParams::isSound(const StoredViaParam& stored, const StringPool& strings) {
    if (strings.text(stored.missingCuts).size() % (2 * sizeof(oaUInt4)) != 0)
        return false;
    const std::vector<oaViaParam::Cut> missing = load(stored, strings).missing_;
    return std::ranges::adjacent_find(missing, std::ranges::greater_equal()) == missing.end();
}

oaViaParam ViaParams::overlaid(const oaViaParam& definition, const oaViaParam& given) {
    oaViaParam params = given;
    const auto inherits = [&](oaUInt4 param) { return !given.isGiven(param); };
    if (inherits(oacCutLayerViaParamType))
        params.cutLayer_ = definition.cutLayer_;
    if (inherits(oacCutColumnsViaParamType))
        params.cutColumns_ = definition.cutColumns_;
    if (inherits(oacCutRowsViaParamType))
        params.cutRows_ = definition.cutRows_;
    if (inherits(oacCutWidthViaParamType))
        params.cutWidth_ = definition.cutWidth_;
    if (inherits(oacCutHeightViaParamType))
        params.cutHeight_ = definition.cutHeight_;
    for (std::uint32_t i = 0; i < StoredViaParam::kVectors; ++i)
        if (inherits(i))
            params.vectors_[i] = definition.vectors_[i];
    if (inherits(oaViaParam::kCutPattern))
        params.missing_ = definition.missing_;
    return params;
}

std::string ViaParams::key(const oaViaParam& params) {
    std::string bytes;
    for (const oaUInt4 value : {params.cutLayer_, params.cutColumns_, params.cutRows_,
                                params.cutWidth_, params.cutHeight_})
        appendBytes(bytes, value);
    for (const oaVector& vector : params.vectors_) {
        appendBytes(bytes, vector.x());
        appendBytes(bytes, vector.y());
    }
    for (const oaViaParam::Cut& cut : params.missing_) {
        appendBytes(bytes, cut.first);
        appendBytes(bytes, cut.second);
    }
    return bytes;
}

bool ViaParams::isDrawable(const oaViaParam& params) {
    return std::uint64_t(params.cutColumns_) * params.cutRows_ <= kMostCuts;
}

void ViaParams::requireDrawable(const oaViaParam& params) {
    if (isDrawable(params))
        return;
    const bool rows = params.cutRows_ > params.cutColumns_;
    const oaViaParamType type = rows ? oacCutRowsViaParamType : oacCutColumnsViaParamType;
    throw oaTechError(oacInvalidViaParam, static_cast<const oaChar*>(type.getName()),
                      rows ? params.cutRows_ : params.cutColumns_);
}

} // namespace impl

} // namespace OpenAccess_4
