// Kills of worker, front and host at moments that nobody chose.

#include "broker_tests.h"

#include <random>
#include <vector>

#include "platform/child_process.h"

namespace broker::test {

namespace {

using namespace conformance;
using ovalis::test::EnvironmentOverride;

// OVALIS_KILLS asks for more than an ordinary run of the tests has time for.
int kills() {
    return std::stoi(platform::environmentVariable("OVALIS_KILLS").value_or("8"));
}

class KillTest : public BrokerTest {
protected:
    std::unique_ptr<Dialogue> start() {
        auto broker = std::make_unique<Dialogue>(program("broker_front"),
                                                 std::vector<std::string>{program("fake_worker")});
        EXPECT_TRUE(broker->isAlive());
        return broker;
    }

    static std::string request(const std::string& cell, const std::string& view = "layout") {
        return evaluate("lib", cell, view) + integer(0);
    }

    platform::ProcessId workerOf(Dialogue& broker) {
        const std::optional<Evaluated> answer = broker.evaluate(request("number"));
        return answer ? static_cast<platform::ProcessId>(std::stoul(answer->text)) : 0;
    }

    /// Kills a process while evaluations go on, until one of them is hit or they are done.
    std::optional<Evaluated> hit(Dialogue& broker, platform::ProcessId process) {
        const std::chrono::microseconds moment(random() % 9000);
        std::thread killer([=] {
            std::this_thread::sleep_for(moment);
            platform::killProcess(process);
        });
        std::optional<Evaluated> answer;
        for (int evaluation = 0; evaluation < 8; ++evaluation) {
            answer = broker.evaluate(request("work"));
            if (!answer || answer->status == 0)
                break;
        }
        killer.join();
        return answer;
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

TEST_F(KillTest, OfAWorkerCostsAtMostTheEvaluationThatItHits) {
    const auto broker = start();
    for (int kill = 0; kill < kills(); ++kill) {
        const std::optional<Evaluated> answer = hit(*broker, workerOf(*broker));
        ASSERT_TRUE(answer);
        if (answer->status == 0) {
            EXPECT_TRUE(answer->text.starts_with(
                "front: Error[2]: the evaluating process failed: ended with "))
                << answer->text;
        }
        EXPECT_TRUE(broker->isAlive());
    }
    EXPECT_EQ(leftovers(), 1u);
}

TEST_F(KillTest, OfAFrontLeavesNothing) {
    for (int kill = 0; kill < kills(); ++kill) {
        const auto broker = start();
        const platform::ProcessId front = ownerOfResults();
        const platform::ProcessId worker = workerOf(*broker);
        hit(*broker, front);
        broker->kill();
        EXPECT_EQ(remains({front, worker}), "") << kill;
    }
}

TEST_F(KillTest, OfAHostLeavesNothing) {
    for (int kill = 0; kill < kills(); ++kill) {
        platform::ChildProcess host(
            program("broker_host"),
            {program("broker_front"), program("fake_worker"), "work", "layout"},
            {pathOf("output"), pathOf("errors")});
        ASSERT_TRUE(holdsWithin(30s, [&] { return leftovers() == 1; }));
        const platform::ProcessId front = ownerOfResults();
        std::this_thread::sleep_for(std::chrono::microseconds(random() % 9000));
        host.kill();
        host.wait();
        EXPECT_EQ(remains({front}), "") << kill;
    }
}

} // namespace

} // namespace broker::test
