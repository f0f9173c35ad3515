#pragma once

#include <string_view>

namespace platform {

/// True for a file that this user may start as a program, as far as its permissions go. Where the
/// system has none for that, every file is one.
bool isExecutable(std::string_view path) noexcept;

} // namespace platform
