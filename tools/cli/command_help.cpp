#include "cli/command_help.h"

#include <algorithm>
#include <functional>
#include <regex>
#include <stdexcept>
#include <vector>

#include <CLI/CLI.hpp>

#include "cli/help_texts.h"

namespace cli {
namespace {

constexpr std::size_t width = 90;

/// "ovalis cache list"; `blank` stands between the names.
std::string wholeName(const CLI::App& command, char blank = ' ') {
    const CLI::App* parent = command.get_parent();
    return parent == nullptr ? command.get_name()
                             : wholeName(*parent, blank) + blank + command.get_name();
}

/// "cache-list", which names texts and pages.
std::string fileName(const CLI::App& command) {
    const std::string name = wholeName(command, '-');
    return name.substr(std::min(name.size(), name.find('-') + 1));
}

std::string_view textOf(const std::string& name) {
    for (const HelpText& text : helpTexts())
        if (text.command == name)
            return text.text;
    throw std::logic_error("no help of the command " + name);
}

/// The text of a command without its first line.
std::string_view bodyOf(const CLI::App& command) {
    std::string_view text = textOf(fileName(command));
    text.remove_prefix(std::min(text.size(), text.find('\n') + 1));
    text.remove_prefix(std::min(text.size(), text.find_first_not_of('\n')));
    return text;
}

bool isRepeated(const CLI::Option& option) {
    return option.get_multi_option_policy() == CLI::MultiOptionPolicy::TakeAll &&
           option.get_expected_max() == 1;
}

/// "--lib DIR", "-h,--help" or "CELL".
std::string spelled(const CLI::Option& option) {
    if (option.get_positional())
        return option.get_name(true);
    std::string text;
    for (const std::string& name : option.get_snames())
        text += (text.empty() ? "-" : ", -") + name;
    for (const std::string& name : option.get_lnames())
        text += (text.empty() ? "--" : ", --") + name;
    return option.get_type_name().empty() ? text : text + " " + option.get_type_name();
}

/// A row for every argument or option: how it is spelled, and what it is.
using Rows = std::vector<std::pair<std::string, std::string>>;

std::vector<const CLI::Option*> optionsOf(const CLI::App& command, bool positional) {
    return command.get_options(
        [&](const CLI::Option* option) { return option->get_positional() == positional; });
}

Rows rowsOf(const CLI::App& command, bool positional) {
    Rows rows;
    for (const CLI::Option* option : optionsOf(command, positional))
        rows.emplace_back(spelled(*option), option->get_description());
    return rows;
}

Rows commandsOf(const CLI::App& command) {
    Rows rows;
    for (const CLI::App* each : command.get_subcommands([](const CLI::App*) { return true; }))
        rows.emplace_back(each->get_name(), each->get_description());
    return rows;
}

std::string usagePart(const CLI::Option& option) {
    const std::string text = spelled(option);
    return (option.get_required() ? text : "[" + text + "]") + (isRepeated(option) ? "..." : "");
}

/// The command with its arguments and options, on several lines when it is long.
std::string usageOf(const CLI::App& command) {
    std::string text = wholeName(command);
    const std::size_t indentation = text.size() + 1;
    std::size_t column = text.size();
    const auto add = [&](const std::string& part) {
        const bool fits = column + 1 + part.size() <= width;
        text += fits ? " " : "\n" + std::string(indentation, ' ');
        text += part;
        column = (fits ? column + 1 : indentation) + part.size();
    };
    for (const bool positional : {true, false})
        for (const CLI::Option* option : optionsOf(command, positional))
            if (!option->check_name("--help"))
                add(usagePart(*option));
    if (!commandsOf(command).empty())
        add("COMMAND");
    return text + "\n";
}

std::string indented(const std::string& text) {
    return "  " + std::regex_replace(text, std::regex("\n(?=.)"), "\n  ");
}

void appendList(std::string& help, const char* heading, const Rows& rows) {
    if (rows.empty())
        return;
    std::size_t longest = 0;
    for (const auto& row : rows)
        longest = std::max(longest, row.first.size());
    help += std::string(heading) + ":\n";
    for (const auto& [name, meaning] : rows)
        help += "  " + name + std::string(longest + 2 - name.size(), ' ') + meaning + "\n";
    help += "\n";
}

void appendTable(std::string& page, const char* heading, const Rows& rows) {
    if (rows.empty())
        return;
    page += "## " + std::string(heading) + "s\n\n| " + heading + " | Meaning |\n|---|---|\n";
    for (const auto& [name, meaning] : rows)
        page += "| `" + name + "` | " + meaning + " |\n";
    page += "\n";
}

/// Markdown as it is read on a terminal: headings end in a colon, what is between fences is
/// indented, links are their words.
std::string forTerminal(const std::string& text) {
    std::string shown;
    bool isFenced = false;
    std::size_t begin = 0;
    while (begin < text.size()) {
        const std::size_t end = std::min(text.find('\n', begin), text.size());
        const std::string line = text.substr(begin, end - begin);
        begin = end + 1;
        if (line.starts_with("```"))
            isFenced = !isFenced;
        else if (isFenced)
            shown += (line.empty() ? "" : "  " + line) + "\n";
        else if (line.starts_with("## "))
            shown += line.substr(3) + ":\n";
        else
            shown += line + "\n";
    }
    shown = std::regex_replace(shown, std::regex("\\[([^\\]]+)\\]\\([^)]+\\)"), "$1");
    return std::regex_replace(shown, std::regex(":\n\n"), ":\n");
}

std::string helpOf(const CLI::App& command) {
    std::string help = command.get_description() + ".\n\nUsage:\n" + indented(usageOf(command));
    help += "\n";
    appendList(help, "Arguments", rowsOf(command, true));
    appendList(help, "Options", rowsOf(command, false));
    appendList(help, "Commands", commandsOf(command));
    if (command.get_parent() == nullptr)
        return help + "`ovalis COMMAND --help` tells more of a command.\n";
    return help + forTerminal(std::string(bodyOf(command)));
}

std::string pageOf(const CLI::App& command) {
    const std::string body(bodyOf(command));
    const std::size_t sections = std::min(body.find("## "), body.size());
    std::string page = "# " + wholeName(command) + "\n\n" + command.get_description() + ".\n\n" +
                       "```text\n" + usageOf(command) + "```\n\n" + body.substr(0, sections);
    appendTable(page, "Argument", rowsOf(command, true));
    appendTable(page, "Option", rowsOf(command, false));
    Rows commands = commandsOf(command);
    if (!commands.empty()) {
        page += "## Commands\n\n";
        for (const auto& [name, meaning] : commands)
            page +=
                "- [" + name + "](" + fileName(command) + "-" + name + ".md): " + meaning + "\n";
        page += "\n";
    }
    return page + body.substr(sections);
}

void addPages(std::map<std::string, std::string>& pages, const CLI::App& command) {
    for (const CLI::App* each : command.get_subcommands([](const CLI::App*) { return true; })) {
        pages[fileName(*each) + ".md"] = pageOf(*each);
        addPages(pages, *each);
    }
}

} // namespace

CLI::App& addCommand(CLI::App& parent, const std::string& name) {
    CLI::App* command = parent.add_subcommand(name);
    const std::string_view text = textOf(fileName(*command));
    command->description(std::string(text.substr(0, text.find('\n'))));
    return *command;
}

void useHelpTexts(CLI::App& program) {
    program.formatter_fn(
        [](const CLI::App* command, std::string, CLI::AppFormatMode) { return helpOf(*command); });
}

std::map<std::string, std::string> pagesOf(const CLI::App& program) {
    std::map<std::string, std::string> pages;
    addPages(pages, program);
    return pages;
}

} // namespace cli
