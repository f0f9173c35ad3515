#pragma once

#include <oa/oaDesignDB.h>

namespace ovalis {

/// Set by `initOa` once the database and the evaluators are there; never reset.
extern bool initialised;

extern const oa::oaNativeNS nativeNameSpace;
extern const oa::oaUnixNS unixNameSpace;
extern const oa::oaWinNS windowsNameSpace;

/// Names of the two layers that a library made for the simulation application carries.
extern const oa::oaString artworkWord;
extern const oa::oaString pinWord;

/// Their numbers lie at the top of the range, out of the way of ordinary layers.
constexpr oa::oaLayerNum pinLayer = static_cast<oa::oaLayerNum>(-777);
constexpr oa::oaLayerNum artworkLayer = static_cast<oa::oaLayerNum>(-778);

} // namespace ovalis
