#pragma once

#include <oa/oaDesignDB.h>

#include "comparison/difference.h"
#include "comparison/labels.h"

namespace comparison {

/// Tells how the groups of two designs or technologies differ, whose other objects have labels.
void compareGroups(const Place& place, const oa::oaObject& was, const oa::oaObject& is,
                   Labels& labels);

} // namespace comparison
