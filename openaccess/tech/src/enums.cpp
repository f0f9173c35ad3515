#include "oaTechEnums.h"

#include "base/src/named_enum.h"

namespace OpenAccess_4 {

OA_ENUM_NAMES(oaUserUnitsType, "micron", "millimeter", "centimeter", "meter", "mil", "inch",
              "nanometer")

OA_ENUM_NAMES(oaMaterial, "other", "nWell", "pWell", "nDiff", "pDiff", "nImplant", "pImplant",
              "poly", "cut", "metal", "contactlessMetal", "diffusion", "recognition",
              "passivationCut")

OA_ENUM_NAMES(oaPurposeType, "drawing", "fill", "slot", "OPCSerif", "OPCAntiSerif", "annotation",
              "gapFill", "redundant", "oaAny", "oaNo", "oaFillOPC")

OA_ENUM_NAMES(oaPrefRoutingDir, "notApplicable", "none", "horizontal", "vertical", "leftDiag",
              "rightDiag")

OA_ENUM_NAMES(oaLayerOp, "AND", "OR", "NOT", "XOR", "TOUCHING", "BUTTONLY", "userDefined", "inside",
              "outside", "overlapping", "straddling", "avoiding", "butting", "coincident",
              "coincidentOnly", "enclosing", "buttingOrCoincident", "buttingOrOverlapping", "area",
              "grow", "shrink", "growVertical", "growHorizontal", "shrinkVertical",
              "shrinkHorizontal")

OA_ENUM_NAMES(oaClearanceMeasure, "euclidian", "maxXY")

OA_ENUM_NAMES(oaDerivedLayerParamType, "connectivityType", "selectShapesInRange", "range",
              "areaRange", "exclusive", "distance")

OA_ENUM_NAMES(oaRangeType, "lessThan", "lessThanEqual", "greaterThan", "greaterThanEqual", "closed",
              "open", "openLeft", "openRight")

OA_ENUM_NAMES(oaSizeOp, "GROW", "SHRINK")

OA_ENUM_NAMES(oaSiteDefType, "core", "pad")

OA_ENUM_NAMES(oaViaParamType, "layer1Enc", "layer2Enc", "implant1Enc", "implant2Enc",
              "layer1Offset", "layer2Offset", "cutSpacing", "originOffset", "cutSize", "cutLayer",
              "cutColumns", "cutRows", "cutWidth", "cutHeight")

} // namespace OpenAccess_4
