#include "core/statics.h"

#include <ovalis/core.h>

namespace ovalis {

bool initialised = false;
oa::oaDoubleAppDef<oa::oaPin>* vexPinAngle = nullptr;

const oa::oaNativeNS nativeNameSpace;
const oa::oaUnixNS unixNameSpace;
const oa::oaWinNS windowsNameSpace;

const oa::oaString artworkWord = "tessa_3dc_artwork";
const oa::oaString pinWord = "tessa_3dc_pins";

} // namespace ovalis
