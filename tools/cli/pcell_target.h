#pragma once

#include <string>

#include "cli/commands.h"
#include "evaluation/cache.h"
#include "evaluation/open_libraries.h"
#include "evaluation/pcell.h"

namespace cli {

/// The pcell of a command with its libraries open, and the parameters that it was given.
struct PcellTarget {
    /// @throws std::runtime_error  there is no such pcell, or a parameter is wrong
    explicit PcellTarget(const PcellOptions& options);

    /// All parameters, defaults included.
    oa::oaParamArray params() const;
    ovalis::SubmasterIdentity identity() const;
    /// Where cached submasters lie; empty when there is no top library list.
    std::string cacheDirectory() const;

    evaluation::OpenLibraries libraries;
    evaluation::Pcell pcell;
    oa::oaParamArray given;
};

} // namespace cli
