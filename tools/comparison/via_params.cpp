#include "comparison/via_params.h"

#include <type_traits>

#include "comparison/text.h"

namespace comparison {
namespace {

std::string vectorText(const oa::oaVector& vector) {
    return textOf(oa::oaPoint(vector.x(), vector.y()));
}

/// The rows and columns where there is no cut.
std::string missingCuts(const oa::oaViaParam& params) {
    std::string text;
    for (oa::oaUInt4 row = 0; row < params.getCutRows(); ++row)
        for (oa::oaUInt4 column = 0; column < params.getCutColumns(); ++column)
            if (!params.getCutPatternVal(row, column))
                text += (text.empty() ? "" : " ") + numberText(row) + "," + numberText(column);
    return text;
}

} // namespace

void addViaParams(Fields& fields, const oa::oaViaParam& params) {
    const auto add = [&](oa::oaViaParamTypeEnum type, const char* name, const auto& value) {
        if (params.hasDefault(type))
            return;
        if constexpr (std::is_same_v<std::decay_t<decltype(value)>, oa::oaVector>)
            fields.set(name, vectorText(value));
        else
            fields.set(name, numberText(value));
    };
    add(oa::oacCutLayerViaParamType, "cut layer", params.getCutLayer());
    add(oa::oacCutColumnsViaParamType, "cut columns", params.getCutColumns());
    add(oa::oacCutRowsViaParamType, "cut rows", params.getCutRows());
    add(oa::oacCutWidthViaParamType, "cut width", params.getCutWidth());
    add(oa::oacCutHeightViaParamType, "cut height", params.getCutHeight());
    add(oa::oacCutSpacingViaParamType, "cut spacing", params.getCutSpacing());
    add(oa::oacOriginOffsetViaParamType, "offset of the origin", params.getOriginOffset());
    add(oa::oacLayer1EncViaParamType, "enclosure of the first layer", params.getLayer1Enc());
    add(oa::oacLayer2EncViaParamType, "enclosure of the second layer", params.getLayer2Enc());
    add(oa::oacLayer1OffsetViaParamType, "offset of the first layer", params.getLayer1Offset());
    add(oa::oacLayer2OffsetViaParamType, "offset of the second layer", params.getLayer2Offset());
    add(oa::oacImplant1EncViaParamType, "enclosure of the first implant", params.getImplant1Enc());
    add(oa::oacImplant2EncViaParamType, "enclosure of the second implant", params.getImplant2Enc());
    if (!params.hasDefaultCutPattern())
        fields.set("cuts taken out", missingCuts(params));
}

} // namespace comparison
