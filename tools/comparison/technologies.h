#pragma once

#include <oa/oaDesignDB.h>

#include "comparison/difference.h"
#include "comparison/instances.h"

namespace comparison {

/// Tells how two open technologies differ in what they hold themselves.
void compareTechnologies(const Place& place, const oa::oaTech& was, const oa::oaTech& is,
                         const LibraryNames& libraries);

} // namespace comparison
