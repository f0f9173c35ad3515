#pragma once

#include "oa/oaDerivedLayerParam.h"

#include <cstdint>
#include <string>
#include <vector>

namespace OpenAccess_4 {
class oaDerivedLayerDef;
}

namespace OpenAccess_4::impl {

class TechDatabase;

/// A text that two derived layers share, whichever technologies they lie in, when they follow from
/// layers of the same numbers by the same operation with the same parameters.
std::string derivationKey(TechDatabase& tech, std::uint32_t layer);

/// The same for a layer that may not be there.
std::string derivationKey(const oaDerivedLayerDef* def, const std::vector<oaLayerNum>& sources,
                          const oaDerivedLayerParamArray* params);

/// @throws oaTechError  oacInvalidDerivedLayerParam: a parameter, or a definition, is there twice
void requireNoneTwice(const oaDerivedLayerParamArray& params);

} // namespace OpenAccess_4::impl
