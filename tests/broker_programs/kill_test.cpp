// Kills of worker, front and host at moments that nobody chose.

#include "broker_tests.h"

#include <random>
#include <vector>

#include "broker/requests.h"
#include "broker/start.h"
#include "platform/child_process.h"
#include "trial_library.h"

namespace broker::test {

namespace {

using namespace conformance;

// OVALIS_KILLS asks for more than an ordinary run of the tests has time for.
int kills() {
    return std::stoi(platform::environmentVariable("OVALIS_KILLS").value_or("8"));
}

const std::string hitWorker = "the evaluating process failed: ended with ";

/// A process that is killed at some moment while `work` goes on, at the latest when it is done.
class Kills : public BrokerTest {
protected:
    template <class Work>
    void killDuring(platform::ProcessId process, Work work) {
        const std::chrono::microseconds moment(random() % 9000);
        std::thread killer([=] {
            std::this_thread::sleep_for(moment);
            platform::killProcess(process);
        });
        work();
        killer.join();
    }

    /// What is still there of a broker when it should have gone.
    std::string remains(const std::vector<platform::ProcessId>& processes) {
        std::string remaining;
        holdsWithin(timeToGo, [&] {
            remaining.clear();
            for (const platform::ProcessId process : processes) {
                if (platform::isProcessAlive(process))
                    remaining += "process " + std::to_string(process) + "; ";
            }
            if (leftovers() != 0)
                remaining += "results; ";
            return remaining.empty();
        });
        return remaining;
    }

    std::mt19937 random{20240611};
};

/// What is killed: a broker without a database, or one that ships.
struct Target {
    const char* name;
    std::string saying; ///< what its errors start with
    std::string program;
    std::vector<std::string> arguments;
    std::string cell;      ///< whose evaluation is sound
    std::string work;      ///< its request
    std::string number;    ///< a request whose answer ends in the number of the worker
    unsigned microseconds; ///< within which a host that has just started comes to evaluate
};

void PrintTo(const Target& target, std::ostream* stream) {
    *stream << target.name;
}

std::string evaluationOf(const std::string& cell) {
    return evaluate("lib", cell, "layout") + integer(0);
}

std::string trialOf(const std::string& action) {
    return evaluate("lib", "cell", "layout") + integer(1) + textParameter("action", action);
}

const Target targets[] = {
    {"WithoutDatabase",
     "front",
     program("broker_front"),
     {program("fake_worker")},
     "work",
     evaluationOf("work"),
     evaluationOf("number"),
     9000},
    {"WithDatabase",
     "pcellBroker6",
     program("pcellBroker6"),
     {},
     "cell",
     trialOf("draw"),
     trialOf("number"),
     60000},
};

class KillTest : public Kills, public ::testing::WithParamInterface<Target> {
protected:
    KillTest() : library(pathOf("")) {}

    std::unique_ptr<Dialogue> start() {
        auto broker = std::make_unique<Dialogue>(GetParam().program, GetParam().arguments);
        EXPECT_TRUE(broker->isAlive());
        EXPECT_TRUE(broker->send(setWorkingDirectory(pathOf("")) +
                                 setLibraryDefinitions(library.definitions())));
        return broker;
    }

    static platform::ProcessId workerOf(Dialogue& broker) {
        const Evaluated answer =
            broker.evaluate(GetParam().number).value_or(Evaluated{99, "no answer"});
        const std::string digits = answer.text.substr(answer.text.rfind(' ') + 1);
        return static_cast<platform::ProcessId>(std::stoul(digits));
    }

    /// Kills a process while evaluations go on, until one of them is hit or they are done.
    std::optional<Evaluated> hit(Dialogue& broker, platform::ProcessId process) {
        std::optional<Evaluated> answer;
        killDuring(process, [&] {
            for (int evaluation = 0; evaluation < 8; ++evaluation) {
                answer = broker.evaluate(GetParam().work);
                if (!answer || answer->status == 0)
                    break;
            }
        });
        return answer;
    }

