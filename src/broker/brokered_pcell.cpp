#include "broker/brokered_pcell.h"

#include <stdexcept>

#include "broker/error_report.h"
#include "broker/log.h"
#include "broker/requests.h"
#include "broker/start.h"

namespace pcellBrokerClient {

namespace {

// The version that this library itself runs on, whose plug-ins it can load.
constexpr std::uint32_t ownApiVersion = 6;

void appendAttempt(std::string& tried, std::uint32_t apiVersion, const std::string& way) {
    tried += (tried.empty() ? "" : ", ") + std::to_string(apiVersion) + " (" + way + ")";
}

std::string quoted(const oa::oaString& typeName) {
    return "'" + std::string(static_cast<const oa::oaChar*>(typeName)) + "'";
}

} // namespace

BrokeredPcell::BrokeredPcell(const BrokeredType& type, std::shared_ptr<Brokers> brokers)
    : typeName_(type.typeName.c_str()),
      allowNative_(type.allowNative),
      useExternalOaLibs_(type.useExternalOaLibs),
      brokers_(std::move(brokers)) {}

oa::oaPcellDef* BrokeredPcell::getPcellDef() {
    return isNative() ? native_->getPcellDef() : new oa::oaPcellDef(this); // back to onUnbind
}

void BrokeredPcell::getName(oa::oaString& name) {
    name = typeName_;
}

void BrokeredPcell::onBind(oa::oaDesign* design, oa::oaPcellDef* def) {
    if (isNative()) {
        native_->onBind(design, def);
    }
}

void BrokeredPcell::onUnbind(oa::oaDesign* design, oa::oaPcellDef* def) {
    if (isNative()) {
        native_->onUnbind(design, def);
    } else {
        delete def;
    }
}

void BrokeredPcell::onEval(oa::oaDesign* design, oa::oaPcellDef* def) {
    try {
        if (const std::optional<std::string> refusal = evaluate(design, def)) {
            report(design, *refusal, [&] { return parseReport(*refusal); });
        }
    } catch (...) {
        try {
            report(design, currentMessage().value_or(""), currentReport);
        } catch (...) { // there is not even memory for a report
        }
    }
}

void BrokeredPcell::onRead(oa::oaDesign* design, oa::oaMapFileWindow& mapWindow, oa::oaUInt4& loc,
                           oa::oaPcellDef* def) {
    if (isNative()) {
        native_->onRead(design, mapWindow, loc, def);
    }
}

void BrokeredPcell::onWrite(oa::oaDesign* design, oa::oaMapFileWindow& mapWindow, oa::oaUInt4& loc,
                            oa::oaPcellDef* def) {
    if (isNative()) {
        native_->onWrite(design, mapWindow, loc, def);
    }
}

oa::oaUInt4 BrokeredPcell::calcDiskSize(oa::oaPcellDef* def) const {
    return isNative() ? native_->calcDiskSize(def) : 0;
}

EvaluatorChoice BrokeredPcell::evaluatorChoice() const {
    choose();
    EvaluatorChoice choice;
    choice.useExternalOaLibs = useExternalOaLibs_;
    choice.tried = tried_;
    if (state_ == State::native) {
        choice.kind = EvaluatorChoice::Kind::native;
    } else if (state_ == State::brokered) {
        choice.kind = EvaluatorChoice::Kind::broker;
        choice.apiVersion = brokerKey_.apiVersion;
        choice.program = brokers_->connections.at(brokerKey_).exePath;
    }
    return choice;
}

bool BrokeredPcell::isNative() const {
    choose();
    return state_ == State::native;
}

void BrokeredPcell::choose() const {
    if (state_ != State::notChosen) {
        return;
    }
    state_ = State::none; // also for those who ask while the choice is being made
    Choice choice;
    try {
        tryVersions(choice);
        if (choice.state == State::none) {
            logMessage("could not find a working evaluator for brokered pcell type " +
                       quoted(typeName_) + ": OA APIs tried: " + choice.tried);
        }
        native_ = choice.native;
        brokerKey_ = choice.brokerKey;
        state_ = choice.state;
    } catch (...) {
        logMade([this] {
            return "while initializing brokered pcell type " + quoted(typeName_) + ": " +
                   currentMessage().value_or("unknown error");
        });
    }
    tried_ = std::move(choice.tried);
}

void BrokeredPcell::tryVersions(Choice& choice) const {
    for (const std::uint32_t apiVersion : versionsToTry()) {
        const bool mayBeNative = allowNative_ && apiVersion == ownApiVersion;
        if ((mayBeNative && tryNative(choice)) || tryBroker(apiVersion, choice)) {
            break;
        }
    }
}

std::vector<std::uint32_t> BrokeredPcell::versionsToTry() const {
    BrokerConfig& config = brokers_->config;
    if (config.forcedOaApiVersion != 0) {
        return {config.forcedOaApiVersion};
    }
    probeOaApiVersion(config, *brokers_->system);
    if (config.probedOaApiVersion == 5) {
        return {5, 6};
    }
    return {6, 5};
}

bool BrokeredPcell::tryNative(Choice& choice) const {
    appendAttempt(choice.tried, ownApiVersion, "native");
    try {
        choice.native = oaCommon::SPtr<oa::IPcell>(typeName_);
        choice.state = State::native;
        return true;
    } catch (...) { // no such plug-in, or one that does not work: a broker may have another
        return false;
    }
}

bool BrokeredPcell::tryBroker(std::uint32_t apiVersion, Choice& choice) const {
    const BrokerKey key{apiVersion, useExternalOaLibs_};
    appendAttempt(choice.tried, apiVersion,
                  "through broker using " + std::string(libsName(useExternalOaLibs_)) + " OA libs");
    BrokerConnection& connection = brokers_->connections.at(key);
    if (!connection.isStarted()) {
        startBroker(connection, *brokers_->system);
    }
    checkConnection(connection);
    if (!canEvaluate(connection, typeName_)) {
        return false;
    }
    choice.brokerKey = key;
    choice.state = State::brokered;
    return true;
}

std::optional<std::string> BrokeredPcell::evaluate(oa::oaDesign* design, oa::oaPcellDef* def) {
    choose();
    switch (state_) {
    case State::native:
        native_->onEval(design, def);
        return std::nullopt;
    case State::brokered:
        return evaluateThroughBroker(brokers_->connections.at(brokerKey_), *design,
                                     *brokers_->system);
    default:
        throw std::runtime_error(
            "no suitable OpenAccess plugin available for evaluating Pcell type " +
            quoted(typeName_));
    }
}

template <class MakeReport>
void BrokeredPcell::report(oa::oaDesign* design, const std::string& text, MakeReport make) const {
    try {
        const ErrorReport error = make();
        oa::oaPcellObserver::notifyErrorObservers(
            design, error.message.c_str(), static_cast<oa::oaPcellErrorTypeEnum>(error.code));
    } catch (...) {
        logMessage("while reporting an error of brokered pcell type " + quoted(typeName_) + ": " +
                   currentMessage().value_or("unknown error") + " (" + text + ")");
    }
}

} // namespace pcellBrokerClient
