#pragma once

#include <optional>
#include <string>

namespace platform {

/// The value of an environment variable; nothing when it is not set.
std::optional<std::string> environmentVariable(const std::string& name);

void setEnvironmentVariable(const std::string& name, const std::string& value);
void unsetEnvironmentVariable(const std::string& name);

/// What separates the directories in PATH: ':' or ';'.
char pathListSeparator() noexcept;

} // namespace platform
