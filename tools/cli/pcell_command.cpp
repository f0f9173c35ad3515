#include <stdexcept>

#include <oa/oaCommonSPtr.h>
#include <ovalis/pcell.h>

#include "cli/commands.h"
#include "cli/target_library.h"
#include "evaluation/parameters.h"

namespace cli {
namespace {

/// Makes the evaluator known when it is a plug-in.
void requireEvaluator(const std::string& evaluator) {
    if (oa::oaPcellLink::find(ovalis::toOa(evaluator)) != nullptr)
        return;
    std::string reason = "it refused to be registered";
    try {
        // The look-up keeps to itself why it found none.
        oaCommon::SPtr<oa::IPcell>(evaluator.c_str());
    } catch (const oaCommon::IException& error) {
        reason = error.getMsg();
    }
    throw std::runtime_error("no evaluator \"" + evaluator + "\": " + reason);
}

} // namespace

int makePcellCommand(const MakePcellOptions& options, Console& console) {
    return calling([&] {
        ovalis::initOa();
        const CellViewOptions& pcell = options.pcell;
        const oa::oaParamArray params = evaluation::declaredParams(options.params);
        requireEvaluator(options.evaluator);
        if (!ovalis::existsLib(directoryOf(pcell.library)))
            requireUsablePath(directoryOf(pcell.library));
        TargetLibrary lib(pcell.library);
        if (ovalis::getCellView(*lib, pcell.cell, pcell.view) != nullptr)
            throw std::runtime_error(directoryOf(pcell.library) + ": the cell view \"" +
                                     pcell.cell + "/" + pcell.view + "\" exists");
        const OpenDesign design(
            ovalis::openDesignWithView(*lib, pcell.cell, pcell.view, oa::oacMaskLayout, true));
        // The definition is the database's from here on.
        design->defineSuperMaster(oa::oaPcellLink::getPcellDef(ovalis::toOa(options.evaluator)),
                                  params);
        design->save();
        lib.keep();
        console.talk << "made the pcell " << nameOf(pcell.library) << "/" << pcell.cell << "/"
                     << pcell.view << " of \"" << options.evaluator
                     << "\": " << evaluation::textOf(params) << '\n';
        return success;
    });
}

} // namespace cli
