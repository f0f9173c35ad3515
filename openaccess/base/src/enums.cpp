#include "oaBaseEnums.h"

#include "base/src/named_enum.h"

namespace OpenAccess_4 {

OA_ENUM_NAMES(oaParamType, "intParam", "floatParam", "stringParam", "appParam", "doubleParam",
              "booleanParam", "timeParam")

OA_ENUM_NAMES(oaEndStyle, "truncate", "extend", "variable", "chamfer", "custom")

OA_ENUM_NAMES(oaGroupType, "collection", "set")

OA_ENUM_NAMES(oaGroupDeleteWhen, "never", "onFirst", "onLast")

OA_ENUM_NAMES(oaDomain, "future", "none", "block", "occurrence", "module")

OA_ENUM_NAMES(oaNameType, "empty", "scalarName", "vectorName", "vectorBitName", "bundleName")

OA_ENUM_NAMES(oaDBType, "future", "base", "design", "tech", "lib", "wafer", "session", "DMData")

} // namespace OpenAccess_4
