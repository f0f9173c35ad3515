#include "oaDesignEnums.h"

#include "base/src/named_enum.h"

namespace OpenAccess_4 {

OA_ENUM_NAMES(oaTextAlign, "upperLeft", "centerLeft", "lowerLeft", "upperCenter", "centerCenter",
              "lowerCenter", "upperRight", "centerRight", "lowerRight")

OA_ENUM_NAMES(oaFont, "euroStyle", "gothic", "math", "roman", "script", "stick", "fixed", "swedish",
              "milSpec")

OA_ENUM_NAMES(oaTextDisplayFormat, "name", "value", "nameValue")

OA_ENUM_NAMES(oaTermType, "input", "output", "inputOutput", "switch", "jumper", "unused",
              "tristate")

OA_ENUM_NAMES(oaSigType, "signal", "power", "ground", "clock", "tieoff", "tieHi", "tieLo", "analog",
              "scan", "reset")

OA_ENUM_NAMES(oaBlockDomainVisibility, "inheritFromTopBlock", "excludeFromModuleDomain")

OA_ENUM_NAMES(oaPlacementStatus, "none", "unplaced", "placed", "fixed", "locked")

OA_ENUM_NAMES(oaPinType, "none", "core", "bump")

OA_ENUM_NAMES(oaPathStyle, "truncate", "extend", "round", "variable")

OA_ENUM_NAMES(oaCellType, "none", "block", "blockRing", "cover", "coverBump", "pad", "padSpacer",
              "core", "coreSpacer", "coreAntenna", "corner", "softMacro", "via", "blockBlackBox",
              "padAreaIO", "coreWellTap")

OA_ENUM_NAMES(oaBitOrder, "none", "ascending", "descending")

} // namespace OpenAccess_4
