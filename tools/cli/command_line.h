#pragma once

#include <map>
#include <string>
#include <vector>

#include "cli/console.h"

namespace cli {

/// Runs the command with these arguments, the program's name left out.
/// @returns the exit status; failures are told in one line on `console.talk`.
int run(const std::vector<std::string>& arguments, Console& console);

/// The help of every command as a page in Markdown, by the name of its file.
std::map<std::string, std::string> helpPages();

} // namespace cli
