#pragma once

#include <ovalis/diagnostics.h>

#include "cli/console.h"

namespace cli {

/// Collects what the database reports while a command works, as `TESSA_OAINFO` has it. When it goes
/// and there are errors of pcells, it tells the whole report, unless somebody else does.
class CollectedErrors {
public:
    /// Starts the database, so that everything that a command opens is observed.
    /// @throws ovalis::Exception  the database cannot be started
    explicit CollectedErrors(Console& console);
    CollectedErrors(const CollectedErrors&) = delete;
    CollectedErrors& operator=(const CollectedErrors&) = delete;
    ~CollectedErrors();

private:
    struct Started {
        Started() { ovalis::initOa(); }
    };

    Console& console_;
    Started started_;
    ovalis::msgCollector collector_;
};

} // namespace cli
