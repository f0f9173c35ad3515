#include "cli/command_line.h"

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <memory>
#include <optional>
#include <sstream>

#include <CLI/CLI.hpp>

#include "cli/collected_errors.h"
#include "cli/command_help.h"
#include "cli/commands.h"

namespace cli {
namespace {

void addLibrary(CLI::App& command, LibraryOptions& library) {
    command.add_option("DIR", library.path, "Directory of the library")->required();
}

void addName(CLI::App& command, LibraryOptions& library) {
    command
        .add_option("--name", library.name,
                    "Name of the library; the directory's name when not given")
        ->type_name("NAME");
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

/// Path and reason; the exception's own text is one for programmers.
std::string textOf(const std::filesystem::filesystem_error& error) {
    const std::u8string path = error.path1().u8string();
    const bool named = !path.empty();
    return (named ? std::string(path.begin(), path.end()) : "working directory") + ": " +
           error.code().message();
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
    DiffOptions diff;
    EvaluateOptions evaluate;
    HashOptions hash;
    CacheOptions cacheList;
    CacheOptions cacheVerify;
    CachePutOptions cachePut;
    PcellOptions cacheExplain;
    MakePcellOptions makePcell;
    PlaceOptions place;
};

/// What the commands of one run share.
struct Run {
    Console& console;
    int status = success;
    /// While a command works that opens databases, and until its failure has been told.
    std::optional<CollectedErrors> errors{};
};

/// Makes `body` what a command does that opens databases: what they report as errors meanwhile ends
/// the run.
template <class Body>
void onDatabases(CLI::App& command, Run& run, Body body) {
    command.callback([&run, body] {
        run.errors.emplace(run.console);
        run.status = body();
    });
}

void addExport(CLI::App& app, Options& options, Run& run) {
    CLI::App& command = addCommand(app, "export");
    command
        .add_option("COMPONENT", options.exporting.componentFile, "Component description (JSON)")
        ->required();
    command.add_option("--lib", options.exporting.library.path, "Directory of the library")
        ->type_name("DIR")
        ->required();
    addName(command, options.exporting.library);
    command.add_flag("--replace", options.exporting.replace, "Replace the cell when it exists");
    onDatabases(command, run, [&] { return exportCommand(options.exporting, run.console); });
}

void addCheck(CLI::App& app, Options& options, Run& run) {
    CLI::App& command = addCommand(app, "check");
    addLibrary(command, options.check);
    addName(command, options.check);
    onDatabases(command, run, [&] { return checkCommand(options.check, run.console); });
}

void addList(CLI::App& app, Options& options, Run& run) {
    CLI::App& command = addCommand(app, "list");
    addLibrary(command, options.list.library);
    command.add_option("CELL", options.list.cell, "Only this cell");
    command.add_flag("--json", options.list.json, "Write JSON for programs");
    onDatabases(command, run, [&] { return listCommand(options.list, run.console); });
}

void addLibsCommand(CLI::App& app, Options& options, Run& run) {
    CLI::App& command = addCommand(app, "libs");
    command.add_option("FILE", options.libs.file,
                       "Library definition file; the default one without");
    command.add_flag("--json", options.libs.json, "Write JSON for programs");
    onDatabases(command, run, [&] { return libsCommand(options.libs, run.console); });
}

void addFiles(CLI::App& app, Options& options, Run& run) {
    CLI::App& command = addCommand(app, "files");
    addLibrary(command, options.files.library);
    command.add_option("CELL", options.files.cell, "The files of this cell");
    command.add_option("VIEW", options.files.view, "The files of this view of the cell");
    command.add_option("--add", options.files.add, "Copy a file in")->type_name("FILE");
    command.add_option("--remove", options.files.remove, "Remove a file first")->type_name("NAME");
    command.add_flag("--json", options.files.json, "Write JSON for programs");
    onDatabases(command, run, [&] { return filesCommand(options.files, run.console); });
}

void addLocks(CLI::App& app, Options& options, Run& run) {
    CLI::App& command = addCommand(app, "locks");
    addLibrary(command, options.locks.library);
    command.add_flag("--clear", options.locks.clear, "Remove locks whose holder is dead");
    command.add_flag("--json", options.locks.json, "Write JSON for programs");
    command.callback([&] { run.status = locksCommand(options.locks, run.console); });
}

void addDraw(CLI::App& app, Options& options, Run& run) {
    CLI::App& command = addCommand(app, "draw");
    addCellView(command, options.draw.design);
    addLibs(command, options.draw.libs);
    command.add_option("-o", options.draw.outputFile, "File to write; standard output without")
        ->type_name("FILE");
    onDatabases(command, run, [&] { return drawCommand(options.draw, run.console); });
}

void addCopy(CLI::App& app, Options& options, Run& run) {
    CLI::App& command = addCommand(app, "copy");
    command.add_option("SRC", options.copy.source, "Directory of the library")->required();
    command.add_option("DST", options.copy.destination.path, "Directory to make")->required();
    command
        .add_option("--name", options.copy.destination.name,
                    "Name of the copy; the directory's name when not given")
        ->type_name("NAME");
    onDatabases(command, run, [&] { return copyCommand(options.copy, run.console); });
}

void addDiff(CLI::App& app, Options& options, Run& run) {
    CLI::App& command = addCommand(app, "diff");
    command
        .add_option("SIDES", options.diff.sides,
                    "Two libraries, or two designs: DIR1 [CELL1 VIEW1] DIR2 [CELL2 VIEW2]")
        ->type_name("DIR [CELL VIEW]")
        ->expected(1, -1)
        ->required();
    addLibs(command, options.diff.libs);
    command.add_flag("--json", options.diff.json, "Write JSON for programs");
    command.add_flag("-q,--quiet", options.diff.quiet, "Write nothing; the exit status tells");
    onDatabases(command, run, [&] { return diffCommand(options.diff, run.console); });
}

void addEvaluate(CLI::App& app, Options& options, Run& run) {
    CLI::App& command = addCommand(app, "evaluate");
    addPcell(command, options.evaluate.target);
    command.add_option("--draw", options.evaluate.pictureFile, "Picture of the result (SVG)")
        ->type_name("FILE");
    command.add_flag("--json", options.evaluate.json, "Write JSON for programs");
    onDatabases(command, run, [&] { return evaluateCommand(options.evaluate, run.console); });
}

void addHash(CLI::App& app, Options& options, Run& run) {
    CLI::App& command = addCommand(app, "hash");
    addPcell(command, options.hash.target);
    command.add_flag("--explain", options.hash.explain, "Show the bytes that it is made from");
    onDatabases(command, run, [&] { return hashCommand(options.hash, run.console); });
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

void addCache(CLI::App& app, Options& options, Run& run) {
    CLI::App& cache = addCommand(app, "cache");
    cache.require_subcommand(1);
    CLI::App& list = addCommand(cache, "list");
    addCacheOptions(list, options.cacheList);
    onDatabases(list, run, [&] { return cacheListCommand(options.cacheList, run.console); });
    CLI::App& verify = addCommand(cache, "verify");
    addCacheOptions(verify, options.cacheVerify);
    onDatabases(verify, run, [&] { return cacheVerifyCommand(options.cacheVerify, run.console); });
    CLI::App& put = addCommand(cache, "put");
    addPcell(put, options.cachePut.target);
    addDesign(put, "--from", options.cachePut.from, "The design with the content");
    onDatabases(put, run, [&] { return cachePutCommand(options.cachePut, run.console); });
    CLI::App& explain = addCommand(cache, "explain");
    addPcell(explain, options.cacheExplain);
    onDatabases(explain, run,
                [&] { return cacheExplainCommand(options.cacheExplain, run.console); });
}

void addMakePcell(CLI::App& app, Options& options, Run& run) {
    CLI::App& command = addCommand(app, "pcell");
    addCellView(command, options.makePcell.pcell);
    command.add_option("EVALUATOR", options.makePcell.evaluator, "Name of the evaluator")
        ->required();
    addParams(command, options.makePcell.params, "NAME:TYPE=VALUE");
    onDatabases(command, run, [&] { return makePcellCommand(options.makePcell, run.console); });
}

void addPlace(CLI::App& app, Options& options, Run& run) {
    CLI::App& command = addCommand(app, "place");
    addCellView(command, options.place.design);
    command.add_option("NAME", options.place.name, "Name of the instance")->required();
    command.add_option("X", options.place.x, "Place in user units")->required();
    command.add_option("Y", options.place.y, "Place in user units")->required();
    addDesign(command, "--master", options.place.master, "The design to place");
    addParams(command, options.place.params, "NAME=VALUE");
    onDatabases(command, run, [&] { return placeCommand(options.place, run.console); });
}

void addBrokers(CLI::App& app, Options& options, Run& run) {
    CLI::App& command = addCommand(app, "brokers");
    command.add_flag("--json", options.brokers.json, "Write JSON for programs");
    command.callback([&] { run.status = brokersCommand(options.brokers, run.console); });
}

void addDescribe(CLI::App& app, Options& options, Run& run) {
    CLI::App& command = addCommand(app, "describe");
    addLibrary(command, options.describe.library);
    command.add_option("CELL", options.describe.cell, "Only this cell");
    command.add_option("VIEW", options.describe.view, "Only this view of the cell");
    command.add_option("-o", options.describe.outputFile, "File to write; standard output without")
        ->type_name("FILE");
    onDatabases(command, run, [&] { return describeCommand(options.describe, run.console); });
}

void addReport(CLI::App& app, Options& options, Run& run) {
    CLI::App& command = addCommand(app, "report");
    addLibrary(command, options.report.library);
    command.add_option("CELL", options.report.cell, "Only a design of this cell");
    command.add_option("VIEW", options.report.view, "The view of the cell");
    command
        .add_option("--origins", options.report.origins,
                    "What to report, as in TESSA_OAINFO, which counts without")
        ->type_name("LIST");
    command.add_flag("--json", options.report.json, "Write JSON for programs");
    command.callback([&] { run.status = reportCommand(options.report, run.console); });
}

/// Refuses empty values: they come from variables that are not set, and would else count as not
/// given.
void refuseEmptyValues(CLI::App& command) {
    for (CLI::Option* option : command.get_options([](const CLI::Option*) { return true; }))
        if (option->get_items_expected_max() > 0)
            option->check([](const std::string& value) {
                return std::string(value.empty() ? "the value is empty" : "");
            });
    for (CLI::App* each : command.get_subcommands([](const CLI::App*) { return true; }))
        refuseEmptyValues(*each);
}

/// A negative number that the parser takes for an option, as no digit comes first: "-.5", "-inf".
bool looksLikeAnOption(const std::string& argument) {
    const char* const end = argument.data() + argument.size();
    double number = 0;
    return argument.starts_with("-") && argument.find_first_of("0123456789") != 1 &&
           std::from_chars(argument.data(), end, number).ptr == end;
}

/// The arguments as the parser understands them, up to "--".
std::vector<std::string> forParser(const std::vector<std::string>& arguments) {
    std::vector<std::string> parsed;
    auto next = arguments.begin();
    for (; next != arguments.end() && *next != "--"; ++next) {
        if (next->starts_with("--") && next->find('=') + 1 == next->size()) {
            // Else what follows would count as the value.
            parsed.push_back(next->substr(0, next->size() - 1));
            parsed.emplace_back();
        } else if (arguments.front() == "place" && looksLikeAnOption(*next)) {
            parsed.push_back(" " + *next); // reading a number skips the blank
        } else {
            parsed.push_back(*next);
        }
    }
    parsed.insert(parsed.end(), next, arguments.end());
    return parsed;
}

/// The program with every command; `options` and `run` outlive it.
std::unique_ptr<CLI::App> makeProgram(Options& options, Run& run) {
    auto program = std::make_unique<CLI::App>(
        "Makes and looks at OpenAccess libraries for a circuit-design environment", "ovalis");
    CLI::App& app = *program;
    useHelpTexts(app);
    // A path may begin with a slash on Windows too.
    app.allow_windows_style_options(false);
    app.set_help_flag("-h,--help", "Tell this and exit");
    app.set_version_flag("--version", "ovalis " OVALIS_VERSION, "Tell the version and exit");
    app.require_subcommand(1);
    app.failure_message([](const CLI::App* parsed, const CLI::Error& error) {
        const std::vector<std::string> unknown = parsed->remaining();
        const bool noCommand = parsed->get_subcommands().empty() && !unknown.empty();
        return "ovalis: " +
               (noCommand ? "no command \"" + unknown.front() + "\"" : oneLine(error.what())) +
               " (see ovalis --help)\n";
    });
    addExport(app, options, run);
    addCheck(app, options, run);
    addList(app, options, run);
    addLibsCommand(app, options, run);
    addFiles(app, options, run);
    addLocks(app, options, run);
    addDescribe(app, options, run);
    addReport(app, options, run);
    addDraw(app, options, run);
    addCopy(app, options, run);
    addDiff(app, options, run);
    addMakePcell(app, options, run);
    addPlace(app, options, run);
    addEvaluate(app, options, run);
    addHash(app, options, run);
    addCache(app, options, run);
    addBrokers(app, options, run);
    refuseEmptyValues(app);
    return program;
}

} // namespace

int run(const std::vector<std::string>& arguments, Console& console) {
    Options options;
    Run run{console};
    const std::unique_ptr<CLI::App> app = makeProgram(options, run);
    try {
        std::vector<std::string> parsed = forParser(arguments);
        std::reverse(parsed.begin(), parsed.end());
        app->parse(parsed);
    } catch (const CLI::Error& error) {
        return app->exit(error, console.out, console.talk) == 0 ? success : failure;
    } catch (const std::filesystem::filesystem_error& error) {
        console.talk << "ovalis: " << oneLine(textOf(error)) << '\n';
        return failure;
    } catch (const std::exception& error) {
        console.talk << "ovalis: " << oneLine(error.what()) << '\n';
        return failure;
    }
    return run.status;
}

std::map<std::string, std::string> helpPages() {
    std::ostringstream unused;
    Console console{unused, unused};
    Options options;
    Run run{console};
    return pagesOf(*makeProgram(options, run));
}

} // namespace cli
