#pragma once

#include <functional>
#include <string>

#include <ovalis/library.h>

namespace cli {

/// Where an export has come to; told to those who watch it.
enum class Step {
    libraryReady,
    technologyReady,
    layoutDrawn,
    masterMade,
    symbolDrawn,
    oldCellAside,
    newCellInPlace
};

using Watcher = std::function<void(Step)>;

/// A place inside a library's directory where a cell is built out of sight, and from where it goes
/// into the library as a whole.
///
/// - The place is a library of its own in a directory whose name no cell can have; it is marked
///   like the library around it, so that file names follow the same rules.
/// - `put` swaps directories: the old cell is moved aside, the new one takes its place, and a
///   failure in between moves the old one back.
/// - The destructor removes the place. One left by a process that was killed is cleared by the
///   next one, which also puts back a cell that had only been moved aside.
///
/// The caller holds write access to the library all the time, which keeps others out.
class CellReplacement {
public:
    explicit CellReplacement(const std::string& libraryPath);
    CellReplacement(const CellReplacement&) = delete;
    CellReplacement& operator=(const CellReplacement&) = delete;
    ~CellReplacement();

    /// The library to build in. Its cell has the same name as the final one.
    oa::oaLib& workshop() { return *workshop_; }

    /// Moves the finished cell `cellName` into the library, in the place of the old one when it
    /// `replaces` one; closes the workshop.
    /// @throws std::runtime_error  something that is no cell is in the way.
    void put(const std::string& cellName, bool replaces, const Watcher& watcher);

private:
    void recover();

    std::string libraryPath_;
    std::string place_;
    ovalis::LibPtr workshop_;
};

} // namespace cli
