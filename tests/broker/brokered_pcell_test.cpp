#include "broker/brokered_pcell.h"

#include <functional>
#include <set>
#include <sstream>

#include "base/src/map_window.h"
#include "broker/wire.h"
#include "design_fixture.h"

namespace pcellBrokerClient::test {

namespace {

using testing::ElementsAre;

using Evaluator = oaCommon::SPtr<BrokeredPcell>;

const std::string noEvaluator =
    "no suitable OpenAccess plugin available for evaluating Pcell type 'typeA'";

class BrokeredPcellTest : public DesignTest {
protected:
    BrokeredPcellTest() {
        set("OA_PLUGIN_PATH", TEST_PLUG_INS);
        tell("STARTS", path("starts"));
        brokers->config.probeExe = program("probe_exits");
        useProgram("broker_answers");
    }

    void useProgram(const std::string& programName) {
        for (auto& [key, connection] : brokers->connections) {
            connection.exePath = program(programName);
        }
    }

    void useAnswerOfProbe(std::int32_t answer) { brokers->config.probedOaApiVersion = answer; }

    Evaluator evaluator(const BrokeredType& type = {"typeA", false, false}) {
        return new BrokeredPcell(type, brokers);
    }

    /// What is told to the observers of errors when a design of that cell is evaluated.
    std::vector<std::string> reportsOf(const Evaluator& pcell, const std::string& cell = "cell") {
        pcell->onEval(&design(cell), nullptr);
        return errors.take();
    }

    /// What goes to the log when the evaluator chooses.
    std::string logOf(const Evaluator& pcell) {
        testing::internal::CaptureStderr();
        pcell->calcDiskSize(nullptr);
        return withoutCarriageReturns(testing::internal::GetCapturedStderr());
    }

    std::string logOfEvaluation(const Evaluator& pcell) {
        testing::internal::CaptureStderr();
        pcell->onEval(&design("cell"), nullptr);
        return withoutCarriageReturns(testing::internal::GetCapturedStderr());
    }

    /// The versions of the brokers that were started, in order.
    std::string versionsStarted() {
        std::string versions;
        const std::string notes = platform::exists(path("starts")) ? textOf("starts") : "";
        for (std::size_t at = notes.find("pcellBroker"); at != std::string::npos;
             at = notes.find("pcellBroker", at + 1)) {
            versions += notes[at + 11];
        }
        return versions;
    }

    std::string logOfNone(const std::string& tried) {
        return "pcellBrokerClient: could not find a working evaluator for brokered pcell type "
               "'typeA': OA APIs tried: " +
               tried + "\n";
    }

    static std::string withoutCarriageReturns(std::string text) {
        std::erase(text, '\r');
        return text;
    }

