#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <vector>

#include <ovalis/pcell.h>

#include "evaluation/identity.h"
#include "evaluation/open_design.h"
#include "evaluation/source.h"

namespace evaluation {

/// What the database tells its pcell observers when something fails.
struct PcellError {
    std::string kind; ///< "evaluation", "plug-in" ..., "error 1234" for a number of nobody's
    std::string message;
    DesignName design;
    oa::oaParamArray params; ///< of the submaster concerned, defaults included; else none
};

/// Keeps the errors of pcells while it lives.
class PcellErrorLog : public oa::oaPcellObserver {
public:
    PcellErrorLog() : oa::oaPcellObserver(1) {}

    void onError(oa::oaDesign* design, const oa::oaString& message,
                 oa::oaPcellErrorTypeEnum type) override;

    const std::vector<PcellError>& errors() const { return errors_; }

private:
    std::vector<PcellError> errors_;
};

/// Opens a design for reading; the caller closes it.
/// @throws std::runtime_error  there is no such cell view
oa::oaDesign* openExisting(oa::oaLib& library, const std::string& cell, const std::string& view);

/// A super master that is open for reading.
class Pcell {
public:
    /// @throws std::runtime_error  there is no such cell view, or it is no pcell
    Pcell(oa::oaLib& library, const std::string& cell, const std::string& view);

    const DesignName& name() const { return name_; }
    const std::string& evaluator() const { return evaluator_; }
    const oa::oaParamArray& defaults() const { return defaults_; }

    /// True when the evaluator is known here, and serves cached submasters.
    bool isCached() const;

    oa::oaDesign& master() const { return *master_; }

private:
    OpenDesign master_;
    DesignName name_;
    std::string evaluator_;
    oa::oaParamArray defaults_;
};

struct Evaluation {
    /// True for an error of the submaster itself, or of its super master. What it places are other
    /// submasters, perhaps of the same pcell.
    bool isOwn(const PcellError& error) const;

    DesignName pcell;
    oa::oaParamArray params; ///< all of them, defaults included
    std::string hash;
    Source source;
    std::vector<PcellError> errors;
    std::chrono::duration<double, std::milli> time{};
    /// Open until its library closes; null when the database gave none.
    oa::oaDesign* submaster = nullptr;
    std::size_t shapes = 0;
    /// None when there is nothing to enclose.
    std::optional<oa::oaBox> box;
};

/// Evaluates the submaster of a pcell for the given parameters, and what it places. What fails in
/// that is in the result's errors.
/// @param cacheDirectory  where cached submasters lie; empty when there is no such place
/// @throws oa::oaException  the database failed otherwise
Evaluation evaluate(const Pcell& pcell, const oa::oaParamArray& given,
                    const std::string& cacheDirectory);

} // namespace evaluation
