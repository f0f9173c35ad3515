#pragma once

#include "oa/oaDesignDB.h"

namespace oa = OpenAccess_4;

/// The application-defined values that the fuzzers know: one of each kind.
namespace fuzz {

struct Definitions {
    oa::oaIntAppDef<oa::oaRect>* size = oa::oaIntAppDef<oa::oaRect>::get("size");
    oa::oaFloatAppDef<oa::oaRect>* weight = oa::oaFloatAppDef<oa::oaRect>::get("weight", 1.5f);
    oa::oaTimeAppDef<oa::oaRect>* time = oa::oaTimeAppDef<oa::oaRect>::get("time");
    oa::oaDoubleAppDef<oa::oaPin>* angle = oa::oaDoubleAppDef<oa::oaPin>::get("angle");
    oa::oaBooleanAppDef<oa::oaNet>* checked = oa::oaBooleanAppDef<oa::oaNet>::get("checked");
    oa::oaStringAppDef<oa::oaNet>* remark = oa::oaStringAppDef<oa::oaNet>::get("remark", "none");
    oa::oaDataAppDef<oa::oaTerm>* fixed =
        oa::oaDataAppDef<oa::oaTerm>::get("fixed", 4, reinterpret_cast<const oa::oaByte*>("abcd"));
    oa::oaVarDataAppDef<oa::oaTerm>* free = oa::oaVarDataAppDef<oa::oaTerm>::get("free");
};

const Definitions& definitions();

} // namespace fuzz
