#include "tools/conformance/checks.h"

#include "platform/file.h"
#include "tools/conformance/dialogue.h"
#include "tools/conformance/request_writer.h"

#include <functional>
#include <stdexcept>
#include <utility>

namespace conformance {

namespace {

constexpr auto timeToGo = std::chrono::seconds(2);

void require(bool holds, const char* breach) {
    if (!holds)
        throw std::runtime_error(breach);
}

void requireAlive(Dialogue& broker) {
    require(broker.isAlive(), "the liveness request was not answered with ':'");
}

void requireEnd(Dialogue& broker) {
    require(broker.end(timeToGo).has_value(), "it was still there after 2 s");
}

std::string missingDesign() {
    return evaluate("noSuchLibrary", "noSuchCell", "noSuchView");
}

std::string oneOfEachKind() {
    return integer(7) + integerParameter("integer", -2147483647) + floatParameter("float", -0.5F) +
           textParameter("text", "") + applicationParameter("application", "type", "") +
           doubleParameter("double", 1e300) + booleanParameter("boolean", true) +
           timeParameter("time", 0);
}

Evaluated answerTo(Dialogue& broker, const std::string& request) {
    const std::optional<Evaluated> answer = broker.evaluate(request);
    require(answer.has_value(), "the evaluation was not answered");
    return *answer;
}

void requireFailure(Dialogue& broker, const std::string& request) {
    const Evaluated answer = answerTo(broker, request);
    require(answer.status == 0, "the status was not 0");
    require(!answer.text.empty(), "the message was empty");
}

void answersLiveness(Dialogue& broker) {
    for (int time = 0; time < 200; ++time)
        requireAlive(broker);
}

void takesSetUpSilently(Dialogue& broker) {
    require(broker.send(setWorkingDirectory(platform::temporaryDirectory())) &&
                broker.send(setLibraryDefinitions("no such file")),
            "the requests were not read");
    requireAlive(broker);
    requireAlive(broker);
}

void deniesUnknownTypes(Dialogue& broker) {
    require(broker.canEvaluate("noSuchPcell") == false, "the answer was not 0");
    requireAlive(broker);
}

void failsWithAMessage(Dialogue& broker) {
    requireFailure(broker, missingDesign() + integer(0));
}

void goesOnAfterAFailure(Dialogue& broker) {
    for (int time = 0; time < 3; ++time) {
        requireFailure(broker, missingDesign() + integer(0));
        requireAlive(broker);
    }
}

void readsParametersOfEveryKind(Dialogue& broker) {
    requireFailure(broker, missingDesign() + oneOfEachKind());
    requireAlive(broker);
}

void takesANegativeNumberForNone(Dialogue& broker) {
    requireFailure(broker, missingDesign() + integer(-1));
    requireAlive(broker);
}

void readsByteByByte(Dialogue& broker) {
    const std::string request = missingDesign() + oneOfEachKind();
    for (std::size_t place = 0; place + 1 < request.size(); ++place)
        require(broker.send(request.substr(place, 1)), "a byte was not read");
    requireFailure(broker, request.substr(request.size() - 1));
    requireAlive(broker);
}

void readsLongTexts(Dialogue& broker) {
    const std::string longText(std::size_t{1} << 20, 'x');
    requireFailure(broker, missingDesign() + integer(1) + textParameter("text", longText));
    requireAlive(broker);
}

void goesWithItsHost(Dialogue& broker) {
    requireAlive(broker);
    broker.leave();
    requireEnd(broker);
}

void goesWithItsHostInsideOfARequest(Dialogue& broker) {
    requireAlive(broker);
    require(broker.send(missingDesign()), "the request was not read");
    broker.leave();
    requireEnd(broker);
}

void requireNoAnswer(Dialogue& broker, const std::string& request) {
    requireAlive(broker);
    broker.send(request);
    require(!broker.readByte(), "it was answered");
    requireEnd(broker);
}

void endsAtAnUnknownCommand(Dialogue& broker) {
    requireNoAnswer(broker, "\x7f");
}

void endsAtAnUnknownKind(Dialogue& broker) {
    requireNoAnswer(broker, missingDesign() + integer(1) + text("name") + '\7');
}

/// The rules that need a pcell which the broker can evaluate.
class PcellRules {
public:
    explicit PcellRules(const KnownPcell& known) : pcell(known) {}

