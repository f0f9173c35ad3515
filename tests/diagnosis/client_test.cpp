#include <memory>

#include "broker/brokered_pcell.h"
#include "diagnosis/installation.h"

namespace diagnosis::test {
namespace {

using pcellBrokerClient::BrokeredPcell;
using pcellBrokerClient::Brokers;

/// What the client says when it looks for an evaluator of the first type.
std::string logOfClient() {
    const auto brokers = std::make_shared<Brokers>();
    brokers->config = readBrokerConfig(brokers->connections);
    const oaCommon::SPtr<BrokeredPcell> pcell(
        new BrokeredPcell(pcellBrokerClient::parseItem(brokers->config.items.at(0)), brokers));
    testing::internal::CaptureStderr();
    pcell->calcDiskSize(nullptr);
    std::string log = testing::internal::GetCapturedStderr();
    std::erase(log, '\r');
    return log;
}

/// What it would say to the attempts of the diagnosis when none worked.
std::string logOfAttempts(const TypeReport& type) {
    std::string tried;
    for (const Attempt& attempt : type.attempts)
        tried += (tried.empty() ? "" : ", ") + std::to_string(attempt.apiVersion) + " (" +
                 attempt.way + ")";
    return "pcellBrokerClient: could not find a working evaluator for brokered pcell type '" +
           type.name + "': OA APIs tried: " + tried + "\n";
}

struct Order {
    const char* name;
    const char* item;
    const char* probe;
    const char* forced;
};

class SameOrder : public testing::TestWithParam<Order> {};

TEST_P(SameOrder, OfAttemptsAsTheClients) {
    Installation here;
    here.set("TEST_BROKER_TYPES", "another");
    here.set("TEST_BROKER_EXIT", GetParam().probe);
    here.set("PCELLBROKER_CONFIG", GetParam().item);
    here.set("PCELLBROKER_FORCED_OA_API_VERSION", GetParam().forced);
    const Report report = here.diagnose();
    EXPECT_EQ(logOfClient(), logOfAttempts(report.types.at(0)));
}

INSTANTIATE_TEST_SUITE_P(Diagnosis, SameOrder,
                         testing::Values(Order{"Plain", "coil", "6", ""},
                                         Order{"BrokersOnly", "coil:X", "6", ""},
                                         Order{"External", "coil:E", "6", ""},
                                         Order{"ProbePrefersTheOther", "coil", "5", ""},
                                         Order{"ProbeWithoutPreference", "coil:EX", "0", ""},
                                         Order{"Forced5", "coil", "6", "5"},
                                         Order{"Forced6", "coil", "5", "6"}),
                         [](const auto& order) { return std::string(order.param.name); });

TEST(SameError, EndsTheChoiceOfBoth) {
    for (const char* program : {"broker_exits_at_once", "broker_wrong_liveness",
                                "broker_exits_after_bytes", "broker_answers_too_much"}) {
        Installation here;
        here.set("TEST_BROKER_COMMAND", "0");
        here.set("TEST_BROKER_EXTRA", ":");
        here.set("TEST_BROKER_BYTES", "1"); // the last of them ends at the question for the type
        here.install(program, "broker6");
        const Report report = here.diagnose();
        EXPECT_EQ(logOfClient(), "pcellBrokerClient: while initializing brokered pcell type "
                                 "'coil': " +
                                     report.types.at(0).attempts.back().answer + "\n");
    }
}

TEST(SameError, OfTheConfigurationIsToldByBoth) {
    Installation here;
    here.remove("BROKER_EXE_5");
    const Report report = here.diagnose();
    Brokers brokers;
    try {
        readBrokerConfig(brokers.connections);
        FAIL() << "the client takes the configuration";
    } catch (const std::runtime_error& error) {
        EXPECT_EQ(report.refusal, error.what());
    }
}

} // namespace
} // namespace diagnosis::test
