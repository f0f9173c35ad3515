#pragma once

#include <string>
#include <vector>

#include "cli/artwork.h"
#include "cli/cell_replacement.h"
#include "cli/commands.h"

namespace cli {

/// What an export made.
struct ExportReport {
    bool newLibrary = false;
    bool replaced = false;
    ArtworkReport artwork;
    /// Where the Touchstone file lies within the library; empty without one.
    std::string touchstone;
    /// What the library lacks all the same, one line each.
    std::string lacks;
};

/// Puts a component into a library: makes or opens it, completes its technology, builds the cell
/// out of sight and puts it in place as a whole.
///
/// After a failure at any point the library's cells are what they were before, and a library that
/// was made for this is gone again.
/// @throws std::runtime_error  the cell exists and is not to be replaced, somebody edits it, the
///                             library is locked, the technology contradicts the component ...
ExportReport exportComponent(const component::Component& component, const component::Layout& layout,
                             const LibraryOptions& library, bool replace, const Watcher& watcher);

} // namespace cli
