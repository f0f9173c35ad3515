// The brokers with a database and a plug-in.

#include "broker_tests.h"

#include <map>

#include <oa/oaDesignDB.h>
#include <oa/oaDesignInterfaces.h>

#include "support/run_program.h"
#include "trial_library.h"

namespace broker::test {

namespace {

using namespace conformance;
using namespace oa;
using ovalis::test::EnvironmentOverride;

/// What a result holds: the right edges of its rectangles, and its properties.
struct Drawing {
    std::vector<oaCoord> edges;
    std::map<std::string, std::string> properties;

    friend bool operator==(const Drawing&, const Drawing&) = default;
};

void PrintTo(const Drawing& drawing, std::ostream* stream) {
    for (const oaCoord edge : drawing.edges)
        *stream << edge << ' ';
    for (const auto& [key, value] : drawing.properties)
        *stream << key << '=' << value << ' ';
}

/// A library with the super master "cell" of the pcell "trial", and a broker of one version.
class EvaluationTest : public BrokerTest, public ::testing::WithParamInterface<const char*> {
protected:
    EvaluationTest()
        : library(pathOf("")),
          seconds("PCELLBROKER_EVALUATION_SECONDS", "60"),
          megabytes("PCELLBROKER_EVALUATION_MEGABYTES", std::nullopt) {}

    static oaDesign* design(const std::string& cell) { return TrialLibrary::design(cell); }
    void writeDefinitions(const std::string& text) const { library.writeDefinitions(text); }
    static void saveMaster(const std::vector<oaParam>& further) {
        TrialLibrary::saveMaster(further);
    }

    /// A broker that knows the library.
    std::unique_ptr<Dialogue> start() {
        auto broker = std::make_unique<Dialogue>(program(brokerName()));
        EXPECT_TRUE(broker->isAlive());
        EXPECT_TRUE(broker->send(setUp()));
        return broker;
    }

    std::string setUp() const {
        return setWorkingDirectory(pathOf("")) + setLibraryDefinitions(pathOf("lib.defs"));
    }

    static std::string brokerName() { return std::string("pcellBroker") + GetParam(); }

    static Evaluated perform(Dialogue& broker, const std::string& action) {
        return broker
            .evaluate(evaluate("lib", "cell", "layout") + integer(1) +
                      textParameter("action", action))
            .value_or(Evaluated{99, "no answer"});
    }

    /// Reads a result as a host does, and deletes it.
    static Drawing drawingIn(const Evaluated& answer) {
        if (answer.status != 1) {
            ADD_FAILURE() << answer.text;
            return {};
        }
        oaDesign* const target = design("target");
        PcellFile file(answer.text.c_str());
        file.open("r");
        file.read(target);
        file.close();
        oaFile(answer.text.c_str()).destroy();
        Drawing drawing = drawingOf(*target);
        target->close();
        return drawing;
    }

    static Drawing drawingOf(const oaDesign& design) {
        Drawing drawing;
        oaIter<oaShape> shapes(design.getTopBlock()->getShapes());
        while (oaShape* shape = shapes.getNext()) {
            oaBox box;
            shape->getBBox(box);
            drawing.edges.push_back(box.right());
        }
        oaIter<oaProp> properties(design.getTopBlock()->getProps());
        while (oaProp* property = properties.getNext()) {
            oaString key;
            oaString value;
            property->getName(key);
            property->getValue(value);
            drawing.properties[std::string(key)] = std::string(value);
        }
        return drawing;
    }

    /// The text of a failed evaluation, after which the next one succeeds.
    std::string failure(Dialogue& broker, const std::string& action) {
        const Evaluated answer = perform(broker, action);
        EXPECT_EQ(answer.status, 0);
        EXPECT_EQ(drawingIn(perform(broker, "draw")), simple);
        return answer.text;
    }

    static std::string error(int code, const std::string& text) {
        return brokerName() + ": Error[" + std::to_string(code) + "]: " + text;
    }

