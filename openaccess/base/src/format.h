#pragma once

#include "oaBaseTypes.h"

#include <cstdarg>
#include <string>

namespace OpenAccess_4::impl {

/// What printf would write; empty for a null format. `args` is used up.
OA_API std::string formatted(const oaChar* format, va_list args);

} // namespace OpenAccess_4::impl
