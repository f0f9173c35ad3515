#include "oaDMEnums.h"

#include "base/src/named_enum.h"

namespace OpenAccess_4 {

OA_ENUM_NAMES(oaLibAccess, "read", "write")

OA_ENUM_NAMES(oaLibAccessLevel, "no access", "read access", "write access")

OA_ENUM_NAMES(oaLibMode, "shared", "nonShared", "readOnly")

OA_ENUM_NAMES(oaDMLockStatus, "not locked", "locked by current process",
              "locked by foreign process")

OA_ENUM_NAMES(oaReservedViewType, "maskLayout", "schematic", "schematicSymbol", "netlist", "wafer",
              "verilogAMSText", "VHDLAMSText", "verilogText", "VHDLText", "verilogAText",
              "oaHierDesign", "systemVerilogText", "SPECTREText", "SPICEText", "HSPICEText",
              "CDLText")

} // namespace OpenAccess_4