    TrialLibrary library;
};

INSTANTIATE_TEST_SUITE_P(Broker, KillTest, ::testing::ValuesIn(targets),
                         [](const auto& target) { return target.param.name; });

TEST_P(KillTest, OfAWorkerCostsAtMostTheEvaluationThatItHits) {
    const auto broker = start();
    for (int kill = 0; kill < kills(); ++kill) {
        std::optional<Evaluated> answer = hit(*broker, workerOf(*broker));
        // A kill that came behind the last of them hits the next.
        if (answer && answer->status == 1)
            answer = broker->evaluate(GetParam().work);
        ASSERT_TRUE(answer);
        if (answer->status == 0) {
            EXPECT_TRUE(answer->text.starts_with(GetParam().saying + ": Error[2]: " + hitWorker))
                << answer->text;
        }
        EXPECT_TRUE(broker->isAlive());
    }
    EXPECT_EQ(leftovers(), 1u);
}

TEST_P(KillTest, OfAFrontLeavesNothing) {
    for (int kill = 0; kill < kills(); ++kill) {
        const auto broker = start();
        const platform::ProcessId front = ownerOfResults();
        const platform::ProcessId worker = workerOf(*broker);
        // A result, or no answer and none from then on.
        const std::optional<Evaluated> answer = hit(*broker, front);
        EXPECT_TRUE(!answer || answer->status == 1) << answer->text;
        EXPECT_FALSE(broker->isAlive());
        EXPECT_EQ(remains({front, worker}), "") << kill;
    }
}

TEST_P(KillTest, OfAHostLeavesNothing) {
    std::vector<std::string> arguments = GetParam().arguments;
    arguments.insert(arguments.begin(), GetParam().program);
    arguments.insert(arguments.end(), {GetParam().cell, "layout"});
    const ovalis::test::EnvironmentOverride definitions("TEST_BROKER_DEFINITIONS",
                                                        library.definitions());
    for (int kill = 0; kill < kills(); ++kill) {
        platform::ChildProcess host(program("broker_host"), arguments,
                                    {pathOf("output"), pathOf("errors")});
        ASSERT_TRUE(holdsWithin(30s, [&] { return leftovers() == 1; }));
        const platform::ProcessId front = ownerOfResults();
        std::this_thread::sleep_for(std::chrono::microseconds(random() % GetParam().microseconds));
        host.kill();
        host.wait();
        EXPECT_EQ(remains({front}), "") << kill;
    }
}

/// The application with its own client, which evaluates the master itself.
class KillsOfAClientsBroker : public Kills {
protected:
    KillsOfAClientsBroker() : library(pathOf("")) {
        oa::oaLibDefList::openLibs(library.definitions().c_str());
    }
    ~KillsOfAClientsBroker() override { oa::oaLibDefList::getTopList()->destroy(); }

    pcellBrokerClient::BrokerConnection started() {
        pcellBrokerClient::BrokerConnection connection;
        connection.key = {6, false};
        connection.exePath = program("pcellBroker6");
        pcellBrokerClient::startBroker(connection, system);
        return connection;
    }

    /// What an evaluation ends with; "drawn" when it succeeds.
    std::string outcomeOf(pcellBrokerClient::BrokerConnection& connection,
                          const std::string& action = "draw") {
        oa::oaDesign* const design = TrialLibrary::design("asked " + action);
        const oa::oaParam param("action", oa::oaString(action.c_str()));
        std::string outcome = "drawn";
        try {
            design->defineSuperMaster(oa::oaPcellLink::getPcellDef("trial"),
                                      oa::oaParamArray(&param, 1));
            design->save();
            if (const auto refusal =
                    pcellBrokerClient::evaluateThroughBroker(connection, *design, system))
                outcome = *refusal;
            else
                EXPECT_NE(design->getTopBlock(), nullptr);
        } catch (const std::exception& error) {
            outcome = error.what();
        } catch (const oa::oaException& error) {
            outcome = "database: " + std::string(error.getMsg());
        }
        design->close();
        return outcome;
    }

    /// The outcomes of the evaluations during which a process is killed: the last may be another
    /// than "drawn".
    std::string hit(pcellBrokerClient::BrokerConnection& connection, platform::ProcessId process) {
        std::string outcome;
        killDuring(process, [&] {
            for (int evaluation = 0; evaluation < 8; ++evaluation) {
                outcome = outcomeOf(connection);
                if (outcome != "drawn")
                    break;
            }
        });
        return outcome;
    }

    static platform::ProcessId numberAtTheEndOf(const std::string& text) {
        return static_cast<platform::ProcessId>(std::stoul(text.substr(text.rfind(' ') + 1)));
    }

    TrialLibrary library;
    pcellBrokerClient::ProcessSystem system;
};

TEST_F(KillsOfAClientsBroker, OfItsWorkerCostsAtMostTheEvaluationThatItHits) {
    auto connection = started();
    for (int kill = 0; kill < kills(); ++kill) {
        std::string outcome = hit(connection, numberAtTheEndOf(outcomeOf(connection, "number")));
        if (outcome == "drawn")
            outcome = outcomeOf(connection);
        EXPECT_TRUE(outcome == "drawn" ||
                    outcome.starts_with("pcellBroker6: Error[2]: " + hitWorker))
            << outcome;
        EXPECT_EQ(outcomeOf(connection), "drawn");
    }
}

TEST_F(KillsOfAClientsBroker, OfItsFrontAreABrokenConnectionAndNoMore) {
    const std::string broken = "broken connection to pcellBroker6 using internal OA libs";
    for (int kill = 0; kill < kills(); ++kill) {
        auto connection = started();
        EXPECT_EQ(outcomeOf(connection), "drawn");
        const std::string outcome = hit(connection, ownerOfResults());
        EXPECT_TRUE(outcome == "drawn" || outcome == broken ||
                    outcome == "std::streambuf::pubsync failed" ||
                    outcome == "std::streambuf::sbumpc failed" ||
                    // The results went with their broker before this one was read.
                    outcome.starts_with("database: "))
            << outcome;
        EXPECT_EQ(outcomeOf(connection), broken);
        EXPECT_EQ(remains({}), "") << kill;
    }
}

} // namespace

} // namespace broker::test
