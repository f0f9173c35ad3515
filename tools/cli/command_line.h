#pragma once

#include <string>
#include <vector>

#include "cli/console.h"

namespace cli {

/// Runs the command with these arguments, the program's name left out.
/// @returns the exit status; failures are told in one line on `console.talk`.
int run(const std::vector<std::string>& arguments, Console& console);

} // namespace cli
