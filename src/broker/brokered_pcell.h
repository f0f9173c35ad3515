#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <oa/oaDesignDB.h>

#include "broker/config.h"
#include "broker/evaluator_choice.h"
#include "broker/process_system.h"

namespace pcellBrokerClient {

/// What all brokered evaluators of one registration share.
struct Brokers {
    BrokerConfig config;
    BrokerConnections connections = makeConnections();
    std::shared_ptr<ProcessSystem> system = std::make_shared<ProcessSystem>();
};

/// The evaluator of a pcell type that is configured to be evaluated by a broker.
///
/// - What evaluates the type is chosen once, when it is needed first: the plug-in of that name in
///   this process, or a broker, or nothing.
/// - A failed choice goes to the log, and every evaluation is an error from then on.
/// - A failed evaluation is told to the observers of pcell errors; nothing is thrown.
class BrokeredPcell : public oaCommon::PlugInBase<oa::IPcell>, public ChosenEvaluator {
public:
    BrokeredPcell(const BrokeredType& type, std::shared_ptr<Brokers> brokers);

    oa::oaPcellDef* getPcellDef() override;
    void getName(oa::oaString& name) override;
    void onBind(oa::oaDesign* design, oa::oaPcellDef* def) override;
    void onUnbind(oa::oaDesign* design, oa::oaPcellDef* def) override;
    void onEval(oa::oaDesign* design, oa::oaPcellDef* def) override;
    void onRead(oa::oaDesign* design, oa::oaMapFileWindow& mapWindow, oa::oaUInt4& loc,
                oa::oaPcellDef* def) override;
    void onWrite(oa::oaDesign* design, oa::oaMapFileWindow& mapWindow, oa::oaUInt4& loc,
                 oa::oaPcellDef* def) override;
    oa::oaUInt4 calcDiskSize(oa::oaPcellDef* def) const override;

    EvaluatorChoice evaluatorChoice() const override;

private:
    enum class State : oa::oaUInt4 { notChosen = 0, native = 1, brokered = 2, none = 3 };

    /// What came of a choice: the evaluator, or what was tried.
    struct Choice {
        State state = State::none;
        oaCommon::SPtr<oa::IPcell> native;
        BrokerKey brokerKey{};
        std::string tried;
    };

    bool isNative() const;
    void choose() const;
    void tryVersions(Choice& choice) const;
    bool tryNative(Choice& choice) const;
    bool tryBroker(std::uint32_t apiVersion, Choice& choice) const;
    std::vector<std::uint32_t> versionsToTry() const;
    /// @returns the message of a broker that did not evaluate.
    std::optional<std::string> evaluate(oa::oaDesign* design, oa::oaPcellDef* def);
    /// Tells the observers the ErrorReport that is made; the log, when that fails.
    template <class MakeReport>
    void report(oa::oaDesign* design, const std::string& text, MakeReport make) const;

    oa::oaString typeName_;
    bool allowNative_;
    bool useExternalOaLibs_;
    std::shared_ptr<Brokers> brokers_;

    // Chosen at the first need, which may be a question.
    mutable State state_ = State::notChosen;
    mutable BrokerKey brokerKey_{};
    mutable oaCommon::SPtr<oa::IPcell> native_;
    mutable std::string tried_;
};

} // namespace pcellBrokerClient