    std::shared_ptr<Brokers> brokers = std::make_shared<Brokers>();
    Errors errors;
};

/// The bytes that definition data is read from and written to.
struct Data {
    std::string bytes = "old data";
    oa::oaUInt4 loc = 1;
    oa::oaMapFileWindow window = oa::impl::MapWindowAccess::windowOver(
        reinterpret_cast<oa::oaByte*>(bytes.data()), bytes.size());
};

/// A broker that is alive and then neither answers nor ends: reading throws no exception of any
/// kind that is known.
class Throwing : public AnswerStream {
protected:
    int_type uflow() override {
        if (isAlive_) {
            isAlive_ = false;
            return ':';
        }
        throw 1;
    }
    int_type underflow() override { return traits_type::eof(); }

private:
    bool isAlive_ = true;
};

/// A broker that is there whenever it is asked.
class Alive : public AnswerStream {
protected:
    int_type uflow() override { return ':'; }
    int_type underflow() override { return traits_type::eof(); }
};

/// Takes the request for a design with a parameter "w" up to the kind of that, and there does what
/// the value of a parameter of an unknown kind does: a parameter of this database is never of one.
class UnknownKind : public std::streambuf {
public:
    std::string bytes;

protected:
    int_type overflow(int_type c) override {
        using namespace std::string_literals;
        if (bytes.ends_with("\1\0\0\0w\0\0"s)) {
            writeParamValue(*this, 7, oa::oaParam("w", 1));
        }
        bytes += traits_type::to_char_type(c);
        return c;
    }
};

} // namespace

TEST_F(BrokeredPcellTest, AParameterOfAnUnknownKindBreaksTheConnection) {
    BrokerConnection& connection = brokers->connections.at({6, false});
    auto toBroker = std::make_unique<UnknownKind>();
    const std::string& sent = toBroker->bytes;
    connection.fromBroker = std::make_unique<Alive>();
    connection.toBroker = std::move(toBroker);
    connection.alive = true;
    useAnswerOfProbe(0);
    const Evaluator pcell = evaluator();
    const oa::oaParam param("w", 1);
    oa::oaDesign& master = masterWith(oa::oaParamArray(&param, 1), "cell");
    pcell->onEval(&master, nullptr);
    EXPECT_THAT(errors.take(),
                ElementsAre("2 cell: pcellBrokerCommon::serializeOaParamArray: unsupported "
                            "parameter type 7"));
    const std::string sentBefore = sent;
    pcell->onEval(&master, nullptr);
    EXPECT_THAT(errors.take(),
                ElementsAre("2 cell: broken connection to pcellBroker6 using internal OA libs"));
    EXPECT_EQ(sent, sentBefore);
}

TEST_F(BrokeredPcellTest, AnswersItsNameWithoutChoosing) {
    oa::oaString answer;
    evaluator()->getName(answer);
    EXPECT_EQ(answer, "typeA");
    EXPECT_EQ(brokers->config.probedOaApiVersion, -1);
}

TEST_F(BrokeredPcellTest, TriesSixBeforeFiveWithoutAPreference) {
    tell("TYPES", "none");
    for (const std::int32_t answer : {0, 6}) {
        useAnswerOfProbe(answer);
        EXPECT_EQ(logOf(evaluator({"typeA", true, false})),
                  logOfNone("6 (native), 6 (through broker using internal OA libs), 5 (through "
                            "broker using internal OA libs)"));
        EXPECT_EQ(logOf(evaluator({"typeA", false, false})),
                  logOfNone("6 (through broker using internal OA libs), 5 (through broker using "
                            "internal OA libs)"));
    }
    EXPECT_EQ(versionsStarted(), "65");
}

TEST_F(BrokeredPcellTest, TriesFiveFirstWhenTheProbePrefersIt) {
    tell("TYPES", "none");
    useAnswerOfProbe(5);
    EXPECT_EQ(logOf(evaluator({"typeA", true, true})),
              logOfNone("5 (through broker using external OA libs), 6 (native), 6 (through broker "
                        "using external OA libs)"));
    EXPECT_EQ(versionsStarted(), "56");
}

TEST_F(BrokeredPcellTest, TriesAForcedVersionAlone) {
    tell("TYPES", "none");
    brokers->config.forcedOaApiVersion = 5;
    EXPECT_EQ(logOf(evaluator({"typeA", true, false})),
              logOfNone("5 (through broker using internal OA libs)"));
    brokers->config.forcedOaApiVersion = 6;
    EXPECT_EQ(logOf(evaluator({"typeA", true, false})),
              logOfNone("6 (native), 6 (through broker using internal OA libs)"));
    EXPECT_EQ(brokers->config.probedOaApiVersion, -1);
}

TEST_F(BrokeredPcellTest, AsksTheProbeOnce) {
    tell("EXIT", "5");
    tell("STARTS", path("probes"));
    logOf(evaluator());
    logOf(evaluator());
    const std::string notes = textOf("probes");
    EXPECT_EQ(notes.find("pcbProbeOaVersion.exe"), notes.rfind("pcbProbeOaVersion.exe"));
    EXPECT_EQ(brokers->config.probedOaApiVersion, 5);
}

TEST_F(BrokeredPcellTest, LogsWhatEndsTheChoice) {
    const std::string start = "pcellBrokerClient: while initializing brokered pcell type 'typeA': ";
    tell("EXIT", "10");
    EXPECT_EQ(logOf(evaluator()), start + "while probing the OpenAccess API version: "
                                          "pcbProbeOaVersion exited with an error\n");
    EXPECT_EQ(versionsStarted(), "");

    useProgram("broker_wrong_liveness");
    EXPECT_EQ(logOf(evaluator()),
              start + "broken connection to pcellBroker6 using internal OA libs\n");
    EXPECT_FALSE(brokers->connections.at({5, false}).isStarted());

    tell("BYTES", "1");
    useProgram("broker_exits_after_bytes");
    EXPECT_EQ(logOf(evaluator({"typeA", false, true})), start + "std::streambuf::sbumpc failed\n");
}

TEST_F(BrokeredPcellTest, LogsThatABrokerCannotBeStarted) {
    useAnswerOfProbe(0);
    useProgram("absent");
    brokers->system = std::make_shared<FailingSystem>(0);
    const Evaluator pcell = evaluator();
    EXPECT_EQ(logOf(pcell), "pcellBrokerClient: while initializing brokered pcell type 'typeA': "
                            "while starting pcellBroker6 using internal OA libs: CreatePipe "
                            "failed: " +
                                withoutCarriageReturns(FailingSystem::errorText()) + "\n");
    EXPECT_THAT(reportsOf(pcell), ElementsAre("2 cell: " + noEvaluator));
    // Another type tries again.
    useProgram("broker_answers");
    EXPECT_EQ(logOf(evaluator()), "");
}

TEST_F(BrokeredPcellTest, LogsErrorsWithoutAMessage) {
    useAnswerOfProbe(0);
    BrokerConnection& connection = brokers->connections.at({6, false});
    connection.fromBroker = std::make_unique<Throwing>();
    connection.toBroker = std::make_unique<std::stringbuf>();
    connection.alive = true;
    EXPECT_EQ(logOf(evaluator()), "pcellBrokerClient: while initializing brokered pcell type "
                                  "'typeA': unknown error\n");
    EXPECT_FALSE(connection.alive);
}

TEST_F(BrokeredPcellTest, ChoosesOnce) {
    tell("TYPES", "none");
    useAnswerOfProbe(0);
    const Evaluator pcell = evaluator();
    EXPECT_NE(logOf(pcell), "");
    tell("TYPES", "typeA");
    EXPECT_EQ(logOf(pcell), "");
    EXPECT_THAT(reportsOf(pcell), ElementsAre("2 cell: " + noEvaluator));
    EXPECT_THAT(reportsOf(pcell), ElementsAre("2 cell: " + noEvaluator));
    oa::oaString answer;
    pcell->getName(answer);
    EXPECT_EQ(answer, "typeA");
}

TEST_F(BrokeredPcellTest, EveryOperationButTheNameChooses) {
    useAnswerOfProbe(0);
    brokers->system = std::make_shared<FailingSystem>(0);
    useProgram("broker_answers");
    oa::oaDesign& subject = design("cell");
    std::unique_ptr<oa::oaPcellDef> def;
    Data data;
    const std::vector<std::function<void(BrokeredPcell&)>> operations = {
        [&](BrokeredPcell& pcell) { def.reset(pcell.getPcellDef()); },
        [&](BrokeredPcell& pcell) { pcell.onBind(&subject, nullptr); },
        [&](BrokeredPcell& pcell) { pcell.onUnbind(&subject, nullptr); },
        [&](BrokeredPcell& pcell) { pcell.onEval(&subject, nullptr); },
        [&](BrokeredPcell& pcell) { pcell.onRead(&subject, data.window, data.loc, nullptr); },
        [&](BrokeredPcell& pcell) { pcell.onWrite(&subject, data.window, data.loc, nullptr); },
        [&](BrokeredPcell& pcell) { pcell.calcDiskSize(nullptr); }};
    for (const auto& operation : operations) {
        brokers->system = std::make_shared<FailingSystem>(0);
        const Evaluator pcell = evaluator();
        testing::internal::CaptureStderr();
        operation(*pcell);
        EXPECT_THAT(testing::internal::GetCapturedStderr(),
                    testing::HasSubstr("while initializing brokered pcell type 'typeA'"));
    }
}

TEST_F(BrokeredPcellTest, WithoutANativeOneItsDefinitionIsItsOwn) {
    useAnswerOfProbe(0);
    const Evaluator pcell = evaluator();
    oa::oaPcellDef* const def = pcell->getPcellDef();
    EXPECT_EQ(def->getIPcell(), pcell.getRef());
    EXPECT_EQ(pcell->calcDiskSize(def), 0U);
    pcell->onBind(&design("cell"), def);
    Data data;
    pcell->onRead(&design("cell"), data.window, data.loc, def);
    pcell->onWrite(&design("cell"), data.window, data.loc, def);
    EXPECT_EQ(data.bytes, "old data");
    EXPECT_EQ(data.loc, 1U);
    pcell->onUnbind(&design("cell"), def); // deletes it
    pcell->onUnbind(&design("cell"), nullptr);
    EXPECT_THAT(errors.take(), testing::IsEmpty());
}

TEST_F(BrokeredPcellTest, PutsTheBrokersResultIntoTheDesign) {
    useAnswerOfProbe(0);
    tell("RESULT", resultFile(70));
    const Evaluator pcell = evaluator();
    oa::oaDesign& subject = design("cell");
    pcell->onEval(&subject, nullptr);
    EXPECT_THAT(errors.take(), testing::IsEmpty());
    EXPECT_EQ(widthOf(subject), 70);
    EXPECT_EQ(versionsStarted(), "6");
}

TEST_F(BrokeredPcellTest, GoesOnToTheVersionThatTakesTheType) {
    useAnswerOfProbe(0);
    tell("FAILURE", "five");
    brokers->connections.at({5, false}).exePath = program("broker_status_0");
    tell("TYPES", "other");
    EXPECT_THAT(reportsOf(evaluator()), ElementsAre("2 cell: five"));
}

TEST_F(BrokeredPcellTest, ReportsWhatTheBrokerSays) {
    useAnswerOfProbe(0);
    useProgram("broker_status_0");
    tell("FAILURE", "eval failed: Error[1234]: bad width\r\n");
    EXPECT_THAT(reportsOf(evaluator()), ElementsAre("1234 cell: bad width"));
    tell("FAILURE", "crash");
    EXPECT_THAT(reportsOf(evaluator({"typeA", false, true})), ElementsAre("2 cell: crash"));
}

TEST_F(BrokeredPcellTest, LogsWhatCannotBeReported) {
    useAnswerOfProbe(0);
    useProgram("broker_status_0");
    tell("FAILURE", "eval failed: Error[2147483648]: bad width");
    const Evaluator pcell = evaluator();
    EXPECT_EQ(logOfEvaluation(pcell),
              "pcellBrokerClient: while reporting an error of brokered pcell type 'typeA': stoi "
              "argument out of range (eval failed: Error[2147483648]: bad width)\n");
    EXPECT_THAT(errors.take(), testing::IsEmpty());
    EXPECT_TRUE(brokers->connections.at({6, false}).alive);
}

TEST_F(BrokeredPcellTest, ReportsTheDatabasesOwnErrors) {
    useAnswerOfProbe(0);
    ovalis::test::writeText(path("result"), "no pcell file");
    tell("RESULT", path("result"));
    const Evaluator pcell = evaluator();
    const std::vector<std::string> reports = reportsOf(pcell);
    ASSERT_EQ(reports.size(), 1U);
    EXPECT_EQ(reports[0].substr(0, 8), "2 cell: ");
    EXPECT_GT(reports[0].size(), 8U);
}

TEST_F(BrokeredPcellTest, ReportsABrokenConnectionFromThenOn) {
    useAnswerOfProbe(0);
    useProgram("broker_exits_after_bytes");
    tell("FAILURE", "-");
    tell("BYTES", "7"); // alive, can evaluate, alive, "-", alive
    const Evaluator pcell = evaluator();
    const std::string broken = "2 cell: broken connection to pcellBroker6 using internal OA libs";
    EXPECT_THAT(reportsOf(pcell), ElementsAre("2 cell: -"));
    EXPECT_THAT(reportsOf(pcell), ElementsAre("2 cell: std::streambuf::sbumpc failed"));
    EXPECT_THAT(reportsOf(pcell), ElementsAre(broken));
    EXPECT_THAT(reportsOf(pcell), ElementsAre(broken));
    // The broken one is not started again for another type.
    EXPECT_EQ(logOf(evaluator({"typeB", false, false})),
              "pcellBrokerClient: while initializing brokered pcell type 'typeB': broken "
              "connection to pcellBroker6 using internal OA libs\n");
}

TEST_F(BrokeredPcellTest, TypesShareTheirBroker) {
    useAnswerOfProbe(0);
    const Evaluator first = evaluator({"typeA", false, false});
    const Evaluator second = evaluator({"typeB", false, false});
    std::set<std::string> brokersSeen;
    for (int i = 0; i < 50; ++i) {
        const std::string cell = "c" + std::to_string(i);
        const std::vector<std::string> reports = reportsOf(i % 2 == 0 ? first : second, cell);
        ASSERT_EQ(reports.size(), 1U);
        // The broker's number and the cell that it was asked for.
        const std::string text = reports[0].substr(("2 " + cell + ": ").size());
        brokersSeen.insert(text.substr(0, text.find(' ')));
        EXPECT_EQ(text.substr(text.find(' ') + 1), cell);
    }
    EXPECT_EQ(brokersSeen.size(), 1U);
    EXPECT_EQ(versionsStarted(), "6");
}

TEST_F(BrokeredPcellTest, ARunningBrokerIsAskedForItsLifeByEachTypeThatChoosesIt) {
    using namespace std::string_literals;
    useAnswerOfProbe(0);
    tell("REQUESTS", path("requests"));
    EXPECT_EQ(logOf(evaluator({"typeA", false, false})), "");
    EXPECT_EQ(logOf(evaluator({"typeB", false, false})), "");
    EXPECT_EQ(ovalis::test::readText(path("requests")), "\0\3typeA\0\0\3typeB\0"s);
    EXPECT_EQ(versionsStarted(), "6");
}

TEST_F(BrokeredPcellTest, FourBrokersRunSideBySide) {
    std::vector<Evaluator> evaluators;
    for (const std::uint32_t version : {5U, 6U}) {
        for (const bool external : {false, true}) {
            brokers->config.forcedOaApiVersion = version;
            evaluators.push_back(evaluator({"typeA", false, external}));
            logOf(evaluators.back());
        }
    }
    std::vector<std::string> brokersSeen(4);
    for (std::size_t i = 0; i < 40; ++i) {
        const std::string cell = "c" + std::to_string(i);
        const std::vector<std::string> reports = reportsOf(evaluators[i % 4], cell);
        ASSERT_EQ(reports.size(), 1U);
        const std::string text = reports[0].substr(("2 " + cell + ": ").size());
        const std::string broker = text.substr(0, text.find(' '));
        EXPECT_EQ(brokersSeen[i % 4].empty() ? broker : brokersSeen[i % 4], broker);
        brokersSeen[i % 4] = broker;
        EXPECT_EQ(text.substr(text.find(' ') + 1), cell);
    }
    EXPECT_EQ(std::set<std::string>(brokersSeen.begin(), brokersSeen.end()).size(), 4U);
}

TEST_F(BrokeredPcellTest, GivesEverythingToANativeOne) {
    useAnswerOfProbe(0);
    const Evaluator pcell = evaluator({"native_type", true, false});
    oa::oaDesign& subject = design("cell");
    oa::oaPcellDef* const def = pcell->getPcellDef();
    EXPECT_NE(def->getIPcell(), pcell.getRef());
    oa::oaString answer;
    pcell->getName(answer);
    EXPECT_EQ(answer, "native_type");
    EXPECT_EQ(pcell->calcDiskSize(def), 77U);
    pcell->onBind(&subject, def);
    pcell->onEval(&subject, def);
    Data data;
    pcell->onRead(&subject, data.window, data.loc, def);
    EXPECT_EQ(data.loc, 3U);
    pcell->onWrite(&subject, data.window, data.loc, def);
    EXPECT_EQ(data.loc, 6U);
    EXPECT_EQ(data.bytes, "oldnewta");
    pcell->onUnbind(&subject, def);
    EXPECT_THAT(errors.take(), ElementsAre("2 cell: bind", "2 cell: eval", "2 cell: read ld",
                                           "2 cell: write", "2 cell: unbind"));
    EXPECT_EQ(versionsStarted(), "");
}

TEST_F(BrokeredPcellTest, ReportsTheFailuresOfANativeOne) {
    useAnswerOfProbe(0);
    const Evaluator pcell = evaluator({"native_failing", true, false});
    const oa::oaDesignError error(oa::oacPcellSubMasterNotProduced);
    EXPECT_THAT(reportsOf(pcell, "database"),
                ElementsAre("2 database: " + std::string(error.getMsg())));
    EXPECT_THAT(reportsOf(pcell, "plug_in"), ElementsAre("2 plug_in: : Error[5]: as it is"));
    EXPECT_THAT(reportsOf(pcell, "standard"), ElementsAre("5 standard: taken apart"));
    EXPECT_THAT(reportsOf(pcell, "other"), ElementsAre("2 other: unknown error"));
}

} // namespace pcellBrokerClient::test
