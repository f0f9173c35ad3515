// The front of a broker over a worker that misbehaves on demand.

#include "broker_tests.h"

#include "platform/child_process.h"
#include "platform/process.h"
#include "support/text_file.h"
#include "tools/broker/request_queue.h"
#include "tools/broker/result_directory.h"

namespace broker::test {

namespace {

using namespace conformance;
using ovalis::test::EnvironmentOverride;

class FrontTest : public BrokerTest {
protected:
    FrontTest()
        : seconds("PCELLBROKER_EVALUATION_SECONDS", "30"),
          megabytes("PCELLBROKER_EVALUATION_MEGABYTES", std::nullopt) {}

    std::unique_ptr<Dialogue> start(const std::string& worker = program("fake_worker")) {
        return std::make_unique<Dialogue>(program("broker_front"),
                                          std::vector<std::string>{worker});
    }

    static std::string request(const std::string& cell, const std::string& view = "layout") {
        return evaluate("lib", cell, view) + integer(0);
    }

    static Evaluated answerTo(Dialogue& broker, const std::string& cell,
                              const std::string& view = "layout") {
        return broker.evaluate(request(cell, view)).value_or(Evaluated{99, "no answer"});
    }

    /// The text of the failure of one evaluation, after which the next one works.
    std::string failure(Dialogue& broker, const std::string& cell) {
        const Evaluated answer = answerTo(broker, cell);
        EXPECT_EQ(answer.status, 0);
        EXPECT_TRUE(broker.isAlive());
        const Evaluated next = answerTo(broker, "draw");
        EXPECT_EQ(next.status, 1) << next.text;
        EXPECT_TRUE(platform::isFile(next.text)) << next.text;
        return answer.text;
    }

private:
    EnvironmentOverride seconds;
    EnvironmentOverride megabytes;
};

const std::string failed = "front: Error[2]: the evaluating process failed: ";

TEST_F(FrontTest, AnswersLivenessWithoutAWorker) {
    const auto broker = start("no such program");
    for (int time = 0; time < 100; ++time)
        ASSERT_TRUE(broker->isAlive());
}

TEST_F(FrontTest, AnswersWhetherATypeIsKnown) {
    const auto broker = start();
    EXPECT_EQ(broker->canEvaluate("known"), true);
    EXPECT_EQ(broker->canEvaluate("unknown"), false);
    EXPECT_EQ(broker->canEvaluate("crash"), false);
    EXPECT_EQ(broker->canEvaluate("known"), true);
}

TEST_F(FrontTest, AnswersWithAFreshFileThatOnlyItsHostKnows) {
    const auto broker = start();
    const Evaluated first = answerTo(*broker, "draw");
    EXPECT_EQ(first.status, 1);
    EXPECT_EQ(platform::readFile(first.text), "drawn");
    const Evaluated second = answerTo(*broker, "draw");
    EXPECT_NE(first.text, second.text);
    EXPECT_GE(platform::fileName(second.text).size(), 32u);
}

TEST_F(FrontTest, DropsAResultThatWasNotTakenUntilTheNextEvaluation) {
    const auto broker = start();
    const Evaluated first = answerTo(*broker, "draw");
    EXPECT_TRUE(broker->isAlive());
    EXPECT_TRUE(platform::isFile(first.text));
    EXPECT_EQ(answerTo(*broker, "refuse", "why").text, "why");
    EXPECT_FALSE(platform::isFile(first.text));
}

TEST_F(FrontTest, PassesTheMessageOfAnEvaluationOn) {
    const auto broker = start();
    EXPECT_EQ(answerTo(*broker, "refuse", "b: Error[1234]: bad width"),
              (Evaluated{0, "b: Error[1234]: bad width"}));
}

TEST_F(FrontTest, SetsUpItsWorkerBeforeTheNextQuestion) {
    const auto broker = start();
    EXPECT_TRUE(broker->send(setWorkingDirectory("/one") + setLibraryDefinitions("/defs")));
    EXPECT_TRUE(broker->isAlive());
    EXPECT_EQ(answerTo(*broker, "set-up").text, "/one;/defs;");
    EXPECT_EQ(answerTo(*broker, "set-up").text, "/one;/defs;");
    EXPECT_TRUE(broker->send(setWorkingDirectory("/two")));
    EXPECT_EQ(answerTo(*broker, "set-up").text, "/one;/defs;/two;/defs;");
}

TEST_F(FrontTest, SetsUpANewWorkerLikeTheOneBefore) {
    const auto broker = start();
    EXPECT_TRUE(broker->send(setWorkingDirectory("/one") + setLibraryDefinitions("/defs")));
    EXPECT_EQ(answerTo(*broker, "crash").status, 0);
    EXPECT_EQ(answerTo(*broker, "set-up").text, "/one;/defs;");
}

TEST_F(FrontTest, LosesOneEvaluationToAWorkerThatCrashes) {
    const auto broker = start();
    const std::string text = failure(*broker, "crash");
    EXPECT_TRUE(text.starts_with(failed + "ended with ")) << text;
    EXPECT_TRUE(text.ends_with("; it said last:\nabout to crash")) << text;
    const std::string other = failure(*broker, "fault");
    EXPECT_TRUE(other.starts_with(failed + "ended with ")) << other;
}

TEST_F(FrontTest, TellsTheExitCodeAndTheLastLinesOfAWorkerThatQuits) {
    const auto broker = start();
    EXPECT_EQ(failure(*broker, "quit"),
              failed + "ended with exit code 7; it said last:\nline 13\nline 14\nline 15\n"
                       "line 16\nline 17\nline 18\nline 19\nline 20");
}

TEST_F(FrontTest, EndsAWorkerThatTakesTooLong) {
    const EnvironmentOverride limit("PCELLBROKER_EVALUATION_SECONDS", "0.5");
    const auto broker = start();
    EXPECT_EQ(answerTo(*broker, "hang").text, failed + "no answer within 500 ms");
    EXPECT_EQ(answerTo(*broker, "spin").text, failed + "no answer within 500 ms");
    EXPECT_EQ(broker->canEvaluate("hang"), false);
    EXPECT_TRUE(broker->isAlive());
}

TEST_F(FrontTest, EndsAWorkerThatTakesTooMuchMemory) {
    const EnvironmentOverride limit("PCELLBROKER_EVALUATION_MEGABYTES", "256");
    const auto broker = start();
    const Evaluated answer = answerTo(*broker, "allocate");
    EXPECT_EQ(answer.status, 0);
    EXPECT_TRUE(answer.text.starts_with(failed)) << answer.text;
    EXPECT_EQ(answerTo(*broker, "draw").status, 1);
}

TEST_F(FrontTest, EndsAWorkerThatAnswersNonsense) {
    const auto broker = start();
    EXPECT_TRUE(failure(*broker, "babble").starts_with(failed + "the answer to "));
    EXPECT_TRUE(failure(*broker, "answer without end").starts_with(failed + "the answer to "));
}

TEST_F(FrontTest, EndsAWorkerThatTellsASuccessWithoutAResult) {
    const auto broker = start();
    const std::string worker = answerTo(*broker, "number").text;
    EXPECT_EQ(failure(*broker, "draw nothing"),
              "front: Error[2]: the evaluating process wrote no result");
    EXPECT_FALSE(platform::isProcessAlive(static_cast<platform::ProcessId>(std::stoul(worker))));
    EXPECT_NE(answerTo(*broker, "number").text, worker);
}

TEST_F(FrontTest, SaysWhyItHasNoWorker) {
    const auto broker = start("no such program");
    const Evaluated answer = answerTo(*broker, "draw");
    EXPECT_EQ(answer.status, 0);
    EXPECT_TRUE(answer.text.starts_with("front: Error[2]: cannot start program (")) << answer.text;
    EXPECT_EQ(broker->canEvaluate("known"), false);
    EXPECT_TRUE(broker->isAlive());
}

TEST_F(FrontTest, PassesTheTalkOfItsWorkerOn) {
    const auto broker = start();
    failure(*broker, "crash");
    broker->leave();
    EXPECT_TRUE(broker->end(timeToGo));
    EXPECT_NE(broker->said().find("about to crash"), std::string::npos);
}

TEST_F(FrontTest, EndsTheConnectionAtAMalformedRequest) {
    const auto broker = start();
    EXPECT_EQ(answerTo(*broker, "draw").status, 1);
    EXPECT_TRUE(broker->send("\x7f"));
    EXPECT_EQ(broker->readByte(), std::nullopt);
    EXPECT_EQ(broker->end(timeToGo), (platform::ProcessEnd{false, 1}));
    EXPECT_TRUE(broker->said().starts_with("front: malformed request: command 127"));
    EXPECT_EQ(leftovers(), 0u);
}

TEST_F(FrontTest, EndsWhatAWorkerHasStarted) {
    const auto broker = start();
    const std::string file = pathOf("number");
    EXPECT_EQ(answerTo(*broker, "start another", file).text, failed + "ended with exit code 9");
    const platform::ProcessId process = numberIn(file);
    EXPECT_TRUE(holdsWithin(timeToGo, [&] { return !platform::isProcessAlive(process); }));
}

TEST_F(FrontTest, GoesWithItsHostAndLeavesNothing) {
    for (const char* cell : {"draw", "hang", "spin"}) {
        const auto broker = start();
        EXPECT_EQ(answerTo(*broker, "draw").status, 1);
        EXPECT_EQ(leftovers(), 1u);
        EXPECT_TRUE(broker->send(request(cell)));
        broker->leave();
        EXPECT_EQ(broker->end(timeToGo), (platform::ProcessEnd{false, 0})) << cell;
        EXPECT_EQ(leftovers(), 0u) << cell;
    }
}

TEST_F(FrontTest, GoesWithAHostThatIsAheadOfItsAnswers) {
    const auto broker = start();
    std::string ahead = request("hang");
    for (int i = 0; i < 1000; ++i)
        ahead += setWorkingDirectory("/one");
    EXPECT_TRUE(broker->send(ahead));
    broker->leave();
    EXPECT_EQ(broker->end(timeToGo), (platform::ProcessEnd{false, 0}));
    EXPECT_EQ(leftovers(), 0u);
}

TEST_F(FrontTest, EndsTheConnectionWhenTooManyRequestsWait) {
    const auto broker = start();
    // One request is being served, and one is too many.
    broker->send(request("hang") + std::string(RequestQueue::mostRequests + 2, '\0'));
    EXPECT_EQ(broker->end(timeToGo), (platform::ProcessEnd{false, 1}));
    EXPECT_EQ(broker->said(),
              ovalis::test::asTextFile("front: too many requests wait for their answers\n"));
    EXPECT_EQ(leftovers(), 0u);
}

class KilledHostTest : public FrontTest, public ::testing::WithParamInterface<const char*> {};

TEST_P(KilledHostTest, TakesTheBrokerWithIt) {
    const std::string file = pathOf("number");
    platform::ChildProcess host(program("broker_host"),
                                {program("broker_front"), program("fake_worker"), GetParam(), file},
                                {pathOf("output"), pathOf("errors")});
    ASSERT_TRUE(holdsWithin(30s, [&] { return platform::isFile(file); }));
    const platform::ProcessId front = ownerOfResults();
    const platform::ProcessId worker = numberIn(file);
    EXPECT_TRUE(platform::isProcessAlive(front));
    EXPECT_TRUE(platform::isProcessAlive(worker));
    host.kill();
    EXPECT_TRUE(holdsWithin(timeToGo, [&] {
        return leftovers() == 0 && !platform::isProcessAlive(front) &&
               !platform::isProcessAlive(worker);
    }));
}

INSTANTIATE_TEST_SUITE_P(WhileEvaluating, KilledHostTest,
                         ::testing::Values("hang", "spin", "allocate"));

TEST_F(FrontTest, GoesWithItsHostAlsoWhenAnotherProcessHoldsThePipe) {
    const std::string file = pathOf("number");
    platform::ChildProcess host(program("leaking_host"),
                                {program("broker_front"), program("fake_worker"), file},
                                {pathOf("output"), pathOf("errors")});
    ASSERT_TRUE(holdsWithin(30s, [&] { return platform::isFile(file) && leftovers() == 1; }));
    const platform::ProcessId front = ownerOfResults();
    std::this_thread::sleep_for(100ms); // for the front to know its parent
    host.kill();
    EXPECT_TRUE(holdsWithin(timeToGo,
                            [&] { return leftovers() == 0 && !platform::isProcessAlive(front); }));
    EXPECT_TRUE(platform::isProcessAlive(numberIn(file)));
    platform::killProcess(numberIn(file));
}

TEST_F(FrontTest, ThatIsKilledTakesItsWorkerAndTheResultsWithIt) {
    for (const char* cell : {"hang", "spin"}) {
        const auto broker = start();
        const std::string file = pathOf(cell);
        EXPECT_EQ(answerTo(*broker, "draw").status, 1);
        EXPECT_TRUE(broker->send(request(cell, file)));
        ASSERT_TRUE(holdsWithin(30s, [&] { return platform::isFile(file); }));
        platform::killProcess(ownerOfResults());
        EXPECT_TRUE(broker->end(timeToGo));
        EXPECT_TRUE(holdsWithin(timeToGo, [&] {
            return leftovers() == 0 && !platform::isProcessAlive(numberIn(file));
        })) << cell;
    }
}

TEST_F(FrontTest, RemovesWhatAKilledBrokerLeftBehind) {
    // The name of a directory of a process of this computer that is not there any more.
    std::string path;
    {
        const ResultDirectory directory;
        path = directory.path();
    }
    const std::string own = std::to_string(platform::currentProcessId());
    path.replace(path.rfind("-" + own + "-"), own.size() + 2, "-4000000000-");
    platform::createDirectory(path);
    platform::File(path + "/result", platform::OpenMode::write).close();
    const auto broker = start();
    EXPECT_TRUE(broker->isAlive());
    EXPECT_EQ(leftovers(), 1u);
    EXPECT_FALSE(platform::exists(path));
}

} // namespace

} // namespace broker::test
