#pragma once

#include <map>
#include <string>

namespace CLI {
class App;
}

namespace cli {

/// Makes a command. The text of its help, which `help/` holds under its whole name ("cache-list"),
/// begins with a line that says what the command does.
/// @throws std::logic_error  there is no such text
CLI::App& addCommand(CLI::App& parent, const std::string& name);

/// Makes the program and every command of it tell their help from their options and texts.
void useHelpTexts(CLI::App& program);

/// The help of the commands of a program as pages in Markdown, by the name of the file.
std::map<std::string, std::string> pagesOf(const CLI::App& program);

} // namespace cli
