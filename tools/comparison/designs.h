#pragma once

#include <oa/oaDesignDB.h>

#include "comparison/difference.h"
#include "comparison/instances.h"

namespace comparison {

/// Tells how two open designs differ. What belongs to their technologies, such as units, and the
/// times at which they were saved do not count.
void compareDesigns(const Place& place, const oa::oaDesign& was, const oa::oaDesign& is,
                    const LibraryNames& libraries);

/// Tells how the units differ in which two designs are drawn, which come from their technologies.
void compareUnits(const Place& place, const oa::oaDesign& was, const oa::oaDesign& is);

} // namespace comparison
