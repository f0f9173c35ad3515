#pragma once

#include <string>
#include <vector>

#include "cli/console.h"

namespace cli {

/// How the user names a library: its directory and, when not the directory's name, its name.
struct LibraryOptions {
    std::string path;
    std::string name;
};

struct ExportOptions {
    std::string componentFile;
    LibraryOptions library;
    bool replace = false;
};

struct ListOptions {
    LibraryOptions library;
    std::string cell;
    bool json = false;
};

/// A cell view of a library.
struct CellViewOptions {
    LibraryOptions library;
    std::string cell;
    std::string view;
};

struct LibsOptions {
    /// The library definition file; the default one when empty.
    std::string file;
    bool json = false;
};

struct DescribeOptions {
    LibraryOptions library;
    /// Empty for the whole library, for all views of the cell.
    std::string cell;
    std::string view;
    std::string outputFile;
};

struct ReportOptions {
    LibraryOptions library;
    /// Both empty for all designs.
    std::string cell;
    std::string view;
    /// As the environment variable of the collector; that is taken when empty.
    std::string origins;
    bool json = false;
};

struct DrawOptions {
    CellViewOptions design;
    /// The top library list; the library's own `lib.defs` when empty.
    std::string libs;
    std::string outputFile;
};

struct CopyOptions {
    std::string source;
    LibraryOptions destination;
};

struct DiffOptions {
    /// Two directories of libraries, or each with a cell and a view.
    std::vector<std::string> sides;
    /// The top library list; the first library's own `lib.defs` when empty.
    std::string libs;
    bool json = false;
    bool quiet = false;
};

/// A pcell with values for some of its parameters.
struct PcellOptions {
    CellViewOptions pcell;
    /// NAME=VALUE each.
    std::vector<std::string> params;
    /// The top library list; the library's own `lib.defs` when empty.
    std::string libs;
};

struct EvaluateOptions {
    PcellOptions target;
    std::string pictureFile;
    bool json = false;
};

struct HashOptions {
    PcellOptions target;
    bool explain = false;
};

/// Which cache: the one of a library's top list, or of a list given by itself.
struct CacheOptions {
    LibraryOptions library;
    std::string libs;
};

struct CachePutOptions {
    PcellOptions target;
    /// Directory, cell and view of the content.
    std::vector<std::string> from;
};

struct MakePcellOptions {
    CellViewOptions pcell;
    std::string evaluator;
    /// NAME:TYPE=VALUE each.
    std::vector<std::string> params;
};

struct BrokersOptions {
    bool json = false;
};

struct FilesOptions {
    LibraryOptions library;
    /// Empty for the files of the library, of the cell.
    std::string cell;
    std::string view;
    /// A file to copy in.
    std::string add;
    /// The name of a file to remove, before one is added.
    std::string remove;
    bool json = false;
};

struct LocksOptions {
    LibraryOptions library;
    bool clear = false;
    bool json = false;
};

struct PlaceOptions {
    CellViewOptions design;
    std::string name;
    /// In user units.
    double x = 0;
    double y = 0;
    /// Directory, cell and view of the master.
    std::vector<std::string> master;
    /// NAME=VALUE each.
    std::vector<std::string> params;
};

// Each command answers its exit status and throws `std::runtime_error` on failure.

/// Puts a component into a library as a cell; says what it made.
int exportCommand(const ExportOptions& options, Console& console);

/// Lists what the library lacks, one line each; `somethingMissing` when there is a line.
int checkCommand(const LibraryOptions& options, Console& console);

/// Lists cells, views and view types.
int listCommand(const ListOptions& options, Console& console);

/// Lists what a library definition file defines and what became of it; `somethingMissing` when a
/// library cannot be opened.
int libsCommand(const LibsOptions& options, Console& console);

/// Lists the files of a library, a cell or a cell view, or copies one in or removes one.
int filesCommand(const FilesOptions& options, Console& console);

/// Lists who holds locks on a library and its files; clears those that nobody holds any more.
int locksCommand(const LocksOptions& options, Console& console);

/// Describes a library, a cell or a cell view as text.
int describeCommand(const DescribeOptions& options, Console& console);

/// Opens a library, or one design, and reports what the database warns of; `somethingMissing` when
/// there are errors or a design cannot be opened.
int reportCommand(const ReportOptions& options, Console& console);

/// Draws a design as SVG.
int drawCommand(const DrawOptions& options, Console& console);

/// Copies a library.
int copyCommand(const CopyOptions& options, Console& console);

/// Tells what differs between two libraries or designs; `somethingMissing` when something does,
/// `failure` when something could not be read.
int diffCommand(const DiffOptions& options, Console& console);

/// Evaluates a pcell and says what served it; `somethingMissing` when it could not be evaluated.
int evaluateCommand(const EvaluateOptions& options, Console& console);

/// Tells the identity of a submaster.
int hashCommand(const HashOptions& options, Console& console);

/// Lists the entries of a cache of evaluated submasters.
int cacheListCommand(const CacheOptions& options, Console& console);

/// Reads every entry of a cache through and looks for what is missing; `somethingMissing` when
/// there is anything to tell.
int cacheVerifyCommand(const CacheOptions& options, Console& console);

/// Stores the content of a design as a cache entry.
int cachePutCommand(const CachePutOptions& options, Console& console);

/// Says whether the cache serves a pcell, and else how the nearest entry differs;
/// `somethingMissing` when it does not serve it.
int cacheExplainCommand(const PcellOptions& options, Console& console);

/// Makes a pcell master that an evaluator fills.
int makePcellCommand(const MakePcellOptions& options, Console& console);

/// Places an instance in a design.
int placeCommand(const PlaceOptions& options, Console& console);

/// Says by what each pcell type that is configured for brokers is evaluated here, and why;
/// `somethingMissing` when one has no evaluator.
int brokersCommand(const BrokersOptions& options, Console& console);

} // namespace cli
