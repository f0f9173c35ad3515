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

void addCellView(CLI::App& command, CellViewOptions& options) {
    addLibrary(command, options.library);
    command.add_option("CELL", options.cell, "Cell of the library")->required();
    command.add_option("VIEW", options.view, "View of the cell")->required();
}

void addParams(CLI::App& command, std::vector<std::string>& params, const char* form) {
    command.add_option("--param", params, "A parameter; may be given several times")
        ->type_name(form)
        ->expected(1)
        ->take_all();
}

void addLibs(CLI::App& command, std::string& libs) {
    command
        .add_option("--libs", libs, "Top library list; lib.defs in the library's directory without")
        ->type_name("FILE");
}

void addPcell(CLI::App& command, PcellOptions& options) {
    addCellView(command, options.pcell);
    addParams(command, options.params, "NAME=VALUE");
    addLibs(command, options.libs);
}

/// An option that names a design by its library's directory, cell and view.
void addDesign(CLI::App& command, const char* name, std::vector<std::string>& design,
               const char* description) {
    command.add_option(name, design, description)
        ->type_name("DIR CELL VIEW")
        ->expected(3)
        ->required();
}

std::string oneLine(std::string text) {
    while (!text.empty() && text.back() == '\n')
        text.pop_back();
    std::replace_if(
        text.begin(), text.end(), [](char c) { return c == '\n' || c == '\r'; }, ' ');
    return text;
}

