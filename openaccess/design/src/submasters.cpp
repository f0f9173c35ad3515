#include "design/src/submasters.h"

#include "base/src/append_bytes.h"
#include "design/src/design_database.h"
#include "design/src/open_designs.h"
#include "design/src/pcell_observers.h"
#include "oa/oaDesignException.h"

#include <optional>
#include <utility>

namespace OpenAccess_4::impl {

namespace {

// Evaluations wait for each other where a pcell places pcells. One that places itself with other
// parameters each time is stopped here, far before the stack is.
constexpr std::uint32_t kMostNestedEvaluations = 64;
std::uint32_t nestedEvaluations = 0;

/// While it lives, an evaluation runs.
class Evaluation {
public:
    Evaluation(OpenDesignRecord& design, OpenDesignRecord& superMaster)
        : design_(design), superMaster_(superMaster) {
        ++nestedEvaluations;
        ++superMaster_.evaluations;
        if (design_.origin)
            design_.origin->state = EvaluationState::Running;
    }
    Evaluation(const Evaluation&) = delete;
    Evaluation& operator=(const Evaluation&) = delete;
    ~Evaluation() {
        --nestedEvaluations;
        --superMaster_.evaluations;
        if (design_.origin)
            design_.origin->state = EvaluationState::Done;
    }

private:
    OpenDesignRecord& design_;
    OpenDesignRecord& superMaster_;
};

/// While it lives, its design is not purged for want of references.
class KeptOpen {
public:
    explicit KeptOpen(OpenDesignRecord& design) : design_(design) { ++design_.openings; }
    KeptOpen(const KeptOpen&) = delete;
    KeptOpen& operator=(const KeptOpen&) = delete;
    ~KeptOpen() { --design_.openings; }

private:
    OpenDesignRecord& design_;
};

void requireSuperMaster(const oaDesign* design) {
    DesignDatabase& database = designDatabaseOf(design);
    if (!database.pcell.isDefined())
        throw designError(oacInvalidSuperMaster, database.names());
}

void requireRoom(const OpenDesignRecord& superMaster) {
    const DesignNames& names = superMaster.names;
    if (nestedEvaluations >= kMostNestedEvaluations)
        throw oaDesignError(oacPcellEvaluationsTooDeep, names.lib.c_str(), names.cell.c_str(),
                            names.view.c_str(), nestedEvaluations);
}

/// The place of the parameter of that name, or oacNullIndex.
oaUInt4 indexOf(const oaParamArray& params, const oaString& name) {
    oaString each;
    for (oaUInt4 i = 0; i < params.getNumElements(); ++i) {
        params[i].getName(each);
        if (each == name)
            return i;
    }
    return oacNullIndex;
}

/// Puts the values of `given` over the defaults. What the super master does not have by name and
/// type is an error, or is left out.
SubmasterOrigin originOf(oaDesign* superMaster, const oaParamArray& given, bool leaveOut = false) {
    SubmasterOrigin origin;
    origin.superMaster = superMaster;
    designDatabaseOf(superMaster).pcell.getParams(origin.params);
    std::vector<bool> isGiven(origin.params.getNumElements());
    oaString name;
    for (oaUInt4 i = 0; i < given.getNumElements(); ++i) {
        given[i].getName(name);
        const oaUInt4 place = indexOf(origin.params, name);
        if (place != oacNullIndex && origin.params[place].getType() == given[i].getType()) {
            origin.params[place] = given[i];
            isGiven[place] = true;
        } else if (!leaveOut) {
            const DesignNames& names = recordFor(superMaster).names;
            throw oaDesignError(oacInvalidDataTypeForParam, static_cast<const oaChar*>(name),
                                names.lib.c_str(), names.cell.c_str(), names.view.c_str());
        }
    }
    for (oaUInt4 i = 0; i < origin.params.getNumElements(); ++i)
        if (isGiven[i])
            origin.given.append(origin.params[i]);
    return origin;
}

void appendText(std::string& key, const oaString& text) {
    appendBytes(key, text.getLength());
    key.append(text, text.getLength());
}

void appendValue(std::string& key, const oaParam& param) {
    oaString text;
    switch (param.getType()) {
    case oacIntParamType:
        return appendBytes(key, param.getIntVal());
    case oacFloatParamType:
        return appendBytes(key, param.getFloatVal());
    case oacDoubleParamType:
        return appendBytes(key, param.getDoubleVal());
    case oacBooleanParamType:
        return appendBytes(key, param.getBooleanVal());
    case oacTimeParamType:
        return appendBytes(key, param.getTimeVal());
    case oacStringParamType:
        param.getStringVal(text);
        return appendText(key, text);
    case oacAppParamType: {
        std::vector<oaByte> bytes(param.getNumBytes());
        param.getAppVal(bytes.data());
        param.getAppType(text);
        appendText(key, text);
        appendBytes(key, oaUInt4(bytes.size()));
        key.append(bytes.begin(), bytes.end());
    }
    }
}

/// Bytes that are the same for the same values in the same order. Values that differ in bytes only,
/// such as 0 and -0, are different ones: an evaluator can tell them apart.
std::string keyOf(const oaParamArray& params) {
    std::string key;
    for (oaUInt4 i = 0; i < params.getNumElements(); ++i)
        appendValue(key, params[i]);
    return key;
}

/// Has the evaluator fill `design`; the reason when that fails.
std::optional<oaString> failureOfEvaluation(oaDesign* design, PcellMaster& pcell) {
    try {
        if (!pcell.definition()) {
            const DesignNames& names = designDatabaseOf(design).names();
            throw oaDesignError(oacPcellNotEvaluated, names.lib.c_str(), names.cell.c_str(),
                                names.view.c_str(), pcell.evaluatorName());
        }
        notifyPreEval(design, pcell.definition());
        pcell.evaluate(design);
        notifyPostEval(design, pcell.definition());
        return std::nullopt;
    } catch (...) {
        return textOfFailure();
    }
}

void evaluate(oaDesign* submaster) {
    OpenDesignRecord& record = recordFor(submaster);
    oaDesign* superMaster = record.origin->superMaster;
    std::optional<oaString> failure;
    {
        const Evaluation running(record, recordFor(superMaster));
        failure = failureOfEvaluation(submaster, designDatabaseOf(superMaster).pcell);
        if (failure)
            replaceContent(record, DesignDatabase::makeEmpty(submaster));
        record.content->info();
        record.content->setModified(false);
    }
    if (failure)
        tellPcellError(submaster, *failure, oacPcellEvalError);
}

/// Adds a submaster that is not evaluated yet.
oaDesign* addSubmaster(OpenDesignRecord& superMaster, SubmasterOrigin origin) {
    OpenDesignRecord record;
    record.names = superMaster.names;
    record.lib = superMaster.lib;
    record.viewType = superMaster.viewType;
    record.mode = 's';
    record.readInTime = superMaster.readInTime;
    record.origin = std::make_unique<SubmasterOrigin>(std::move(origin));
    const std::uint32_t slot = openSubmasters().add(std::move(record));
    auto* made = static_cast<oaDesign*>(openSubmasters().handle(slot));
    OpenDesignRecord& added = openSubmasters()[slot];
    added.content = std::make_unique<DesignDatabase>(made);
    superMaster.submasters.made.emplace(slot, made);
    superMaster.submasters.byKey.emplace(added.origin->key, made);
    return made;
}

oaDesign* find(const Submasters& submasters, const std::string& key) {
    const auto found = submasters.byKey.find(key);
    return found == submasters.byKey.end() ? nullptr : found->second;
}

/// Gives the submasters the parameters that follow from those of the super master now.
void rebase(oaDesign* superMaster) {
    Submasters& submasters = recordFor(superMaster).submasters;
    submasters.byKey.clear();
    for (const auto& [slot, submaster] : submasters.made) {
        SubmasterOrigin& origin = *recordFor(submaster).origin;
        origin = originOf(superMaster, origin.given, true);
        origin.key = keyOf(origin.params);
        submasters.byKey.emplace(origin.key, submaster);
    }
}

} // namespace

std::vector<oaDesign*> Submasters::all() const {
    std::vector<oaDesign*> designs;
    for (const auto& [slot, submaster] : made)
        designs.push_back(submaster);
    return designs;
}

void requireNotEvaluated(const oaDesign* design) {
    const OpenDesignRecord& record = recordFor(design);
    const bool isRunning = record.origin && record.origin->state == EvaluationState::Running;
    if (record.evaluations > 0 || isRunning)
        throw designError(oacPcellBeingEvaluated, record.names);
}

void requireNoSubmaster(const oaDesign* design) {
    requireNoViaMaster(design);
    const OpenDesignRecord& record = recordFor(design);
    if (record.origin)
        throw designError(oacCannotModifySubMaster, record.names);
}

oaDesign* submasterOf(oaDesign* superMaster, const oaParamArray& given) {
    requireSuperMaster(superMaster);
    OpenDesignRecord& record = recordFor(superMaster);
    SubmasterOrigin origin = originOf(superMaster, given);
    origin.key = keyOf(origin.params);
    oaDesign* submaster = find(record.submasters, origin.key);
    if (submaster) {
        const EvaluationState state = recordFor(submaster).origin->state;
        if (state == EvaluationState::Running)
            throw designError(oacPcellEvaluatesItself, record.names);
        if (state == EvaluationState::Done)
            return submaster;
    }
    requireRoom(record);
    if (!submaster)
        submaster = addSubmaster(record, std::move(origin));
    evaluate(submaster);
    return submaster;
}

oaDesign* openSubmaster(const DesignNames& names, const oaParamArray& given) {
    oaDesign* superMaster = findOpenDesign(names);
    if (!superMaster) {
        superMaster = openDesign(names, nullptr, 'r');
        if (!superMaster)
            return nullptr;
        recordFor(superMaster).openings = 0; // its submasters keep it open
    }
    try {
        oaDesign* submaster = submasterOf(superMaster, given);
        if (designDatabaseOf(submaster).hasBlock()) {
            addOpening(submaster);
            return submaster;
        }
    } catch (...) {
        purgeUnused({superMaster});
        throw;
    }
    purgeUnused({superMaster});
    return nullptr;
}

void renewSubmasters(oaDesign* superMaster) {
    const std::vector<oaDesign*> submasters = recordFor(superMaster).submasters.all();
    if (submasters.empty())
        return;
    const KeptOpen kept(recordFor(superMaster));
    if (!designDatabaseOf(superMaster).pcell.isDefined()) {
        for (oaDesign* submaster : submasters)
            if (submaster->isValid())
                purgeDesign(submaster);
        return;
    }
    rebase(superMaster);
    for (oaDesign* submaster : submasters)
        if (submaster->isValid())
            replaceContent(recordFor(submaster), std::make_unique<DesignDatabase>(submaster));
    for (oaDesign* submaster : submasters)
        if (submaster->isValid() && recordFor(submaster).origin->state == EvaluationState::Pending)
            evaluate(submaster);
}

void evaluateSuperMaster(oaDesign* superMaster) {
    requireSuperMaster(superMaster);
    DesignDatabase& database = designDatabaseOf(superMaster);
    requireNotEvaluated(superMaster);
    database.edit();
    if (database.hasBlock())
        database.destroyBlock();
    OpenDesignRecord& record = recordFor(superMaster);
    requireRoom(record);
    std::optional<oaString> failure;
    {
        const Evaluation running(record, record);
        failure = failureOfEvaluation(superMaster, database.pcell);
    }
    if (!failure)
        return;
    if (database.hasBlock())
        database.destroyBlock();
    tellPcellError(superMaster, *failure, oacPcellEvalError);
}

} // namespace OpenAccess_4::impl
