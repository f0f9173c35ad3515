#include "evaluation/pcell.h"

#include <stdexcept>

#include <ovalis/library.h>

#include "evaluation/parameters.h"

namespace evaluation {
namespace {

oa::oaDesign* openSubmaster(const DesignName& name, const oa::oaParamArray& given) {
    const oa::oaNativeNS names;
    return oa::oaDesign::open(oa::oaScalarName(names, name.library.c_str()),
                              oa::oaScalarName(names, name.cell.c_str()),
                              oa::oaScalarName(names, name.view.c_str()), given);
}

} // namespace

void PcellErrorLog::onError(oa::oaDesign* design, const oa::oaString& message,
                            oa::oaPcellErrorTypeEnum type) {
    constexpr const char* kinds[] = {"bind",  "unbind", "evaluation", "read",
                                     "write", "size",   "plug-in"};
    const auto number = static_cast<unsigned>(type);
    PcellError& error = errors_.emplace_back();
    error.kind = number < std::size(kinds) ? kinds[number] : "error " + std::to_string(number);
    error.message = ovalis::fromOa(message);
    if (design == nullptr)
        return;
    error.design = nameOf(*design);
    if (design->isSubMaster())
        design->getParams(error.params);
}

bool Evaluation::isOwn(const PcellError& error) const {
    return error.design == pcell &&
           (error.params.getNumElements() == 0 || textOf(error.params) == textOf(params));
}

oa::oaDesign* openExisting(oa::oaLib& library, const std::string& cell, const std::string& view) {
    if (ovalis::getCellView(library, cell, view) == nullptr)
        throw std::runtime_error("no cell view \"" + cell + "/" + view + "\"");
    return ovalis::openDesign(library, cell, view, false);
}

Pcell::Pcell(oa::oaLib& library, const std::string& cell, const std::string& view)
    : master_(openExisting(library, cell, view)), name_(nameOf(*master_)) {
    if (!master_->isSuperMaster())
        throw std::runtime_error(cell + "/" + view + " is no pcell");
    oa::oaString evaluator;
    master_->getPcellEvaluatorName(evaluator);
    evaluator_ = ovalis::fromOa(evaluator);
    master_->getParams(defaults_);
}

bool Pcell::isCached() const {
    oa::oaPcellDef* def = master_->getPcellDef();
    return def != nullptr && dynamic_cast<ovalis::VexPcell*>(def->getIPcell()) != nullptr;
}

Evaluation evaluate(const Pcell& pcell, const oa::oaParamArray& given,
                    const std::string& cacheDirectory) {
    const DesignName& name = pcell.name();
    Evaluation result;
    result.pcell = name;
    result.params = effectiveParams(pcell.defaults(), given);
    result.hash = ovalis::identifySubmaster(name.library, name.cell, name.view, result.params).hash;

    const PcellErrorLog log;
    const auto start = std::chrono::steady_clock::now();
    result.submaster = openSubmaster(name, given);
    result.time = std::chrono::steady_clock::now() - start;
    result.errors = log.errors();
    result.source = sourceOf(pcell, result.hash, cacheDirectory);

    oa::oaBlock* block = result.submaster == nullptr ? nullptr : result.submaster->getTopBlock();
    if (block != nullptr) {
        result.shapes = block->getShapes().getCount();
        oa::oaBox box;
        block->getBBox(box);
        if (!box.isInverted())
            result.box = box;
    }
    return result;
}

} // namespace evaluation
