#pragma once

#include "base/src/properties.h"

#include <string>

namespace OpenAccess_4::impl {

/// The value of a property of any kind as text.
std::string propText(const Database& database, const PropRecord& prop);

} // namespace OpenAccess_4::impl
