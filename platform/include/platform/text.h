#pragma once

#include <string>
#include <vector>

namespace platform {

/// The program's arguments as UTF-8, the program's name first. On Windows they come from the
/// system, because what `main` receives has lost the characters outside of the code page.
std::vector<std::string> utf8Arguments(int count, char** values);

} // namespace platform
