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

/// The variable in which the system looks for the libraries that a program needs.
const char* libraryPathVariable() noexcept;

} // namespace platform
