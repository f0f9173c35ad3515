// The program that checks brokers, with programs that are none.

#include "tools/conformance/checks.h"

#include "broker_tests.h"
#include "support/run_program.h"

namespace broker::test {

namespace {

using conformance::Verdict;

std::vector<Verdict> verdictsOn(const std::string& broker) {
    conformance::Subject subject;
    subject.broker = program(broker);
    subject.longestAnswer = 2s;
    return conformance::check(subject);
}

std::size_t breaches(const std::vector<Verdict>& verdicts) {
    std::size_t count = 0;
    for (const Verdict& verdict : verdicts)
        count += verdict.breach.empty() ? 0 : 1;
    return count;
}

int statusFor(const std::vector<std::string>& arguments) {
    return ovalis::test::runProgram(ovalis::test::builtProgram("pcellBrokerConformance"), arguments)
        .exitCode;
}

TEST(Conformance, OfAProgramThatExitsAtOnceIsNone) {
    const std::vector<Verdict> verdicts = verdictsOn("broker_exits_at_once");
    EXPECT_EQ(breaches(verdicts), verdicts.size());
    EXPECT_EQ(verdicts.at(0).rule, "answers liveness requests with ':'");
    EXPECT_EQ(verdicts.at(0).breach, "the liveness request was not answered with ':'");
}

TEST(Conformance, OfABrokerThatAnswersLivenessWronglyIsNone) {
    EXPECT_FALSE(verdictsOn("broker_wrong_liveness").at(0).breach.empty());
}

TEST(Conformance, SaysWhatCannotBeStarted) {
    const std::vector<Verdict> verdicts = verdictsOn("no such program");
    EXPECT_EQ(breaches(verdicts), verdicts.size());
    EXPECT_TRUE(verdicts.at(0).breach.starts_with("cannot start program (")) << verdicts[0].breach;
}

TEST(Conformance, IsToldByTheExitStatus) {
    EXPECT_EQ(statusFor({program("broker_exits_at_once")}), 1);
    EXPECT_EQ(statusFor({}), 2);
    EXPECT_EQ(statusFor({program("broker_exits_at_once"), "--pcell", "a", "b", "c", "d"}), 2);
    EXPECT_EQ(statusFor({"--help"}), 0);
}

} // namespace

} // namespace broker::test
