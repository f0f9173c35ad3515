#include "cli/command_line.h"

#include <algorithm>

#include <CLI/CLI.hpp>

#include "cli/commands.h"

namespace cli {
namespace {

/// A subcommand whose help ends with an example.
CLI::App& addCommand(CLI::App& app, const std::string& name, const std::string& description,
                     const std::string& example) {
    CLI::App* command = app.add_subcommand(name, description);
    command->footer("Example:\n  " + example);
    return *command;
}

void addLibrary(CLI::App& command, LibraryOptions& library) {
    command.add_option("DIR", library.path, "Directory of the library")->required();
}

void addName(CLI::App& command, LibraryOptions& library) {
    command.add_option("--name", library.name,
                       "Name of the library; the directory's name when not given");
}

std::string oneLine(std::string text) {
    while (!text.empty() && text.back() == '\n')
        text.pop_back();
    std::replace_if(
        text.begin(), text.end(), [](char c) { return c == '\n' || c == '\r'; }, ' ');
    return text;
}

struct Options {
    ExportOptions exporting;
    LibraryOptions check;
    ListOptions list;
    DrawOptions draw;
    CopyOptions copy;
};

void addExport(CLI::App& app, Options& options, Console& console, int& status) {
    CLI::App& command =
        addCommand(app, "export", "Put a component into a library as a cell",
                   "ovalis export examples/components/spiral_39n/component.json --lib trial");
    command
        .add_option("COMPONENT", options.exporting.componentFile, "Component description (JSON)")
        ->required();
    command.add_option("--lib", options.exporting.library.path, "Directory of the library")
        ->type_name("DIR")
        ->required();
    addName(command, options.exporting.library);
    command.add_flag("--replace", options.exporting.replace, "Replace the cell when it exists");
    command.callback([&] { status = exportCommand(options.exporting, console); });
}

void addCheck(CLI::App& app, Options& options, Console& console, int& status) {
    CLI::App& command =
        addCommand(app, "check", "List what a library lacks, one line each", "ovalis check trial");
    addLibrary(command, options.check);
    addName(command, options.check);
    command.callback([&] { status = checkCommand(options.check, console); });
}

void addList(CLI::App& app, Options& options, Console& console, int& status) {
    CLI::App& command = addCommand(app, "list", "List cells, views and view types",
                                   "ovalis list trial spiral_39n --json");
    addLibrary(command, options.list.library);
    command.add_option("CELL", options.list.cell, "Only this cell");
    command.add_flag("--json", options.list.json, "Write JSON for programs");
    command.callback([&] { status = listCommand(options.list, console); });
}

void addDraw(CLI::App& app, Options& options, Console& console, int& status) {
    CLI::App& command = addCommand(app, "draw", "Draw a design as SVG",
                                   "ovalis draw trial spiral_39n layout -o spiral.svg");
    addLibrary(command, options.draw.library);
    command.add_option("CELL", options.draw.cell, "Cell of the library")->required();
    command.add_option("VIEW", options.draw.view, "View of the cell")->required();
    command.add_option("-o", options.draw.outputFile, "File to write; standard output without")
        ->type_name("FILE");
    command.callback([&] { status = drawCommand(options.draw, console); });
}

void addCopy(CLI::App& app, Options& options, Console& console, int& status) {
    CLI::App& command =
        addCommand(app, "copy", "Copy a library", "ovalis copy trial archive/trial");
    command.add_option("SRC", options.copy.source, "Directory of the library")->required();
    command.add_option("DST", options.copy.destination.path, "Directory to make")->required();
    command.add_option("--name", options.copy.destination.name,
                       "Name of the copy; the directory's name when not given");
    command.callback([&] { status = copyCommand(options.copy, console); });
}

} // namespace

int run(const std::vector<std::string>& arguments, Console& console) {
    Options options;
    int status = success;
    CLI::App app("Makes and looks at OpenAccess libraries for a circuit-design environment.",
                 "ovalis");
    // A path may begin with a slash on Windows too.
    app.allow_windows_style_options(false);
    app.set_version_flag("--version", "ovalis " OVALIS_VERSION);
    app.require_subcommand(1);
    app.failure_message([](const CLI::App* parsed, const CLI::Error& error) {
        const std::vector<std::string> unknown = parsed->remaining();
        const bool noCommand = parsed->get_subcommands().empty() && !unknown.empty();
        return "ovalis: " +
               (noCommand ? "no command \"" + unknown.front() + "\"" : oneLine(error.what())) +
               " (see ovalis --help)\n";
    });
    addExport(app, options, console, status);
    addCheck(app, options, console, status);
    addList(app, options, console, status);
    addDraw(app, options, console, status);
    addCopy(app, options, console, status);
    try {
        app.parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));
    } catch (const CLI::Error& error) {
        return app.exit(error, console.out, console.talk) == 0 ? success : failure;
    } catch (const std::exception& error) {
        console.talk << "ovalis: " << oneLine(error.what()) << '\n';
        return failure;
    }
    return status;
}

} // namespace cli
