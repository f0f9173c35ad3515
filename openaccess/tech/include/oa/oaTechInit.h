#pragma once

#include "oaBaseInit.h"

namespace OpenAccess_4 {

/// Brings up the technology package and those below it; see oaBaseInit.
OA_API void oaTechInit(oaUInt4 apiMajorRev = oacAPIMajorRevNumber,
                       oaUInt4 apiMinorRev = oacAPIMinorRevNumber,
                       oaUInt4 dataModelRev = oacDataModelRevNumber);

} // namespace OpenAccess_4

using OpenAccess_4::oaTechInit;
