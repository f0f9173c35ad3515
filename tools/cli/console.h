#pragma once

#include <ostream>

namespace cli {

/// Where a command writes: data to `out`, everything said to people to `talk`.
struct Console {
    std::ostream& out;
    std::ostream& talk;
    /// Somebody watches `talk`, so that a progress bar makes sense.
    bool interactive = false;
    /// The command has told the errors of pcells in its own words.
    bool errorsAreTold = false;
};

/// Exit statuses of every command.
constexpr int success = 0;
constexpr int somethingMissing = 1;
constexpr int failure = 2;

} // namespace cli
