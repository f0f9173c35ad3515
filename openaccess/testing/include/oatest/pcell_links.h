#pragma once

#include "oa/oaExport.h"

#include <string>
#include <vector>

/// What tests look at beyond the interface that every OpenAccess has.
namespace oatest {

/// The names of the pcell links, in the order in which they were made.
OA_API std::vector<std::string> pcellLinkNames();

} // namespace oatest
