#pragma once

#include "platform/lock_use.h"

#include <string>

namespace platform::internal {

/// What the system tells of a lock; nothing when it does not tell, or nobody holds it.
std::optional<LockUse> toldLockUse(const std::string& path);

} // namespace platform::internal
