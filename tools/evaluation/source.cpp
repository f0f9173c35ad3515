#include "evaluation/source.h"

#include <typeinfo>

#include "broker/evaluator_choice.h"
#include "evaluation/pcell.h"
#include "evaluation/plug_in_place.h"
#include "platform/path.h"
#include "platform/private_directory.h"
#include "platform/shared_module.h"

namespace evaluation {
namespace {

using pcellBrokerClient::ChosenEvaluator;
using pcellBrokerClient::EvaluatorChoice;

/// Programs may register evaluators of their own, which come before plug-ins of the same name.
bool isOfProgram(const oa::IPcell& evaluator) {
    try {
        return platform::canonicalPath(platform::programPath()) ==
               platform::moduleHolding(&typeid(evaluator));
    } catch (const std::exception&) {
        return false;
    }
}

Source plugInSource(const std::string& name) {
    return {Source::Kind::plugIn, plugInFile(name, plugInDirectories())};
}

Source sourceOf(const EvaluatorChoice& choice, const std::string& name) {
    if (choice.kind == EvaluatorChoice::Kind::native)
        return plugInSource(name);
    if (choice.kind == EvaluatorChoice::Kind::none)
        return {Source::Kind::none, "", 0, false, choice.tried};
    return {Source::Kind::broker, choice.program, choice.apiVersion, choice.useExternalOaLibs};
}

} // namespace

Source sourceOf(const Pcell& pcell, const std::string& hash, const std::string& cacheDirectory) {
    if (pcell.isCached())
        return {Source::Kind::cacheFile,
                cacheDirectory.empty() ? "" : platform::joinPath(cacheDirectory, hash)};
    const std::string& name = pcell.evaluator();
    const oa::oaPcellLink* link = oa::oaPcellLink::find(ovalis::toOa(name));
    const Source plugIn = plugInSource(name);
    if (link == nullptr) // a plug-in that cannot be used, or nothing at all
        return plugIn.path.empty() ? Source() : plugIn;
    const oa::IPcell& evaluator = *link->getIPcell();
    if (const auto* chosen = dynamic_cast<const ChosenEvaluator*>(&evaluator))
        return sourceOf(chosen->evaluatorChoice(), name);
    if (plugIn.path.empty() || isOfProgram(evaluator))
        return {Source::Kind::process};
    return plugIn;
}

} // namespace evaluation