    void takesTheType(Dialogue& broker) const {
        setUp(broker);
        require(broker.canEvaluate(pcell.type) == true, "the answer was 0");
    }

    void answersWithAFile(Dialogue& broker) const {
        setUp(broker);
        const std::string path = result(broker);
        require(platform::fileSize(path) > 0, "the file of the result was empty");
        platform::removeFile(path);
        requireAlive(broker);
    }

    void makesEveryResultAnew(Dialogue& broker) const {
        setUp(broker);
        const std::string first = result(broker);
        platform::removeFile(first);
        require(result(broker) != first, "two results had one name");
    }

    void keepsResultsUntilTheyAreRead(Dialogue& broker) const {
        setUp(broker);
        const std::string path = result(broker);
        requireAlive(broker);
        require(platform::isFile(path), "the file of the result was gone");
    }

    void leavesNothing(Dialogue& broker) const {
        setUp(broker);
        const std::string path = result(broker);
        broker.leave();
        requireEnd(broker);
        require(!platform::exists(path), "the file of the result was still there");
    }

private:
    void setUp(Dialogue& broker) const {
        require(broker.send(setWorkingDirectory(pcell.workingDirectory) +
                            setLibraryDefinitions(pcell.definitions)),
                "the set-up was not read");
        requireAlive(broker);
    }

    std::string result(Dialogue& broker) const {
        const Evaluated answer =
            answerTo(broker, evaluate(pcell.library, pcell.cell, pcell.view) + integer(0));
        if (answer.status == 0)
            throw std::runtime_error("the evaluation failed: " + answer.text);
        require(platform::isFile(answer.text), "there was no file of the result");
        return answer.text;
    }

    KnownPcell pcell;
};

using Rule = std::function<void(Dialogue&)>;

Verdict hold(const Subject& subject, const char* rule, const Rule& check) {
    try {
        Dialogue broker(subject.broker, {}, subject.longestAnswer);
        check(broker);
        return {rule, {}};
    } catch (const std::exception& error) {
        return {rule, error.what()};
    }
}

const std::vector<std::pair<const char*, Rule>>& generalRules() {
    static const std::vector<std::pair<const char*, Rule>> rules = {
        {"answers liveness requests with ':'", answersLiveness},
        {"takes set-up requests without an answer", takesSetUpSilently},
        {"answers 0 for a pcell type that nobody knows", deniesUnknownTypes},
        {"fails an evaluation with status 0 and a message", failsWithAMessage},
        {"goes on after an evaluation that failed", goesOnAfterAFailure},
        {"reads parameters of every kind", readsParametersOfEveryKind},
        {"takes a negative number of parameters for none", takesANegativeNumberForNone},
        {"reads requests in pieces of one byte", readsByteByByte},
        {"reads texts of a megabyte", readsLongTexts},
        {"is gone 2 s after its host", goesWithItsHost},
        {"is gone 2 s after a host that left inside of a request", goesWithItsHostInsideOfARequest},
        {"ends at a command that is none", endsAtAnUnknownCommand},
        {"ends at a parameter kind that is none", endsAtAnUnknownKind},
    };
    return rules;
}

} // namespace

std::vector<Verdict> check(const Subject& subject) {
    std::vector<Verdict> verdicts;
    for (const auto& [rule, holds] : generalRules())
        verdicts.push_back(hold(subject, rule, holds));
    if (!subject.pcell)
        return verdicts;
    const PcellRules rules(*subject.pcell);
    const auto add = [&](const char* rule, void (PcellRules::*holds)(Dialogue&) const) {
        verdicts.push_back(hold(subject, rule, [&](Dialogue& broker) { (rules.*holds)(broker); }));
    };
    add("takes the pcell type", &PcellRules::takesTheType);
    add("answers an evaluation with a file", &PcellRules::answersWithAFile);
    add("makes every result anew", &PcellRules::makesEveryResultAnew);
    add("keeps a result until it is read", &PcellRules::keepsResultsUntilTheyAreRead);
    add("leaves no result behind", &PcellRules::leavesNothing);
    return verdicts;
}

} // namespace conformance
