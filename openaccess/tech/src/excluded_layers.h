#pragma once

#include "oa/oaPhysicalLayer.h"

#include <vector>

namespace OpenAccess_4::impl {

class TechDatabase;

/// A layer, and the number of another one that must not be with it.
struct LayerExclusion {
    const oaPhysicalLayer* layer;
    oaLayerNum number;
};

/// The exclusions that a technology itself says, in the order in which they were made.
std::vector<LayerExclusion> exclusionsIn(TechDatabase& tech);

} // namespace OpenAccess_4::impl
