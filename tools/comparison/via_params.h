#pragma once

#include <oa/oaTechDB.h>

#include "comparison/fields.h"

namespace comparison {

/// Adds the parameters of a standard via, or of the definition of one, that are set.
void addViaParams(Fields& fields, const oa::oaViaParam& params);

} // namespace comparison