struct Options {
    BrokersOptions brokers;
    ExportOptions exporting;
    LibraryOptions check;
    ListOptions list;
    FilesOptions files;
    LocksOptions locks;
    LibsOptions libs;
    DescribeOptions describe;
    ReportOptions report;
    DrawOptions draw;
    CopyOptions copy;
    EvaluateOptions evaluate;
    HashOptions hash;
    CacheOptions cacheList;
    CacheOptions cacheVerify;
    CachePutOptions cachePut;
    PcellOptions cacheExplain;
    MakePcellOptions makePcell;
    PlaceOptions place;
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

void addLibsCommand(CLI::App& app, Options& options, Console& console, int& status) {
    CLI::App& command = addCommand(app, "libs", "List what a library definition file defines",
                                   "ovalis libs trial/lib.defs --json");
    command.add_option("FILE", options.libs.file,
                       "Library definition file; the default one without");
    command.add_flag("--json", options.libs.json, "Write JSON for programs");
    command.callback([&] { status = libsCommand(options.libs, console); });
}

void addFiles(CLI::App& app, Options& options, Console& console, int& status) {
    CLI::App& command =
        addCommand(app, "files", "List, add and remove files of a library, a cell or a cell view",
                   "ovalis files trial spiral_39n --add spiral_39n.s2p");
    addLibrary(command, options.files.library);
    command.add_option("CELL", options.files.cell, "The files of this cell");
    command.add_option("VIEW", options.files.view, "The files of this view of the cell");
    command.add_option("--add", options.files.add, "Copy a file in")->type_name("FILE");
    command.add_option("--remove", options.files.remove, "Remove a file first")->type_name("NAME");
    command.add_flag("--json", options.files.json, "Write JSON for programs");
    command.callback([&] { status = filesCommand(options.files, console); });
}

void addLocks(CLI::App& app, Options& options, Console& console, int& status) {
    CLI::App& command = addCommand(app, "locks", "List who holds locks on a library and its files",
                                   "ovalis locks trial --clear");
    addLibrary(command, options.locks.library);
    command.add_flag("--clear", options.locks.clear, "Remove locks whose holder is dead");
    command.add_flag("--json", options.locks.json, "Write JSON for programs");
    command.callback([&] { status = locksCommand(options.locks, console); });
}

void addDraw(CLI::App& app, Options& options, Console& console, int& status) {
    CLI::App& command = addCommand(app, "draw", "Draw a design as SVG",
                                   "ovalis draw trial spiral_39n layout -o spiral.svg");
    addCellView(command, options.draw.design);
    addLibs(command, options.draw.libs);
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

void addEvaluate(CLI::App& app, Options& options, Console& console, int& status) {
    CLI::App& command =
        addCommand(app, "evaluate", "Evaluate a pcell and say what served it",
                   "ovalis evaluate trial spiral layout --param turns=4 --draw spiral.svg");
    addPcell(command, options.evaluate.target);
    command.add_option("--draw", options.evaluate.pictureFile, "Picture of the result (SVG)")
        ->type_name("FILE");
    command.add_flag("--json", options.evaluate.json, "Write JSON for programs");
    command.callback([&] { status = evaluateCommand(options.evaluate, console); });
}

void addHash(CLI::App& app, Options& options, Console& console, int& status) {
    CLI::App& command = addCommand(app, "hash", "Tell the identity of an evaluated pcell",
                                   "ovalis hash trial spiral_39n layout --param nr_r=5 --explain");
    addPcell(command, options.hash.target);
    command.add_flag("--explain", options.hash.explain, "Show the bytes that it is made from");
    command.callback([&] { status = hashCommand(options.hash, console); });
}

void addCacheOptions(CLI::App& command, CacheOptions& options) {
    CLI::Option* directory =
        command.add_option("DIR", options.library.path, "Directory of a library");
    addLibs(command, options.libs);
    command.parse_complete_callback([directory, &command] {
        if (directory->count() == 0 && command.count("--libs") == 0)
            throw CLI::RequiredError("DIR or --libs");
    });
}

void addCache(CLI::App& app, Options& options, Console& console, int& status) {
    CLI::App& cache = addCommand(app, "cache", "Look after evaluated pcells on disk",
                                 "ovalis cache verify trial");
    cache.require_subcommand(1);
    CLI::App& list =
        addCommand(cache, "list", "List the entries and who uses them", "ovalis cache list trial");
    addCacheOptions(list, options.cacheList);
    list.callback([&] { status = cacheListCommand(options.cacheList, console); });
    CLI::App& verify = addCommand(cache, "verify", "Read every entry, look for missing ones",
                                  "ovalis cache verify --libs lib.defs");
    addCacheOptions(verify, options.cacheVerify);
    verify.callback([&] { status = cacheVerifyCommand(options.cacheVerify, console); });
    CLI::App& put = addCommand(cache, "put", "Store the content of a design as an entry",
                               "ovalis cache put trial spiral_39n layout --param nr_r=5 --from "
                               "trial spiral_5 layout");
    addPcell(put, options.cachePut.target);
    addDesign(put, "--from", options.cachePut.from, "The design with the content");
    put.callback([&] { status = cachePutCommand(options.cachePut, console); });
    CLI::App& explain = addCommand(cache, "explain", "Say whether an entry serves a pcell, and why",
                                   "ovalis cache explain trial spiral_39n layout --param nr_r=5");
    addPcell(explain, options.cacheExplain);
    explain.callback([&] { status = cacheExplainCommand(options.cacheExplain, console); });
}

void addMakePcell(CLI::App& app, Options& options, Console& console, int& status) {
    CLI::App& command =
        addCommand(app, "pcell", "Make a pcell that an evaluator fills",
                   "ovalis pcell trial pad layout PSNPcell --param size:double=2.5");
    addCellView(command, options.makePcell.pcell);
    command.add_option("EVALUATOR", options.makePcell.evaluator, "Name of the evaluator")
        ->required();
    addParams(command, options.makePcell.params, "NAME:TYPE=VALUE");
    command.callback([&] { status = makePcellCommand(options.makePcell, console); });
}

void addPlace(CLI::App& app, Options& options, Console& console, int& status) {
    CLI::App& command =
        addCommand(app, "place", "Place an instance in a design",
                   "ovalis place trial top layout I1 0 -50.5 --master trial spiral_39n layout "
                   "--param nr_r=5");
    addCellView(command, options.place.design);
    command.add_option("NAME", options.place.name, "Name of the instance")->required();
    command.add_option("X", options.place.x, "Place in user units")->required();
    command.add_option("Y", options.place.y, "Place in user units")->required();
    addDesign(command, "--master", options.place.master, "The design to place");
    addParams(command, options.place.params, "NAME=VALUE");
    command.callback([&] { status = placeCommand(options.place, console); });
}

void addBrokers(CLI::App& app, Options& options, Console& console, int& status) {
    CLI::App& command =
        addCommand(app, "brokers", "Say what evaluates brokered pcells here, and why",
                   "ovalis brokers --json");
    command.add_flag("--json", options.brokers.json, "Write JSON for programs");
    command.callback([&] { status = brokersCommand(options.brokers, console); });
}

void addDescribe(CLI::App& app, Options& options, Console& console, int& status) {
    CLI::App& command =
        addCommand(app, "describe", "Describe a library, a cell or a cell view as text",
                   "ovalis describe trial spiral_39n layout -o spiral_39n.txt");
    addLibrary(command, options.describe.library);
    command.add_option("CELL", options.describe.cell, "Only this cell");
    command.add_option("VIEW", options.describe.view, "Only this view of the cell");
    command.add_option("-o", options.describe.outputFile, "File to write; standard output without")
        ->type_name("FILE");
    command.callback([&] { status = describeCommand(options.describe, console); });
}

void addReport(CLI::App& app, Options& options, Console& console, int& status) {
    CLI::App& command =
        addCommand(app, "report", "Report what the database warns of when designs are opened",
                   "ovalis report trial --origins Pcell:Tech");
    addLibrary(command, options.report.library);
    command.add_option("CELL", options.report.cell, "Only a design of this cell");
    command.add_option("VIEW", options.report.view, "The view of the cell");
    command
        .add_option("--origins", options.report.origins,
                    "What to report, as in TESSA_OAINFO, which counts without")
        ->type_name("LIST");
    command.add_flag("--json", options.report.json, "Write JSON for programs");
    command.callback([&] { status = reportCommand(options.report, console); });
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
    addLibsCommand(app, options, console, status);
    addFiles(app, options, console, status);
    addLocks(app, options, console, status);
    addDescribe(app, options, console, status);
    addReport(app, options, console, status);
    addDraw(app, options, console, status);
    addCopy(app, options, console, status);
    addMakePcell(app, options, console, status);
    addPlace(app, options, console, status);
    addEvaluate(app, options, console, status);
    addHash(app, options, console, status);
    addCache(app, options, console, status);
    addBrokers(app, options, console, status);
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