    const Drawing simple = {{10}, {{"action", "draw"}}};

private:
    TrialLibrary library;
    EnvironmentOverride seconds;
    EnvironmentOverride megabytes;
};

INSTANTIATE_TEST_SUITE_P(Broker, EvaluationTest, ::testing::Values("5", "6"));

TEST_P(EvaluationTest, IsPossibleForTypesWithAPlugIn) {
    const auto broker = start();
    EXPECT_EQ(broker->canEvaluate("trial"), true);
    EXPECT_EQ(broker->canEvaluate("nobody"), false);
    EXPECT_EQ(broker->canEvaluate("answer"), false);
    EXPECT_EQ(broker->canEvaluate(""), false);
}

TEST_P(EvaluationTest, ResultsInADesignThatTheHostReads) {
    const auto broker = start();
    EXPECT_EQ(drawingIn(perform(*broker, "draw")), simple);
    EXPECT_EQ(drawingIn(perform(*broker, "draw")), simple);
}

TEST_P(EvaluationTest, GetsParametersOfEveryKind) {
    oaParam application("a", "app", 0, nullptr);
    oaParam boolean;
    boolean.setName("b");
    boolean.setBooleanVal(false);
    oaParam time;
    time.setName("t");
    time.setTimeVal(0);
    saveMaster({oaParam("i", oaInt4(0)), oaParam("f", oaFloat(0)), application,
                oaParam("d", oaDouble(0)), boolean, time});
    const auto broker = start();
    const std::optional<Evaluated> answer = broker->evaluate(
        evaluate("lib", "cell", "layout") + integer(7) + textParameter("action", "draw") +
        integerParameter("i", -7) + floatParameter("f", 0.5F) +
        applicationParameter("a", "app", "xyz") + doubleParameter("d", 2.25) +
        booleanParameter("b", true) + timeParameter("t", 1'700'000'000));
    EXPECT_EQ(drawingIn(answer.value()), (Drawing{{10, 20, 30, 40, 50, 60, 70},
                                                  {{"action", "draw"},
                                                   {"i", "-7"},
                                                   {"f", "0.500000"},
                                                   {"a", "app/xyz"},
                                                   {"d", "2.250000"},
                                                   {"b", "true"},
                                                   {"t", "1700000000"}}}));
}

TEST_P(EvaluationTest, SeesWhatWasSavedSinceTheOneBefore) {
    const auto broker = start();
    const std::string request = evaluate("lib", "cell", "layout") + integer(0);
    EXPECT_EQ(drawingIn(broker->evaluate(request).value()), simple);
    saveMaster({oaParam("more", oaInt4(3))});
    EXPECT_EQ(drawingIn(broker->evaluate(request).value()),
              (Drawing{{10, 20}, {{"action", "draw"}, {"more", "3"}}}));
}

TEST_P(EvaluationTest, SeesTheDefinitionsThatItWasToldLast) {
    writeDefinitions("# nothing\n");
    const auto broker = start();
    EXPECT_EQ(perform(*broker, "draw").status, 0);
    writeDefinitions("DEFINE lib lib\n");
    EXPECT_TRUE(broker->send(setUp()));
    EXPECT_EQ(drawingIn(perform(*broker, "draw")), simple);
    writeDefinitions("# nothing\n");
    EXPECT_TRUE(broker->send(setUp()));
    EXPECT_EQ(perform(*broker, "draw").status, 0);
}

TEST_P(EvaluationTest, TakesPathsFromTheWorkingDirectoryOfTheHost) {
    auto broker = std::make_unique<Dialogue>(program(brokerName()));
    EXPECT_TRUE(broker->send(setWorkingDirectory(pathOf("")) + setLibraryDefinitions("lib.defs")));
    EXPECT_EQ(drawingIn(perform(*broker, "draw")), simple);
}

TEST_P(EvaluationTest, SaysWhatTheDatabaseSays) {
    const auto broker = start();
    EXPECT_EQ(failure(*broker, "fail in the database"),
              error(oacPcellEvalError, std::string(oaDesignError(1201).getMsg())));
    EXPECT_EQ(failure(*broker, "fail in the plug-in"),
              error(oacPcellEvalError, "the plug-in failed"));
    EXPECT_EQ(failure(*broker, "fail as usual"),
              error(oacPcellEvalError, "the width is too small"));
    EXPECT_EQ(failure(*broker, "report"), error(1234, "bad width"));
    EXPECT_TRUE(failure(*broker, "fail strangely").starts_with(error(oacPcellEvalError, "")));
}

TEST_P(EvaluationTest, OfWhatIsNotThereFailsWithAMessage) {
    const auto broker = start();
    const auto textOf = [&](const std::string& lib, const std::string& cell) {
        const Evaluated answer =
            broker->evaluate(evaluate(lib, cell, "layout") + integer(0)).value();
        EXPECT_EQ(answer.status, 0);
        return answer.text;
    };
    EXPECT_EQ(textOf("lib", "nobody"), "there is no such design: lib/nobody/layout");
    EXPECT_NE(textOf("nobody", "cell").find(": Error["), std::string::npos);
    oaDesign* const plain = design("plain");
    plain->save();
    plain->close();
    EXPECT_NE(textOf("lib", "plain").find(": Error["), std::string::npos);
}

TEST_P(EvaluationTest, ThatDrawsNothingAndSaysNothingIsToldAsThat) {
    EXPECT_EQ(failure(*start(), "draw nothing"),
              "the evaluator made no block and told no error: lib/cell/layout");
}

TEST_P(EvaluationTest, SaysWhyTheSetUpFailed) {
    const auto broker = start();
    EXPECT_TRUE(broker->send(setLibraryDefinitions(pathOf("missing.defs"))));
    const Evaluated answer = perform(*broker, "draw");
    EXPECT_EQ(answer.status, 0);
    EXPECT_NE(answer.text.find("missing.defs"), std::string::npos) << answer.text;
}

TEST_P(EvaluationTest, SaysWhichPartsOfTheSetUpFailed) {
    const auto broker = start();
    EXPECT_TRUE(broker->send(setWorkingDirectory(pathOf("nowhere"))));
    EXPECT_EQ(drawingIn(perform(*broker, "draw")), simple);
    EXPECT_TRUE(broker->send(setWorkingDirectory(pathOf("nowhere")) +
                             setLibraryDefinitions(pathOf("missing.defs"))));
    const std::string both = perform(*broker, "draw").text;
    EXPECT_NE(both.find("nowhere"), std::string::npos) << both;
    EXPECT_NE(both.find("missing.defs"), std::string::npos) << both;
    EXPECT_TRUE(broker->send(setLibraryDefinitions(pathOf("lib.defs"))));
    const std::string first = perform(*broker, "fail as usual").text;
    EXPECT_TRUE(first.starts_with(error(oacPcellEvalError, "the width is too small\n"))) << first;
    EXPECT_NE(first.find("nowhere"), std::string::npos) << first;
    EXPECT_TRUE(broker->send(setUp()));
    EXPECT_EQ(failure(*broker, "fail as usual"),
              error(oacPcellEvalError, "the width is too small"));
}

TEST_P(EvaluationTest, MayTalkWithoutBeingTakenForAnAnswer) {
    const auto broker = start();
    EXPECT_EQ(drawingIn(perform(*broker, "say")), (Drawing{{10}, {{"action", "say"}}}));
    broker->leave();
    EXPECT_TRUE(broker->end(timeToGo));
    const std::string said = broker->said();
    EXPECT_NE(said.find("said to the output"), std::string::npos);
    EXPECT_NE(said.find("said to the errors"), std::string::npos);
}

TEST_P(EvaluationTest, ThatCrashesCostsItself) {
    const auto broker = start();
    const std::string text = failure(*broker, "crash");
    EXPECT_TRUE(text.starts_with(error(2, "the evaluating process failed: ended with "))) << text;
    EXPECT_NE(text.find("about to crash"), std::string::npos) << text;
}

TEST_P(EvaluationTest, ThatHangsIsEndedAtTheDeadline) {
    const EnvironmentOverride limit("PCELLBROKER_EVALUATION_SECONDS", "5");
    const auto broker = start();
    EXPECT_EQ(drawingIn(perform(*broker, "draw")), simple);
    EXPECT_EQ(failure(*broker, "hang"),
              error(2, "the evaluating process failed: no answer within 5 s"));
}

TEST_P(EvaluationTest, ThatAllocatesWithoutEndIsEndedAtTheBound) {
    const EnvironmentOverride limit("PCELLBROKER_EVALUATION_MEGABYTES", "600");
    const auto broker = start();
    EXPECT_NE(failure(*broker, "allocate").find("Error[2]"), std::string::npos);
}

TEST_P(EvaluationTest, KeepsTheRulesOfEveryBroker) {
    const ovalis::test::ProgramResult result = ovalis::test::runProgram(
        ovalis::test::builtProgram("pcellBrokerConformance"),
        {program(brokerName()), "--pcell", "trial", "lib", "cell", "layout", "--definitions",
         pathOf("lib.defs"), "--directory", pathOf("")});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.output.find("BROKEN"), std::string::npos) << result.output;
    EXPECT_NE(result.output.find("leaves no result behind"), std::string::npos) << result.output;
    EXPECT_EQ(leftovers(), 0u);
}

TEST_P(EvaluationTest, IsGivenUpWhenTheHostGoes) {
    const auto broker = start();
    EXPECT_EQ(perform(*broker, "draw").status, 1);
    EXPECT_EQ(leftovers(), 1u);
    EXPECT_TRUE(broker->send(evaluate("lib", "cell", "layout") + integer(1) +
                             textParameter("action", "hang")));
    broker->leave();
    EXPECT_TRUE(broker->end(timeToGo));
    EXPECT_EQ(leftovers(), 0u);
}

} // namespace

} // namespace broker::test
