#pragma once

#include <string>

#include <oa/oaDesignDB.h>

namespace ovalis {

/// Returns name and value of a property, as a report shows them.
std::string lineOf(const oa::oaProp& property);

/// The same for a property that is of this type.
std::string lineOf(const oa::oaProp& property, oa::oaTypeEnum type);

} // namespace ovalis
