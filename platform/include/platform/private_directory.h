#pragma once

#include <string>
#include <string_view>

namespace platform {

/// Creates one directory that only this user may look into.
/// @returns false when the name is taken.
/// @throws SystemFailure  the parent is missing or cannot be written.
bool createPrivateDirectory(std::string_view path);

/// Where the running program lies, with all links resolved.
/// @throws SystemFailure  the system does not say.
std::string programPath();

/// Changes the working directory of the process.
/// @throws SystemFailure  there is no such directory.
void setCurrentDirectory(std::string_view path);

} // namespace platform
