#pragma once

#include <functional>
#include <string>

#include <oa/oaDM.h>

#include "comparison/difference.h"

namespace comparison {

/// Tells which files of two libraries, cells or cell views come and go, and whose bytes differ.
/// Files that `isBook` names are left out: they are compared as databases.
void compareFiles(const Place& place, const oa::oaDMContainer& was, const oa::oaDMContainer& is,
                  const std::function<bool(const oa::oaDMFile&)>& isBook);

} // namespace comparison
