#pragma once

#include "tools/broker/answer.h"
#include "tools/broker/request.h"

#include <string>

namespace broker {

/// Evaluates pcells with the database that this process is linked to.
class Evaluation {
public:
    /// Starts the database. `brokerName` stands in front of the codes of its messages.
    explicit Evaluation(std::string brokerName);

    /// Does what a set-up request says. A failure goes to standard error and into the answers of
    /// the evaluations that it makes fail.
    void setUp(const Request& request);

    /// Whether there is an evaluator of a pcell type; the text says why not.
    Answer canEvaluate(const std::string& typeName);

    /// Evaluates and writes the result to a new file. The text is empty, or the message.
    Answer evaluate(const Request& request, const std::string& resultPath);

private:
    void openLibraries(const std::string& definitions);

    std::string failureOfSetUp() const;

    std::string name;
    std::string directoryFailure; ///< why the last working directory is not that of this process
    std::string librariesFailure; ///< why the last library definitions are not loaded
};

} // namespace broker
