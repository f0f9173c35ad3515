#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace platform {

/// Creates a file that must not exist, with its whole content in one step: nobody reads a part.
/// @returns false when the name is taken.
/// @throws SystemFailure  the directory cannot be written.
bool createExclusively(std::string_view path, std::string_view content);

/// Removes a file when `judge` accepts its content. Of several processes that try this at one time
/// on one file, one removes it, and none removes a file made in its place meanwhile.
/// @returns true when this call removed the file.
bool removeFileIf(std::string_view path, const std::function<bool(const std::string&)>& judge);

} // namespace platform
