#include "cli/pcell_target.h"

#include <stdexcept>

#include "cli/library_access.h"
#include "evaluation/parameters.h"

namespace cli {
namespace {

/// Puts the library's directory in front of what is wrong in it.
template <class Body>
auto inLibrary(const CellViewOptions& options, Body&& body) -> decltype(body()) {
    try {
        return calling(body);
    } catch (const std::runtime_error& error) {
        throw std::runtime_error(directoryOf(options.library) + ": " + error.what());
    }
}

} // namespace

PcellTarget::PcellTarget(const PcellOptions& options)
    : libraries(directoryOf(options.pcell.library), nameOf(options.pcell.library), options.libs),
      pcell(inLibrary(options.pcell,
                      [&] {
                          return evaluation::Pcell(libraries.library(), options.pcell.cell,
                                                   options.pcell.view);
                      })),
      given(evaluation::givenParams(pcell.defaults(), options.params)) {}

oa::oaParamArray PcellTarget::params() const {
    return evaluation::effectiveParams(pcell.defaults(), given);
}

ovalis::SubmasterIdentity PcellTarget::identity() const {
    const evaluation::DesignName& name = pcell.name();
    return ovalis::identifySubmaster(name.library, name.cell, name.view, params());
}

std::string PcellTarget::cacheDirectory() const {
    return libraries.listPath().empty() ? "" : evaluation::Cache(libraries.listPath()).directory();
}

} // namespace cli
