#pragma once

#include <string>

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

struct DrawOptions {
    LibraryOptions library;
    std::string cell;
    std::string view;
    std::string outputFile;
};

struct CopyOptions {
    std::string source;
    LibraryOptions destination;
};

// Each command answers its exit status and throws `std::runtime_error` on failure.

/// Puts a component into a library as a cell; says what it made.
int exportCommand(const ExportOptions& options, Console& console);

/// Lists what the library lacks, one line each; `somethingMissing` when there is a line.
int checkCommand(const LibraryOptions& options, Console& console);

/// Lists cells, views and view types.
int listCommand(const ListOptions& options, Console& console);

/// Draws a design as SVG.
int drawCommand(const DrawOptions& options, Console& console);

/// Copies a library.
int copyCommand(const CopyOptions& options, Console& console);

} // namespace cli
