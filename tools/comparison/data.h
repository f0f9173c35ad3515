#pragma once

#include <string>

#include <oa/oaDM.h>

#include "comparison/difference.h"

namespace comparison {

/// Tells how the properties and application-defined values differ that two libraries, cells, views
/// or cell views have. Either may be null.
void compareData(const Place& place, const std::string& object, const oa::oaDMContainer* was,
                 const oa::oaDMContainer* is);

} // namespace comparison
