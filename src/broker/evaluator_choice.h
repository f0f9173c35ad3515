#pragma once

#include <cstdint>
#include <string>

namespace pcellBrokerClient {

/// What became of the choice of an evaluator for one type.
struct EvaluatorChoice {
    enum class Kind { native, broker, none };

    Kind kind = Kind::none;
    std::uint32_t apiVersion = 0;   ///< of the broker
    bool useExternalOaLibs = false; ///< for none: those of the brokers that were asked
    std::string program;            ///< the broker
    std::string tried;              ///< every way in its order, as the log tells them
};

/// An evaluator that is chosen when it is needed first. Whoever wants to tell of it casts to this;
/// the evaluators live in a library whose symbols are hidden.
class ChosenEvaluator {
public:
    /// Makes the choice when it has not been made yet.
    virtual EvaluatorChoice evaluatorChoice() const = 0;

protected:
    ChosenEvaluator() = default;
    ~ChosenEvaluator() = default;
};

} // namespace pcellBrokerClient
