#pragma once

#include "oaString.h"

namespace OpenAccess_4::impl {

/// The build that the application named in oaBaseInitAppBuild; empty when it did not.
const oaString& appBuildName();
/// The build of this library.
const oaString& kitBuildName();
/// The data model revision that the application gave to the init functions.
oaUInt4 appDataModelRev();

/// The checks that the init functions of all packages share.
/// @throws oaError  the application wants another major, a later minor or a later data model.
OA_API void checkRevisions(oaUInt4 apiMajorRev, oaUInt4 apiMinorRev, oaUInt4 dataModelRev);

} // namespace OpenAccess_4::impl
