#pragma once

#include "oaString.h"

namespace OpenAccess_4 {

/// Brings up the base package. The init functions may be called in any order and repeatedly.
/// @throws oaError  oacInvalidMajorAPIRev, oacInvalidAPIRev or oacInvalidDataModelRev: the
///                  application was built for something that this library does not offer.
OA_API void oaBaseInit(oaUInt4 apiMajorRev = oacAPIMajorRevNumber,
                       oaUInt4 apiMinorRev = oacAPIMinorRevNumber,
                       oaUInt4 dataModelRev = oacDataModelRevNumber);

/// Names the build that the application was made with, before the first init call.
OA_API void oaBaseInitAppBuild(const oaString& buildName);

} // namespace OpenAccess_4

using OpenAccess_4::oaBaseInit;
using OpenAccess_4::oaBaseInitAppBuild;
