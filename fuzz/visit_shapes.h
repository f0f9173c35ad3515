#pragma once

#include "digest.h"

namespace fuzz {

/// Layer, box, connections and all that shapes of its kind know.
void visitShape(const oa::oaShape* shape, Digest& digest);

} // namespace fuzz
