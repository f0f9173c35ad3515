#pragma once

#include <oa/oaDM.h>

#include "comparison/difference.h"
#include "comparison/instances.h"

namespace comparison {

/// Tells how two open libraries differ that may be read: their files and data, their technologies,
/// their cells and views, and the designs in them. What one of them cannot open is told and left
/// out.
void compareLibraries(const oa::oaLib& was, const oa::oaLib& is, const LibraryNames& libraries,
                      Listener& listener);

} // namespace comparison
