#include "diagnosis/diagnose.h"

#include <algorithm>
#include <set>

#include <oa/oaDesignDB.h>
#include <ovalis/pcell.h>

#include "diagnosis/configuration.h"
#include "diagnosis/disk.h"
#include "diagnosis/type_choice.h"

namespace diagnosis {
namespace {

using pcellBrokerClient::BrokeredType;
using pcellBrokerClient::Brokers;

/// The database as an evaluation finds it, but without the evaluators of the configuration.
void startDatabase() {
    constexpr oa::oaUInt4 major = 6;
    constexpr oa::oaUInt4 minor = 603;
    oa::oaDesignInit(major, minor);
}

template <class Evaluator>
std::string nameOf() {
    const oaCommon::SPtr<oa::IPcell> evaluator(new Evaluator);
    oa::oaString name;
    evaluator->getName(name);
    return static_cast<const oa::oaChar*>(name);
}

/// Types that the library evaluates itself, whatever is configured.
bool isEvaluatedByLibrary(const std::string& type) {
    const std::string names[] = {nameOf<ovalis::VexPSNPcell>(),
                                 nameOf<ovalis::VexLayerMappingPcell>(),
                                 nameOf<ovalis::VexReferencePcell>(),
                                 nameOf<ovalis::VexViaPadPcell>(),
                                 nameOf<ovalis::VexNestedTechnologyPcell>(),
                                 nameOf<ovalis::VexSKRPcell>()};
    return std::find(std::begin(names), std::end(names), type) != std::end(names);
}

class Diagnosis {
public:
    explicit Diagnosis(std::chrono::milliseconds patience) : patience_(patience) {}

    Report make() {
        const std::optional<ConfigurationFile> file = readConfiguration(brokers_, report_);
        checkUserVariables(report_.faults);
        if (file)
            checkDisk(*file, report_.directory, report_.faults);
        if (report_.refusal.empty()) {
            report_.probe = brokers_.config.probeExe;
            startDatabase();
            for (const std::string& item : brokers_.config.items)
                judge(item);
            report_.probeAnswer = probeAnswer();
        }
        return report_;
    }

private:
    void judge(const std::string& item) {
        const std::string name = pcellBrokerClient::itemTypeName(item);
        const std::string where = report_.configString.origin + ": '" + item + "'";
        if (name.find_first_of(" \t") != std::string::npos)
            report_.faults.push_back(
                {where + " has a blank in the name of the type", "take blanks out of the list"});
        if (registered_.contains(name)) {
            report_.faults.push_back(
                {where + " comes after another '" + name + "' and has no effect",
                 "name each type once"});
            return;
        }
        TypeReport& type = report_.types.emplace_back();
        type.name = name;
        if (isEvaluatedByLibrary(name)) {
            registered_.insert(name);
            type.evaluator = "this library itself";
            report_.faults.push_back({where + " is a type that the library evaluates itself",
                                      "take it out of the list"});
            return;
        }
        try {
            const BrokeredType parsed = pcellBrokerClient::parseItem(item);
            registered_.insert(name);
            type.allowNative = parsed.allowNative;
            type.useExternalOaLibs = parsed.useExternalOaLibs;
            chooseEvaluator(parsed, brokers_, patience_, type);
        } catch (const std::runtime_error&) {
            type.faults.push_back({where + " has an option that there is none of",
                                   "after ':' only the letters E and X may stand"});
        }
    }

    std::string probeAnswer() const {
        if (brokers_.config.forcedOaApiVersion != 0)
            return "not run, because a version is forced";
        if (brokers_.config.probedOaApiVersion < 0)
            return "not run";
        if (brokers_.config.probedOaApiVersion == 0)
            return "no preference";
        return "prefers version " + std::to_string(brokers_.config.probedOaApiVersion);
    }

    Brokers brokers_;
    std::chrono::milliseconds patience_;
    Report report_;
    std::set<std::string> registered_;
};

} // namespace

bool Report::isSound() const {
    return refusal.empty() && std::all_of(types.begin(), types.end(), [](const TypeReport& type) {
               return !type.evaluator.empty();
           });
}

Report diagnoseBrokers(std::chrono::milliseconds patience) {
    return Diagnosis(patience).make();
}

} // namespace diagnosis
